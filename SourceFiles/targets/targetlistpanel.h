#pragma once

#include "targets/targetassignment.h"
#include "targets/targettablefiller.h"

#include <QSet>
#include <QString>
#include <QStringList>

class QComboBox;
class QTableWidget;
class Targetlibrary;
struct TabWidgets;

/**
 * The list of library targets beside the bodies: which targets it shows, their categories and
 * marks. Owned by the tab, as a member after the library's pointer; the widgets belong to the tab's
 * form.
 */
class TargetListPanel {
public:
    /** The library outlives the panel. `foundIcon` marks the targets that the cameras see. */
    TargetListPanel(const TargetAssignment &assignment, Targetlibrary *library,
                    const QIcon &foundIcon);
    TargetListPanel(const TargetListPanel &) = delete;
    TargetListPanel &operator=(const TargetListPanel &) = delete;

    /** Once, after the tab's form was set up. */
    void setWidgets(const TabWidgets &widgets);

    /** Lists the targets of a type in `table`; a null category lists them all. */
    void list(QTableWidget *table, const QString &type, const QString &category);
    /** The same twice a second: of what goes on failing, the first failure has its line. */
    void listAgain(QTableWidget *table, const QString &type, const QString &category);
    /** Reads which of the listed targets of the type bodies hold, and shows it. */
    void refreshUsed(QTableWidget *table, const QString &type) const;
    /** Asks which targets of the type the cameras see; what is shown stays. */
    void refreshTracked(const QString &type) const;
    /** Asks which of the listed targets the cameras see, shows it and counts them. */
    void refreshTrackedRows(QTableWidget *table, int *tracked, int *alreadyUsed) const;
    /** Identifiers in the rows of `table`, empty where a row is a heading. */
    static QStringList listedIds(const QTableWidget *table);

    /** Name of the category shown, which may be empty; null in a tab without categories. */
    QString category() const;
    /** True while the category of the found targets is shown. */
    bool showsFoundTargets() const;
    /** Puts the categories of the tab's targets into the tab's category box. */
    void fillCategories() const;
    /** Fills them again; the category chosen stays if it is still there. */
    void renewCategories() const;
    /** Makes the category of exactly that name current; none when it is not there. */
    void selectCategory(const QString &name) const;
    /** Reads which targets of a category bodies hold. */
    void refreshUsedInCategory(const QString &name) const;

private:
    TargetAssignment m_assignment;
    Targetlibrary *m_library;
    QSet<QString> m_customTargets;
    QStringList m_failures; ///< lines of the last reading of custom calibrations
    TargetTableFiller m_filler;
    QString m_type;
    QComboBox *m_category = nullptr;
};
