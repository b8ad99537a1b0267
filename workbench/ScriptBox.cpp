#include "ScriptBox.h"

#include <QMessageBox>
#include <QRegularExpression>

QString ScriptBox::textOf(const QMessageBox *box)
{
    return box->informativeText().isEmpty()
                   ? box->text()
                   : box->text() + QLatin1Char('\n') + box->informativeText();
}

bool ScriptBox::matches(const QString &text, const QString &pattern)
{
    const QRegularExpression expression(QRegularExpression::anchoredPattern(pattern),
                                        QRegularExpression::DotMatchesEverythingOption);
    return text == pattern || expression.match(text).hasMatch();
}

bool ScriptBox::matches(const QMessageBox *box, const QStringList &words)
{
    constexpr int count = 4;
    return words.size() == count && words.first() == QLatin1String("answer")
           && matches(box->windowTitle(), words.at(1)) && matches(textOf(box), words.at(2));
}
