#pragma once

#include <QtCore/QString>

/// Version numbers of the settings module; the project's version in CMakeLists.txt follows them.
constexpr int moduleVersionMajor = 3;
constexpr int moduleVersionMinor = 0;
constexpr int moduleVersionPatch = 6;

/// Version text as the windows show it: "v" and three numbers, for example "v3.0.6".
inline QString moduleVersion()
{
    return QStringLiteral("v%1.%2.%3")
            .arg(moduleVersionMajor)
            .arg(moduleVersionMinor)
            .arg(moduleVersionPatch);
}
