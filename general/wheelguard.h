#pragma once

#include <QObject>

class QWidget;

/**
 * Keeps the mouse wheel from changing a combo box or a spin box that has no keyboard focus. A wheel
 * that is turned above such a box by chance would change, and often send, a value that the operator
 * did not choose.
 *
 * Owned by the widget that it guards. The wheel event goes on to the area that scrolls around the
 * box.
 */
class WheelGuard : public QObject {
public:
    /** Guards every combo box and spin box that `root` has at the time of the call. */
    static void protect(QWidget *root);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WheelGuard(QWidget *root);
    void watch(QWidget *box);
};
