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
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    /** Fills the item of a custom column: type, row, column, item. */
    using CustomCell = std::function<void(const QString &, int, int, QTableWidgetItem *)>;

    /** Integer on delete and reset cells: 1 when a click acts, 0 when they are shown disabled. */
    static constexpr int liveRole = Qt::UserRole + 1;

    /** Columns, headers and selection of an empty body table, whose last column stretches. */
    static void setUp(QTableWidget *table, const BodyColumns &columns);
    /** Once there are rows: columns as wide as their contents but those that take what is left. */
    static void sizeColumns(QTableWidget *table, const BodyColumns &columns);

    /** Shows or hides the filter column, if there is one, as the type has the 6DOF filter or not.
     */
    static void showFilterColumn(const AdminBodyType &record);
    /** Shows `text` while the spin box is at its maximum. */
    static void showLimit(QLabel *label, const QSpinBox *spinBox, const QString &text);
    /** Shows the number of bodies in the record's spin box, which emits nothing. */
    static void showCount(const AdminBodyType &record);
    /**
     * Makes a row current again after a fill, or the last one when the table became shorter; in the
     * current column when none is given.
     */
    static void restoreRow(QTableWidget *table, int row, int column = -1);

    /** Which commands the controller knows; a cell that would lead to nothing is not editable. */
    struct Allowed {
        bool names = true;
        bool activity = true;
        bool reference = true;

        /** What a controller of that protocol takes. */
        static Allowed by(const ControllerLink &link);
    };

    /**
     * @param warmupRuleMet inertial sensors are there and their warm-up does not run
     * @param registry      while it is locked, nothing is editable or live; outlives the filler
     */
    BodyTableFiller(const BodyTableIcons &icons, bool warmupRuleMet, const BodyRegistry &registry,
                    const Allowed &allowed)
        : m_icons(icons), m_warmupRuleMet(warmupRuleMet), m_registry(registry), m_allowed(allowed)
    {
    }

    /**
     * Shows the records of a type that has a table; `custom` is called for each cell that the tab
     * fills itself. It may query the controller: afterwards the row is looked up again, and when
     * the table was deleted meanwhile nothing is touched.
     */
    void fill(const QString &type, const CustomCell &custom) const;

private:
    /** The translated words of the cells, looked up once a fill. */
    class Words {
        Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

    public:
        Words();
        /** `text` in the operator's language when it is one of our words, else as the controller
         *  gave it. */
        QString shown(const QString &text) const;

        QString active;
        QString reference;
        QString ofBody;
        QString erase;
        QString reset;

    private:
        QVector<QPair<QLatin1String, QString>> ofRecords;
    };
    /** A cell with a check box; `column` is what the column is called. */
    struct CheckCell {
        bool checked;
        bool checkable;
        const QString &column;
    };

    /** Lets `showIn` fill the item of a cell; a new one before the table has it. */
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
