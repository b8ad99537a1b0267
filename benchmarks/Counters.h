#pragma once

#include <QObject>
#include <QProxyStyle>
#include <QWidget>

/**
 * Counts the size hints for which item views ask the style. The application owns it, as its style.
 */
class CountingStyle : public QProxyStyle {
    Q_OBJECT

public:
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;

    mutable int itemSizeHints = 0;
};

/** Counts the paint events of a window's widgets, except the viewports of its tables. */
class PaintCounter : public QObject {
    Q_OBJECT

public:
    explicit PaintCounter(QWidget *window);

    int outsideTables = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
