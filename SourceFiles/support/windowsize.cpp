#include "support/windowsize.h"

#include <QLayout>
#include <QScreen>
#include <QStyle>
#include <QWidget>

namespace {

/** Lets the layouts of a window that is not shown yet measure what was filled into it. */
void measureAgain(QWidget *widget)
{
    for (QObject *child : widget->children()) {
        if (!child->isWidgetType())
            continue;
        auto *part = static_cast<QWidget *>(child);
        measureAgain(part);
        // A layout remembers what each part wanted until the part says that it changed.
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
    // What does not fit scrolls, so that the buttons stay in the screen.
    const QSize contents = window->sizeHint();
    const QSize room = screen ? screen->availableSize() - QSize(titleBar, 2 * titleBar) : contents;
    window->resize(contents.boundedTo(room));
}
