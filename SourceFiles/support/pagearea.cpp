#include "support/pagearea.h"

#include <QSplitter>

PageArea::PageArea(QWidget *parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    // The keyboard goes to what the page holds, and the area follows.
    setFocusPolicy(Qt::NoFocus);
}

PageArea::~PageArea() = default;

QSize PageArea::sizeHint() const
{
    if (!widget())
        return QScrollArea::sizeHint();
    QSize wanted = widget()->sizeHint();
    // A splitter leaves its handle out of what it wants.
    if (const auto *splitter = widget()->findChild<QSplitter *>())
        wanted.rwidth() += (splitter->count() - 1) * splitter->handleWidth();
    return wanted;
}
