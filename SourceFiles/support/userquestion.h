#pragma once

#include <QString>

class QWidget;

/**
 * Message boxes that survive the deletion of their parent while they are open. Titles and texts are
 * already translated.
 */
namespace UserQuestion {

enum class Answer {
    Accepted, ///< Yes or OK
    Declined, ///< anything else
    Gone      ///< the parent was deleted meanwhile: touch nothing of it
};

/**
 * A warning with Yes and No, No preset. `subject` names what the question is about: it is shown
 * above the informative text, or in its place where there is none.
 */
Answer yesNo(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText = QString(), const QString &subject = QString());
/** A warning with OK and Cancel, Cancel preset. */
Answer okCancel(QWidget *parent, const QString &title, const QString &text,
                const QString &informativeText = QString());
/** A warning with OK. False when the parent was deleted meanwhile. */
bool warning(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText = QString());
/** An information with OK. False when the parent was deleted meanwhile. */
bool information(QWidget *parent, const QString &title, const QString &text);

} // namespace UserQuestion
