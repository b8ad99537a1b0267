#pragma once

#include <QString>

/** One-based body number with at least two digits, as messages and requests show it. */
inline QString bodyNumber(int index)
{
    return QStringLiteral("%1").arg(index + 1, 2, 10, QLatin1Char('0'));
}
