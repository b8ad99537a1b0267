#pragma once

#include <QList>
#include <QPointer>

struct _GuiElement;
class QMenu;
class QMenuBar;

/**
 * Builds a menu bar from the entries that modules offer, sorted by their order numbers, and
 * disables entries while a measurement runs. Owned by the main window.
 */
class MenuBuilder {
public:
    explicit MenuBuilder(QMenuBar *menuBar);

    /** Inserts the entries; their menus come before those that the host itself adds. */
    void build(const QList<_GuiElement *> &elements, QMenu *before);
    /** Removes what build() inserted; does not delete the actions, which belong to their owner. */
    void clear();
    /** Disables the entries that must not be used during a measurement while `running` is true. */
    void setMeasurementRunning(bool running);

private:
    QMenuBar *m_menuBar;
    QList<_GuiElement *> m_elements;
    QList<QPointer<QMenu>> m_menus;
};
