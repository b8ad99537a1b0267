#include "ModuleRequest.h"

#include <QRegularExpression>

ModuleRequest ModuleRequest::parse(const QString &text, const QString &verb)
{
    static const QRegularExpression numbered(QStringLiteral("^(\\w+) b(\\d{2,})$"));
    static const QRegularExpression separated(QStringLiteral("^(\\w+)\\|(\\d+)\\|(.*)$"));

    ModuleRequest request;
    if (!text.startsWith(verb + QLatin1Char(' ')))
        return request;
    const QString rest = text.mid(verb.size() + 1);
    QRegularExpressionMatch match = numbered.match(rest);
    if (!match.hasMatch())
        match = separated.match(rest);
    if (!match.hasMatch())
        return request;
    request.bodyType = match.captured(1);
    request.bodyNumber = match.captured(2).toInt();
    request.status = match.captured(3);
    return request;
}
