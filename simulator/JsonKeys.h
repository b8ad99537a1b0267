#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

/** What Qt's JSON classes do not say of keys and values. */
namespace JsonKeys {

/**
 * Path of the first key that an object of the text has twice, such as "state.bodyTypes"; empty when
 * there is none. The text has to be valid JSON.
 */
QString firstDuplicate(const QByteArray &json);

/** A value as a file spells it, in one line; of an undefined one, "null". */
QString spelled(const QJsonValue &value);

} // namespace JsonKeys
