#pragma once

#include <QString>

/** The type of the standard bodies, as commands spell it. */
inline const QString standard = QStringLiteral("standard");
