#include "targets/targetlistpanel.h"

#include "bodies/tabwidgets.h"
#include "targetlibrary.h"
#include "targets/target.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QTableWidget>

namespace {

QStringList idsOf(const QVector<const Target *> &targets)
{
    QStringList ids;
    for (const Target *target : targets)
        ids.append(target->id());
    return ids;
}

} // namespace

TargetListPanel::TargetListPanel(const TargetAssignment &assignment, Targetlibrary *library,
                                 const QIcon &foundIcon)
    : m_assignment(assignment), m_library(library), m_filler(*library, m_customTargets, foundIcon)
{
}

void TargetListPanel::setWidgets(const TabWidgets &widgets)
{
    m_type = widgets.type;
    m_category = widgets.category;
}

void TargetListPanel::list(QTableWidget *table, const QString &type, const QString &category)
{
    m_failures.clear();
    listAgain(table, type, category);
}

void TargetListPanel::listAgain(QTableWidget *table, const QString &type, const QString &category)
{
    const QVector<const Target *> targets = m_filler.inCategory(type, category);
    const TargetAssignment assignment = m_assignment;
    QSet<QString> custom = m_customTargets;
    QStringList failures = m_failures;
    assignment.readCustom(idsOf(targets), &custom, &failures);
    if (assignment.isClosed())
        return;
    m_failures = failures;
    m_customTargets = custom;
    m_filler.fill(table, targets, category.isNull());
}

void TargetListPanel::refreshUsed(QTableWidget *table, const QString &type) const
{
    const TargetAssignment assignment = m_assignment;
    for (const QString &id : idsOf(m_filler.inCategory(type, category())))
        assignment.refreshUsed(id);
    if (!assignment.isClosed())
        m_filler.refreshMarks(table);
}

void TargetListPanel::refreshTracked(const QString &type) const
{
    const TargetAssignment assignment = m_assignment;
    const QMap<QString, Target *> targets = m_library->targets();
    for (Target *target : targets) {
        if (!assignment.isClosed() && m_library->isOfType(*target, type))
            assignment.refreshTracked(target);
    }
}

void TargetListPanel::refreshTrackedRows(QTableWidget *table, int *tracked, int *alreadyUsed) const
{
    // The category of the found targets was listed from states that had just been read.
    const bool statesKnown = category() == TargetTableFiller::foundTargets();
    const TargetAssignment assignment = m_assignment;
    int trackedRows = 0;
    int usedRows = 0;
    for (const QString &id : listedIds(table)) {
        Target *target = m_library->target(id);
        if (!target)
            continue;
        if (!statesKnown)
            assignment.refreshTracked(target);
        if (assignment.isClosed())
            return;
        trackedRows += target->isTracked() ? 1 : 0;
        usedRows += target->isTracked() && target->isCalibrated() ? 1 : 0;
    }
    *tracked = trackedRows;
    *alreadyUsed = usedRows;
    // Without a category filter, targets move to the top when they are found.
    if (category().isNull())
        m_filler.fill(table, m_filler.inCategory(m_type, QString()), true);
    else
        m_filler.refreshMarks(table);
}

QStringList TargetListPanel::listedIds(const QTableWidget *table)
{
    QStringList ids;
    for (int row = 0; row < table->rowCount(); ++row)
        ids.append(TargetTableFiller::targetId(table, row));
    return ids;
}

// Categories

QString TargetListPanel::category() const
{
    if (!m_category)
        return {};
    // The category of the targets without a group has an empty name, which differs from a null one.
    const QString name = m_category->currentText();
    return name.isNull() ? QStringLiteral("") : name;
}

bool TargetListPanel::showsFoundTargets() const
{
    return category().startsWith(TargetTableFiller::foundTargets());
}

void TargetListPanel::fillCategories() const
{
    QStringList groups;
    for (const Target *target : m_filler.inCategory(m_type, QString())) {
        const QString group = m_library->getGroupFromTid(target->id());
        if (!groups.contains(group))
            groups.append(group);
    }
    groups.sort(Qt::CaseSensitive);
    groups.prepend(TargetTableFiller::foundTargets());
    const QSignalBlocker silent(m_category);
    m_category->insertItems(0, groups);
    m_category->setCurrentIndex(0);
}

void TargetListPanel::renewCategories() const
{
    const QSignalBlocker silent(m_category);
    const QString chosen = m_category->currentText();
    m_category->clear();
    fillCategories();
    m_category->setCurrentIndex(qMax(0, m_category->findText(chosen)));
}

void TargetListPanel::selectCategory(const QString &name) const
{
    const int index = m_category->findText(name, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (index != m_category->currentIndex())
        m_category->setCurrentIndex(index);
}

void TargetListPanel::refreshUsedInCategory(const QString &name) const
{
    const TargetAssignment assignment = m_assignment;
    const QStringList ids = m_library->targets().keys();
    for (const QString &id : ids) {
        if (!assignment.isClosed() && m_library->getGroupFromTid(id) == name)
            assignment.refreshUsed(id);
    }
}
