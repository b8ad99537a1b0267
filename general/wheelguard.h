#pragma once

#include <QObject>

class QWidget;

/**
 * Keeps the wheel from changing a combo box or a spin box that has no keyboard focus: turned above
 * one by chance, it would change, and often send, a value that the operator did not choose.
 *
 * Owned by the widget it guards. The wheel goes on to whatever scrolls around the box.
 */
class WheelGuard : public QObject {
public:
    /** Guards every combo box and spin box that `root` has by now. */
    static void protect(QWidget *root);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    explicit WheelGuard(QWidget *root);
    void watch(QWidget *box);
};
