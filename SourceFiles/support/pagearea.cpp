#include "support/pagearea.h"

#include <QSplitter>

PageArea::PageArea(QWidget *parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // The page's widgets take the keyboard focus; the area scrolls to them.
    setFocusPolicy(Qt::NoFocus);
}

PageArea::~PageArea() = default;

QSize PageArea::sizeHint() const
{
    if (!widget())
        return QScrollArea::sizeHint();
    QSize wanted = widget()->sizeHint();
    // The size hint of a splitter does not include its handle.
    if (const auto *splitter = widget()->findChild<QSplitter *>())
        wanted.rwidth() += (splitter->count() - 1) * splitter->handleWidth();
    return wanted;
}
