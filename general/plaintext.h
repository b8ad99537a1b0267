#pragma once

#include <QString>
#include <QTextDocument>

/** Texts that users and other programs choose, shown as plain text. */
namespace PlainText {

/** A tool tip that shows `text` unchanged, even when it looks like markup. */
inline QString toolTip(const QString &text)
{
    if (!Qt::mightBeRichText(text))
        return text;
    return QStringLiteral("<span>%1</span>")
            .arg(text.toHtmlEscaped().replace(QLatin1Char('\n'), QLatin1String("<br>")));
}

} // namespace PlainText
