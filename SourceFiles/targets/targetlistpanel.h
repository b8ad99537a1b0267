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
 * The list of library targets beside the bodies: the targets that it shows, their categories and
 * marks. The tab owns it as a member declared after the library's pointer; the widgets belong to
 * the tab's form.
 */
class TargetListPanel {
public:
    /** The library outlives the panel. `foundIcon` marks the targets that the cameras see. */
    TargetListPanel(const TargetAssignment &assignment, Targetlibrary *library,
                    const QIcon &foundIcon);
    TargetListPanel(const TargetListPanel &) = delete;
    TargetListPanel &operator=(const TargetListPanel &) = delete;

    /** Called once, after the set-up of the tab's form. */
    void setWidgets(const TabWidgets &widgets);

    /** Lists the targets of a type in `table`; a null category lists all of them. */
    void list(QTableWidget *table, const QString &type, const QString &category);
    /**
     * The same as list(), for calls twice a second: of repeated failures only the first is logged.
     */
    void listAgain(QTableWidget *table, const QString &type, const QString &category);
    /** Reads which of the listed targets of the type are held by bodies, and shows it. */
    void refreshUsed(QTableWidget *table, const QString &type) const;
    /** Queries which targets of the type the cameras see; does not change what is shown. */
    void refreshTracked(const QString &type) const;
    /**
     * Queries which of the listed targets the cameras see, shows the result and counts the targets.
     */
    void refreshTrackedRows(QTableWidget *table, int *tracked, int *alreadyUsed) const;
    /** Identifiers in the rows of `table`; empty for a heading row. */
    static QStringList listedIds(const QTableWidget *table);

    /** Name of the chosen category, which may be empty; null in a tab without categories. */
    QString category() const;
    /** True while the category of the found targets is shown. */
    bool showsFoundTargets() const;
    /** Puts the categories of the tab's targets into the tab's category box. */
    void fillCategories() const;
    /** Fills the category box again; keeps the chosen category if it still exists. */
    void renewCategories() const;
    /** Makes the category with exactly that name current; none when no category has that name. */
    void selectCategory(const QString &name) const;
    /** Reads which targets of a category are held by bodies. */
    void refreshUsedInCategory(const QString &name) const;

private:
    TargetAssignment m_assignment;
    Targetlibrary *m_library;
    QSet<QString> m_customTargets;
    QStringList m_failures; ///< log lines of the last reading of custom calibrations
    TargetTableFiller m_filler;
    QString m_type;
    QComboBox *m_category = nullptr;
};
