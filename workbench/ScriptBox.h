#pragma once

#include <QString>
#include <QStringList>

class QMessageBox;

/** How scripts name a message box and its buttons. */
namespace ScriptBox {

/** The text with the informative text on a line of its own. */
QString textOf(const QMessageBox *box);
/** Title or text is exactly this, or the whole of it matches the regular expression. */
bool matches(const QString &text, const QString &pattern);
/** The words of a line are an answer to this box. */
bool matches(const QMessageBox *box, const QStringList &words);

} // namespace ScriptBox
