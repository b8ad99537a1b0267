#include "hostcall.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

#include <utility>

namespace {

int &depth()
{
    static int calls = 0;
    return calls;
}

/** Hidden windows. Each holds the widgets of a window that was deleted inside a call. */
QVector<QPointer<QWidget>> &kept()
{
    static QVector<QPointer<QWidget>> windows;
    return windows;
}

} // namespace

HostCall::HostCall()
{
    ++depth();
}

HostCall::~HostCall()
{
    if (--depth() > 0)
        return;
    kept().removeAll(nullptr);
    for (const QPointer<QWidget> &window : qAsConst(kept()))
        window->deleteLater();
}

bool HostCall::isUnderWay()
{
    return depth() > 0;
}

void HostCall::keepWidgetsOf(QWidget *window)
{
    if (!isUnderWay())
        return;
    const QList<QWidget *> all = window->findChildren<QWidget *>();
    for (QWidget *widget : all)
        widget->disconnect(window);
    auto *keeper = new QWidget;
    kept().append(keeper);
    const QList<QWidget *> direct =
            window->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *widget : direct) {
        if (!widget->isWindow())
            widget->setParent(keeper);
    }
}

bool HostCall::isKept(const QWidget *widget)
{
    return kept().contains(widget->window());
}

void HostCall::deleteKept()
{
    if (isUnderWay())
        return;
    const auto windows = std::exchange(kept(), {});
    for (const QPointer<QWidget> &window : windows)
        delete window;
}
