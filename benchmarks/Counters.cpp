#include "Counters.h"

#include <QAbstractItemView>
#include <QEvent>

QSize CountingStyle::sizeFromContents(ContentsType type, const QStyleOption *option,
                                      const QSize &size, const QWidget *widget) const
{
    if (type == CT_ItemViewItem)
        ++itemSizeHints;
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

PaintCounter::PaintCounter(QWidget *window) : QObject(window)
{
    window->installEventFilter(this);
    for (QWidget *widget : window->findChildren<QWidget *>())
        widget->installEventFilter(this);
}

bool PaintCounter::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        auto *view = qobject_cast<QAbstractItemView *>(watched->parent());
        if (!view || view->viewport() != watched)
            ++outsideTables;
    }
    return QObject::eventFilter(watched, event);
}
