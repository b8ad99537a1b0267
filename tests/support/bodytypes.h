#pragma once

#include <QString>

/** The type of the standard bodies in the word that commands use. */
inline const QString standard = QStringLiteral("standard");
