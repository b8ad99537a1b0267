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
 * Turns the operator's input in the body tables and in the boxes with the numbers of bodies into
 * signals that say what the operator wants. Owned by the tab, whose registry it uses.
 *
 * A gesture is delivered after the event that made it, because the boxes and dialogs that it opens
 * must not run inside the event handling of a table that may be deleted meanwhile. One gesture is
 * acted on at a time: gestures that arrive meanwhile, or while a question is open, are dropped.
 */
class BodyTableInput : public QObject {
    Q_OBJECT

public:
    /** The registry outlives the object. The observer may be null, and may be deleted earlier. */
    explicit BodyTableInput(BodyRegistry &registry, LinkObserver *observer = nullptr);
    ~BodyTableInput() override;

    /** Begins to handle input in the table of that registered type. */
    void watchTable(const QString &type);
    /** Begins to handle input in a box with a number of bodies. */
    void watchSpinBox(QSpinBox *spinBox);

    // Slots for the signals of the widgets; hidden and unknown widgets are ignored.

    void cellClicked(QObject *table, int row, int column);
    void cellDoubleClicked(QObject *table, int row, int column);
    void itemChanged(QTableWidgetItem *item);
    void currentItemChanged(QTableWidgetItem *current);
    void spinBoxChanged(QObject *spinBox);

    /** Runs at once what a button requests; does nothing while a gesture is acted on. */
    void perform(const std::function<void()> &gesture);
    /** Drops waiting gestures and all later ones, because the host shuts down. */
    void retire() { m_isRetired = true; }
    bool isRetired() const { return m_isRetired; }
    /** Ends every edit as Enter does, because the widgets are about to be hidden. */
    void commit() const;
    /** Ends every edit as Escape does and shows the records again. */
    void discard() const;
    /** Disconnects the signals of the tables and boxes from `listener`. */
    void disconnectWidgets(const QObject *listener) const;
    /** While the guard lives, changes of items are the program's own and count as no gesture. */
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
    /** An action on a body, such as a toggle, has ended. */
    void bodyActedOn(const QString &type, int index);
    /**
     * Another body became current, or the current one was clicked. Emitted at once, because it
     * opens no question.
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
    bool m_isMouseDown = false; ///< true after a press on a table, until its click
    /** The body of the last currentBodyChanged() that came from a press, until its click. */
    std::optional<std::pair<QString, int>> m_announced;
};
