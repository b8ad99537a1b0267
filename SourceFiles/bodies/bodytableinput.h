#pragma once

#include "support/fillguard.h"

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <optional>
#include <utility>

struct AdminBodyType;
class BodyRegistry;
class LinkObserver;
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
    /** The registry outlives the object; the observer, which may be null, need not. */
    explicit BodyTableInput(BodyRegistry &registry, LinkObserver *observer = nullptr);
    ~BodyTableInput() override;

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

    /** Acts at once, unless a gesture is acted on: what a button asks for, one at a time. */
    void perform(const std::function<void()> &gesture);
    /** What waits to be delivered will not be, nor will anything else: the host shuts down. */
    void retire() { m_isRetired = true; }
    bool isRetired() const { return m_isRetired; }
    /** Ends every edit as Enter does: the widgets are about to be hidden. */
    void commit() const;
    /** Ends every edit as Escape does and shows the records again. */
    void discard() const;
    /** The tables and boxes report to `listener` no longer. */
    void disconnectWidgets(const QObject *listener) const;
    /** While the guard lives, changed items are the program's own and no gesture. */
    FillGuard startFilling() { return FillGuard(this, m_filling); }

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
    bool discardsCount(QSpinBox *spinBox, int key) const;
    static void endName(const AdminBodyType &record, bool take);

    BodyRegistry &m_registry;
    QPointer<LinkObserver> m_observer;
    int m_filling = 0;
    bool m_isActing = false;
    bool m_isRetired = false;
    bool m_isMouseDown = false; ///< the press on a table that no click has followed yet
    /** The body of the last currentBodyChanged() that no click has followed yet. */
    std::optional<std::pair<QString, int>> m_announced;
};
