#include "wheelguard.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>

void WheelGuard::protect(QWidget *root)
{
    auto *guard = new WheelGuard(root);
    const auto lists = root->findChildren<QComboBox *>();
    for (QComboBox *list : lists)
        guard->watch(list);
    const auto numbers = root->findChildren<QAbstractSpinBox *>();
    for (QAbstractSpinBox *number : numbers)
        guard->watch(number);
}

WheelGuard::WheelGuard(QWidget *root) : QObject(root) {}

void WheelGuard::watch(QWidget *box)
{
    // With its own focus policy the box would get the focus from the wheel before the guard sees
    // it.
    if (box->focusPolicy() == Qt::WheelFocus)
        box->setFocusPolicy(Qt::StrongFocus);
    box->installEventFilter(this);
}

bool WheelGuard::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget *>(watched)->hasFocus())
        return false;
    event->ignore();
    return true;
}
