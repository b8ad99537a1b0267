#include "ScenarioRules.h"

#include "BackendVersions.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr int longestTextBytes = 180;

bool isAny(const QString &)
{
    return true;
}

bool isUnquoted(const QString &text)
{
    const auto isForbidden = [](QChar c) { return c == QLatin1Char('"') || c < QLatin1Char(' '); };
    return text.toUtf8().size() <= longestTextBytes
           && std::none_of(text.cbegin(), text.cend(), isForbidden);
}

bool isWord(const QString &text)
{
    return !text.isEmpty() && isUnquoted(text) && !text.contains(QLatin1Char(' '))
           && !text.contains(QLatin1Char('\''));
}

bool isWordOrNothing(const QString &text)
{
    return text.isEmpty() || isWord(text);
}

bool isSensorName(const QString &text)
{
    const QStringList words = text.split(QLatin1Char(' '));
    const QLatin1Char quote('\'');
    return words.size() == 3 && isWord(words.at(0)) && isWord(words.at(1)) && words.at(2).size() > 2
           && words.at(2).startsWith(quote) && words.at(2).endsWith(quote)
           && isWord(words.at(2).mid(1, words.at(2).size() - 2));
}

bool isVersion(const QString &text)
{
    bool ok = false;
    VersionInfo().fromString(text, &ok);
    return ok;
}

} // namespace

namespace ScenarioRules {

TextRule anyText()
{
    return {isAny, "a text"};
}

TextRule unquotedText()
{
    return {isUnquoted, "one line of at most 180 bytes without double quotes"};
}

TextRule word()
{
    return {isWord, "a word without blanks and quotes"};
}

TextRule wordOrNothing()
{
    return {isWordOrNothing, "a word without blanks and quotes, or an empty text"};
}

TextRule sensorName()
{
    return {isSensorName, "a sensor's vendor, model and 'device id'"};
}

TextRule version()
{
    return {isVersion, "a version such as \"1.24\" or \"3.1.0\""};
}

} // namespace ScenarioRules
