#pragma once

class QWidget;

/** The size with which a window opens. */
namespace WindowSize {

/**
 * Makes a window as large as its contents require now, but not larger than the screen of its
 * parent. Keeps a size that the user has chosen.
 *
 * @param parent the window's parent; when it is null, the window's own screen counts
 */
void fitToContents(QWidget *window, const QWidget *parent);

} // namespace WindowSize
