#pragma once

#include "administrationfixture.h"

#include <QStringList>

#include <functional>

/** Every dialog of the module and every page of the body administration, to be looked at in turn.
 */
class EveryPlace : public AdministrationFixture {
protected:
    /** Adds the column "place" and a row for each. */
    static void addPlaces();
    /** One row for each place and language, with the columns "place" and "language". */
    static void addPlacesAndLanguages();

    /** Opens the place over the controller "full" and hands over its window and, in the body
     * administration, the page shown; elsewhere the page is the window. */
    void openPlace(const QString &place,
                   const std::function<void(QWidget *window, QWidget *page)> &look);

    /** The visible widgets that an operator acts on, in `page` and in the window beside pages. */
    static QList<QWidget *> interactive(QWidget *window, QWidget *page);
    /** Every visible widget there. */
    static QList<QWidget *> visible(QWidget *window, QWidget *page);
    /** A name for messages: object name, or class and place. */
    static QString described(const QWidget *widget);
};
