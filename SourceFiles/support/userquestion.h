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
    Declined, ///< the user chose any other button, or closed the box
    Gone      ///< the parent was deleted meanwhile, so that nothing of it may be touched
};

/**
 * A warning with Yes and No, with No as the default. `subject` names what the question is about; it
 * is shown above the informative text, or in its place when there is none.
 */
Answer yesNo(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText = QString(), const QString &subject = QString());
/** A warning with OK and Cancel, with Cancel as the default. */
Answer okCancel(QWidget *parent, const QString &title, const QString &text,
                const QString &informativeText = QString());
/** A warning with OK. False when the parent was deleted meanwhile. */
bool warning(QWidget *parent, const QString &title, const QString &text,
             const QString &informativeText = QString());
/** An information with OK. False when the parent was deleted meanwhile. */
bool information(QWidget *parent, const QString &title, const QString &text);

} // namespace UserQuestion
