#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

/** Facts about keys and values that Qt's JSON classes do not give. */
namespace JsonKeys {

/**
 * Path of the first key that occurs twice in an object of the text, such as "state.bodyTypes";
 * empty when there is none. The text has to be valid JSON.
 */
QString firstDuplicate(const QByteArray &json);

/** A value as a file spells it, on one line; "null" for an undefined value. */
QString spelled(const QJsonValue &value);

} // namespace JsonKeys
