#pragma once

#include <QScrollArea>

/** Scrolls a page where the window has no room for it. Its size hint is that of the page. */
class PageArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);
    ~PageArea() override;

    QSize sizeHint() const override;
};
