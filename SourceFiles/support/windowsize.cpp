#include "support/windowsize.h"

#include <QLayout>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace {

/** Lets the layouts of a window that is not shown yet measure their contents again. */
void measureAgain(QWidget *widget)
{
    for (QObject *child : widget->children()) {
        if (!child->isWidgetType())
            continue;
        auto *part = static_cast<QWidget *>(child);
        measureAgain(part);
        // A layout keeps the size that a part wanted before, until the part reports a change.
        part->updateGeometry();
    }
    if (QLayout *layout = widget->layout()) {
        layout->invalidate();
        layout->activate();
    }
}

} // namespace

void WindowSize::fitToContents(QWidget *window, const QWidget *parent)
{
    if (window->testAttribute(Qt::WA_Resized))
        return;
    measureAgain(window);
    const QScreen *screen = (parent ? parent->window() : window)->screen();
    const int titleBar = window->style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, window);
    // The page scrolls where the contents do not fit, so that the buttons remain on the screen.
    const QSize contents = window->sizeHint();
    const QSize room = screen ? screen->availableSize() - QSize(titleBar, 2 * titleBar) : contents;
    window->resize(contents.boundedTo(room));
}
