#pragma once

#include <QString>
#include <QStringList>

class QMessageBox;

/** How scripts refer to a message box and its buttons. */
namespace ScriptBox {

/** The text with the informative text on a line of its own. */
QString textOf(const QMessageBox *box);
/** True when title or text equals the pattern, or matches it completely as a regular expression. */
bool matches(const QString &text, const QString &pattern);
/** True when the words of a line are an answer to this box. */
bool matches(const QMessageBox *box, const QStringList &words);

} // namespace ScriptBox
