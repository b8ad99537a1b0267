#pragma once

#include "support/fillguard.h"

#include <QObject>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

class BodyRegistry;
class QSpinBox;
class QTableWidget;
class QTableWidgetItem;

/**
 * What the operator does to the body tables and to the boxes with the numbers of bodies, turned
 * into signals that say what is wanted. Owned by the tab; looks things up in its registry.
 *
 * A gesture is delivered after the event that made it, since the boxes and dialogs it opens must
 * not run inside the event handling of a table that may be gone when they close. One gesture is
 * acted on at a time: what arrives meanwhile, or while its question is shown, is dropped.
 */
class BodyTableInput : public QObject {
    Q_OBJECT

public:
    /** The registry outlives the object. */
    explicit BodyTableInput(BodyRegistry &registry) : m_registry(registry) {}

    /** From now on the table of that registered type is listened to. */
    void watchTable(const QString &type);
    /** From now on a box with a number of bodies is listened to. */
    void watchSpinBox(QSpinBox *spinBox);

    // What the widgets report; hidden and unknown ones are ignored.

    void cellClicked(QObject *table, int row, int column);
    void cellDoubleClicked(QObject *table, int row, int column);
    void itemChanged(QTableWidgetItem *item);
    void currentItemChanged(QTableWidgetItem *current);
    void spinBoxChanged(QObject *spinBox);

    /** While the guard lives, changed items are the program's own and no gesture. */
    FillGuard startFilling() { return FillGuard(m_filling); }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void activeToggled(const QString &type, int index, bool active);
    void referenceToggled(const QString &type, int index, bool reference);
    void nameEntered(const QString &type, int index, const QString &name);
    void countEntered(const QString &type, int count);
    void filterPressed(const QString &type, int index);
    void deletePressed(const QString &type, int index);
    void resetPressed(const QString &type, int index);
    /** A toggle was acted on. */
    void bodyActedOn(const QString &type, int index);
    /** Another body became current, or the current one was clicked. Emitted at once: it asks
     * nothing.
     */
    void currentBodyChanged(const QString &type, int index);

private:
    void deliver(const std::function<void()> &gesture);
    void press(const QString &type, int row, int column);
    void toggle(const QString &type, int row, int column);
    bool pressesCell(QTableWidget *table, int key);

    BodyRegistry &m_registry;
    int m_filling = 0;
    bool m_isActing = false;
    /** The body of the last currentBodyChanged() that no click has followed yet. */
    std::optional<std::pair<QString, int>> m_announced;
};
