#pragma once

#include <QByteArray>
#include <QString>

/** What Qt's JSON reader does not say of an object's keys. */
namespace JsonKeys {

/**
 * Path of the first key that an object of the text has twice, such as "state.bodyTypes"; empty when
 * there is none. The text has to be valid JSON.
 */
QString firstDuplicate(const QByteArray &json);

} // namespace JsonKeys
