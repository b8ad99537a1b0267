#include "MenuBuilder.h"

#include "ModuleInterface.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <tuple>

MenuBuilder::MenuBuilder(QMenuBar *menuBar) : m_menuBar(menuBar) {}

void MenuBuilder::build(const QList<_GuiElement *> &elements, QMenu *before)
{
    clear();
    m_elements = elements;
    std::stable_sort(m_elements.begin(), m_elements.end(), [](const auto *left, const auto *right) {
        return std::tie(left->menu_order_number, left->menu_entry_order_number)
               < std::tie(right->menu_order_number, right->menu_entry_order_number);
    });
    for (const _GuiElement *element : qAsConst(m_elements)) {
        const auto sameTitle = [element](const QPointer<QMenu> &menu) {
            return menu && menu->title() == element->menu_name;
        };
        const auto found = std::find_if(m_menus.cbegin(), m_menus.cend(), sameTitle);
        QMenu *menu = found != m_menus.cend() ? found->data() : nullptr;
        if (!menu) {
            menu = new QMenu(element->menu_name, m_menuBar);
            menu->setToolTipsVisible(true);
            m_menuBar->insertMenu(before ? before->menuAction() : nullptr, menu);
            m_menus << menu;
        }
        menu->addAction(element->menu_entry);
    }
}

void MenuBuilder::clear()
{
    for (const QPointer<QMenu> &menu : qAsConst(m_menus))
        delete menu;
    m_menus.clear();
    m_elements.clear();
}

void MenuBuilder::setMeasurementRunning(bool running)
{
    for (const _GuiElement *element : qAsConst(m_elements))
        element->menu_entry->setEnabled(!running || element->action_active_during_measurement != 0);
}
