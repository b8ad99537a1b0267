#pragma once

#include "bodies/adminbodytype.h"
#include "bodies/bodycolumn.h"

#include <QIcon>
#include <QString>
#include <QTableWidgetItem>

#include <functional>

class ControllerLink;
class QSpinBox;

/** The status and button icons of the body tables; disabled variants are made once. */
class BodyTableIcons {
public:
    BodyTableIcons(const QIcon &ok, const QIcon &notCalibrated, const QIcon &noHandEye,
                   const QIcon &cross, const QIcon &reset);

    QIcon ok;
    QIcon notCalibrated; ///< shown disabled
    QIcon noHandEye;
    QIcon cross;
    QIcon crossDisabled;
    QIcon reset;
    QIcon resetDisabled;
};

/**
 * Shows the records of a body type in its table: record in, items out. Only cells whose content
 * differs are touched; the caller guards against the item changes this makes.
 */
class BodyTableFiller {
public:
    /** Fills the item of a custom column: type, row, column, item. */
    using CustomCell = std::function<void(const QString &, int, int, QTableWidgetItem *)>;

    /** Integer on delete and reset cells: 1 when a click acts, 0 when they are shown disabled. */
    static constexpr int liveRole = Qt::UserRole + 1;

    /** Columns, headers and selection of an empty body table. */
    static void setUp(QTableWidget *table, const BodyColumns &columns);
    /** Every column as wide as its contents but those that take what is left. */
    static void sizeColumns(QTableWidget *table, const BodyColumns &columns);

    /** Shows or hides the filter column, if there is one, as the type has the 6DOF filter or not.
     */
    static void showFilterColumn(const AdminBodyType &record);
    /** Shows the number of bodies in the record's spin box, which emits nothing. */
    static void showCount(const AdminBodyType &record);
    /**
     * Makes a row current again after a fill, or the last one when the table became shorter; in the
     * current column when none is given.
     */
    static void restoreRow(QTableWidget *table, int row, int column = -1);

    /** What the operator may do; a cell that would lead to nothing is shown, but not editable. */
    struct Allowed {
        bool actions = true; ///< false while the configuration is locked; then nothing is editable
        bool names = true;   ///< this and the next two: the controller knows the command
        bool activity = true;
        bool reference = true;

        /** What a controller of that protocol takes; nothing while the configuration is locked. */
        static Allowed by(const ControllerLink &link, bool locked);
    };

    /** @param warmupRuleMet inertial sensors are there and their warm-up does not run */
    BodyTableFiller(const BodyTableIcons &icons, bool warmupRuleMet, const Allowed &allowed)
        : m_icons(icons), m_warmupRuleMet(warmupRuleMet), m_allowed(allowed)
    {
    }

    /** Shows the record; `custom` is called for each cell that the tab fills itself. */
    void fill(const QString &type, const AdminBodyType &record, const CustomCell &custom) const;

private:
    QTableWidgetItem cell(COLUMN_TYPE kind, const AdminBodyType &record, int row) const;
    QTableWidgetItem checkCell(const AdminBody &body, bool checked, bool checkable) const;
    QTableWidgetItem calibrationCell(const AdminBody &body) const;
    QTableWidgetItem buttonCell(bool live, const QIcon &icon, const QIcon &disabledIcon,
                                const QString &accessibleText) const;

    const BodyTableIcons &m_icons;
    bool m_warmupRuleMet;
    Allowed m_allowed;
};
