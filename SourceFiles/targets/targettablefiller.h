#pragma once

#include <QCoreApplication>
#include <QIcon>
#include <QSet>
#include <QString>
#include <QVector>

class ColumnSizingPause;
class QTableWidget;
class Target;
class Targetlibrary;

/** Shows the library targets of a body type in a target table. */
class TargetTableFiller {
    Q_DECLARE_TR_FUNCTIONS(BodyTypeAdministrationTab)

public:
    enum Column { IdColumn, ShortNameColumn, NameColumn, UsedColumn, ColumnCount };

    /** The name of the category, and of the heading row, for the targets that a search found. */
    static QString foundTargets();
    /**
     * True when the target in that row was in use at its last reading, and not by a custom
     * calibration.
     */
    static bool isUsed(const QTableWidget *table, int row);

    /**
     * @param library outlives the filler
     * @param customTargets identifiers of the targets whose calibration is a custom one; outlives
     * the filler
     * @param foundIcon marks the targets that the cameras see
     */
    TargetTableFiller(const Targetlibrary &library, const QSet<QString> &customTargets,
                      const QIcon &foundIcon)
        : m_library(library), m_customTargets(customTargets), m_foundIcon(foundIcon)
    {
    }

    /** Columns, headers and selection of an empty target table. */
    static void setUp(QTableWidget *table);

    /**
     * The targets of a body type in a category, in identifier order. For foundTargets() they are
     * the targets that a search found. For any other name they are the targets of that group; an
     * empty name means targets without a group. A null category means all targets of the type, with
     * the found ones first.
     */
    QVector<const Target *> inCategory(const QString &type, const QString &category) const;

    /**
     * Lists `targets`; with `heading`, a heading row is above the found ones. The current target
     * remains current when its row moves.
     */
    void fill(QTableWidget *table, const QVector<const Target *> &targets, bool heading) const;
    /** Writes the "Used" cell and the found mark of the listed targets again. */
    void refreshMarks(QTableWidget *table) const;

    /** Identifier in that row; empty for a heading or a row that does not exist. */
    static QString targetId(const QTableWidget *table, int row);
    /** Short name in that row; empty for a row that does not exist. */
    static QString shortName(const QTableWidget *table, int row);

private:
    QVector<const Target *> all(const QString &type) const;
    /** The word of the "Used" cell; it is translated where it is shown. */
    const char *used(const Target &target) const;
    void fillRow(QTableWidget *table, int row, const Target &target,
                 ColumnSizingPause *pause) const;
    void fillHeading(QTableWidget *table, int row, ColumnSizingPause *pause) const;

    const Targetlibrary &m_library;
    const QSet<QString> &m_customTargets;
    QIcon m_foundIcon;
};
