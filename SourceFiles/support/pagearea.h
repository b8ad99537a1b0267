#pragma once

#include <QScrollArea>

/** Scrolls a page where the window has no room for it; wants all the room that the page wants. */
class PageArea final : public QScrollArea {
    Q_OBJECT

public:
    explicit PageArea(QWidget *parent = nullptr);
    ~PageArea() override;

    QSize sizeHint() const override;
};
