#pragma once

#include "bodies/adminbodytype.h"
#include "bodies/bodycolumn.h"

#include <QCoreApplication>
#include <QIcon>
#include <QPair>
#include <QString>
#include <QTableWidgetItem>
#include <QVector>

#include <functional>

class BodyRegistry;
class ColumnSizingPause;
class ControllerLink;
class QLabel;
class QSpinBox;

/** The status and button icons of the body tables; the disabled variants are made once. */
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
 * Shows the records of a body type in its table. It changes only cells whose content differs. The
 * caller has to ignore the item changes that this causes.
 */
class BodyTableFiller {
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    /** Fills the item of a custom column: type, row, column, item. */
    using CustomCell = std::function<void(const QString &, int, int, QTableWidgetItem *)>;

    /** Role on delete and reset cells: 1 when a click acts, 0 when the cell is shown disabled. */
    static constexpr int liveRole = Qt::UserRole + 1;

    /**
     * Sets up columns, headers and selection of an empty body table, whose last column stretches.
     */
    static void setUp(QTableWidget *table, const BodyColumns &columns);
    /**
     * Makes the columns as wide as their contents, except the stretched ones. Called when rows
     * exist.
     */
    static void sizeColumns(QTableWidget *table, const BodyColumns &columns);

    /**
     * Shows or hides the filter column, if there is one, depending on whether the type has the 6DOF
     * filter.
     */
    static void showFilterColumn(const AdminBodyType &record);
    /** Shows `text` while the spin box is at its maximum. */
    static void showLimit(QLabel *label, const QSpinBox *spinBox, const QString &text);
    /** Shows the number of bodies in the record's spin box, without a signal of the box. */
    static void showCount(const AdminBodyType &record);
    /**
     * Makes a row current again after a fill, or the last row when the table became shorter.
     * Without `column` the current column is used.
     */
    static void restoreRow(QTableWidget *table, int row, int column = -1);

    /**
     * Which commands the controller knows; a cell whose command it does not know is not editable.
     */
    struct Allowed {
        bool names = true;
        bool activity = true;
        bool reference = true;

        /** The commands that a controller with the link's protocol knows. */
        static Allowed by(const ControllerLink &link);
    };

    /**
     * @param warmupRuleMet true when inertial sensors exist and are not warming up
     * @param registry      while it is locked, no cell can be edited or pressed; outlives the
     * filler
     */
    BodyTableFiller(const BodyTableIcons &icons, bool warmupRuleMet, const BodyRegistry &registry,
                    const Allowed &allowed)
        : m_icons(icons), m_warmupRuleMet(warmupRuleMet), m_registry(registry), m_allowed(allowed)
    {
    }

    /**
     * Shows the records of a type that has a table; `custom` is called for each cell that the tab
     * fills itself. `custom` may query the controller. After it the row is found again, and nothing
     * is touched when the table was deleted meanwhile.
     */
    void fill(const QString &type, const CustomCell &custom) const;

private:
    /** The translated words of the cells, looked up once for each fill. */
    class Words {
        Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

    public:
        Words();
        /**
         * `text` in the operator's language when it is one of the module's words, otherwise
         * unchanged.
         */
        QString shown(const QString &text) const;

        QString active;
        QString reference;
        QString ofBody;
        QString erase;
        QString reset;

    private:
        QVector<QPair<QLatin1String, QString>> ofRecords;
    };
    /** A cell with a check box; `column` is the name of its column. */
    struct CheckCell {
        bool checked;
        bool checkable;
        const QString &column;
    };

    /**
     * Lets `showIn` fill the item of a cell. A new item is filled before it is put into the table.
     */
    template <typename ShowIn>
    static void put(QTableWidget *table, int row, int column, ColumnSizingPause *pause,
                    const ShowIn &showIn);
    void show(QTableWidgetItem *item, COLUMN_TYPE kind, const AdminBodyType &record, int row,
              ColumnSizingPause *pause) const;
    void showCheckCell(QTableWidgetItem *item, const CheckCell &cell, const AdminBodyType &record,
                       int row, ColumnSizingPause *pause) const;
    Qt::ItemFlags nameFlags() const;
    bool isResetLive(const AdminBody &body) const;
    const QIcon &calibrationIcon(const AdminBody &body) const;
    void showButtonCell(QTableWidgetItem *item, bool live, const QIcon &icon,
                        const QIcon &disabledIcon, ColumnSizingPause *pause) const;

    const BodyTableIcons &m_icons;
    bool m_warmupRuleMet;
    const BodyRegistry &m_registry;
    Allowed m_allowed;
    Words m_words;
};
