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

    /** Inserts the entries; the menus come before those that the host adds itself. */
    void build(const QList<_GuiElement *> &elements, QMenu *before);
    /** Removes what build() inserted; the actions stay with their owner. */
    void clear();
    /** Entries that may not be used during a measurement follow `running`. */
    void setMeasurementRunning(bool running);

private:
    QMenuBar *m_menuBar;
    QList<_GuiElement *> m_elements;
    QList<QPointer<QMenu>> m_menus;
};
