#include "WidgetFinder.h"

#include "Suggestion.h"

#include <QApplication>
#include <QMessageBox>
#include <QWidget>
#include <QWindow>

namespace {

QWindow *parentOf(const QWindow *window)
{
    return window->parent() ? window->parent() : window->transientParent();
}

bool isInChain(const QWindow *start, const QWindow *wanted)
{
    for (const QWindow *window = start; window; window = parentOf(window)) {
        if (window == wanted)
            return true;
    }
    return false;
}

QStringList visibleNames()
{
    QStringList names;
    const QWidgetList all = QApplication::allWidgets();
    for (const QWidget *widget : all) {
        if (widget->isVisible() && !widget->objectName().isEmpty())
            names << widget->objectName();
    }
    // The order of the widgets is not defined.
    names.sort();
    return names;
}

} // namespace

QWidget *WidgetFinder::modalWindow()
{
    return QApplication::activeModalWidget();
}

QString WidgetFinder::describe(const QWidget *window)
{
    if (!window)
        return QStringLiteral("no window");
    const auto *box = qobject_cast<const QMessageBox *>(window);
    const QString title = window->windowTitle().isEmpty()
                                  ? QString::fromLatin1(window->metaObject()->className())
                                  : window->windowTitle();
    return box ? QStringLiteral("the box \"%1: %2\"").arg(title, box->text())
               : QStringLiteral("the window \"%1\"").arg(title);
}

bool WidgetFinder::isBlocked(const QWidget *widget)
{
    const QWidget *modal = modalWindow();
    const QWidget *top = widget->window();
    if (!modal || modal == top || QApplication::activePopupWidget() == top)
        return false;
    const QWindow *modalHandle = modal->windowHandle();
    const QWindow *handle = top->windowHandle();
    if (!modalHandle || !handle || isInChain(handle, modalHandle))
        return false;
    if (modal->windowModality() == Qt::ApplicationModal)
        return true;
    // A window-modal dialog blocks its ancestors and all that belong to one of them.
    for (const QWindow *blocked = parentOf(modalHandle); blocked; blocked = parentOf(blocked)) {
        if (isInChain(handle, blocked))
            return true;
    }
    return false;
}

QWidget *WidgetFinder::visible(const QString &objectName, QString *problem)
{
    const QWidget *modal = modalWindow();
    QWidget *found = nullptr;
    bool isHidden = false;
    const QWidgetList all = QApplication::allWidgets();
    for (QWidget *widget : all) {
        if (widget->objectName() != objectName)
            continue;
        isHidden = isHidden || !widget->isVisible();
        if (widget->isVisible() && (!found || (modal && modal->isAncestorOf(widget))))
            found = widget;
    }
    if (!found) {
        *problem = QStringLiteral("expected a visible widget \"%1\", found %2 in %3")
                           .arg(objectName,
                                isHidden ? QStringLiteral("it hidden") : QStringLiteral("none"),
                                describe(modal ? modal : QApplication::activeWindow()));
        if (!isHidden)
            *problem += Suggestion::forWord(objectName, visibleNames());
    }
    return found;
}

QWidget *WidgetFinder::usable(const QString &objectName, QString *problem)
{
    QWidget *widget = visible(objectName, problem);
    if (!widget)
        return nullptr;
    if (isBlocked(widget)) {
        *problem = QStringLiteral("expected \"%1\" to take input, found it blocked by %2")
                           .arg(objectName, describe(modalWindow()));
        return nullptr;
    }
    if (!widget->isEnabled()) {
        *problem = QStringLiteral("expected \"%1\" enabled, found it disabled").arg(objectName);
        return nullptr;
    }
    return widget;
}
