#pragma once

#include "administrationfixture.h"

#include <QStringList>

#include <functional>

/** Visits every dialog of the module and every page of the body administration. */
class EveryPlace : public AdministrationFixture {
protected:
    /** Adds the column "place" and a row for each place. */
    static void addPlaces();
    /** Adds one row for each place and language, with the columns "place" and "language". */
    static void addPlacesAndLanguages();

    /**
     * Opens the place with the controller "full" and passes on its window and page. In the body
     * administration the page is the one shown; elsewhere it is the window.
     */
    void openPlace(const QString &place,
                   const std::function<void(QWidget *window, QWidget *page)> &look);

    /**
     * The visible widgets that an operator can use, in `page` and in the window outside the pages.
     */
    static QList<QWidget *> interactive(QWidget *window, QWidget *page);
    /** Every visible widget in the same places. */
    static QList<QWidget *> visible(QWidget *window, QWidget *page);
    /** A name for messages: the object name, or class and place. */
    static QString described(const QWidget *widget);
};
