#include "support/pagearea.h"

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
    return widget() ? widget()->sizeHint() : QScrollArea::sizeHint();
}
