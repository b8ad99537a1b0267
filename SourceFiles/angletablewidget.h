#pragma once

#include "settings/fixedanglebody.h"

#include <QList>
#include <QTableWidget>
#include <QVector>

#include <array>
#include <optional>

class BackendVersions;

/**
 * The fixed angles of the standard bodies, with one row for each body and a check box for each
 * angle.
 *
 * Owned by its parent. Every edited angle is a number of degrees from -20.0 to 20.0. The table
 * shows and reads numbers with a decimal point in every locale.
 */
class AngleTableWidget : public QTableWidget {
    Q_OBJECT

public:
    /** `parent` is the widget that shows the table. The versions are not used. */
    AngleTableWidget(BackendVersions *beVers, QObject *parent);

    /** Removes all rows and sets up the columns. */
    void initial_table();
    /** Replaces all rows. Shows the angles unchanged, even outside the range. */
    void fill_in_table(const QList<FixedAngleBody *> &bodies);

    /** The row's body as the table shows it; nothing when an angle is not a number. */
    std::optional<FixedAngleBody> body(int row) const;
    /** The least width of a column of angles, for a number beside its box, in pixels. */
    int leastAngleWidth() const;

    /**
     * True when the row was not read completely and the user has not set every angle and box of it.
     */
    bool isUnread(int row) const;
    /** True when the user has set an angle or a box of the row. */
    bool isTouched(int row) const;

public slots:
    /** Keeps numbers and names from being edited. */
    void click_cell(int row, int column);
    /**
     * Rewrites an edited angle with two decimals; replaces any text that is not an allowed angle by
     * "0.00".
     */
    void changed_cell(int row, int column);

protected slots:
    void commitData(QWidget *editor) override;

private:
    enum Column { IdColumn, NameColumn, FirstAngleColumn, ColumnCount = FirstAngleColumn + 3 };

    /** What was read of a row, and what the user has set of it since. */
    struct Row {
        FixedAngleBody body;
        std::array<bool, 3> shownFlags{};
        std::array<QString, 3> shownTexts;
        std::array<bool, 3> angleSet{};
        std::array<bool, 3> flagSet{};
    };

    void fillRow(int row, const FixedAngleBody &body);

    QVector<Row> m_rows;
};
