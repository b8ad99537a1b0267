#pragma once

class QWidget;

/** The size that a window opens with. */
namespace WindowSize {

/**
 * Makes a window as large as its contents ask for, as filled now, but no larger than the screen of
 * the window it belongs to. A size that the user has chosen stays.
 *
 * @param parent the window's parent; the window's own screen counts where it has none
 */
void fitToContents(QWidget *window, const QWidget *parent);

} // namespace WindowSize
