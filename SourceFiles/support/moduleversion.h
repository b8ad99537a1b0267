#pragma once

#include "projectversion.h"

#include <QtCore/QString>

/// Version numbers of the settings module: those of the project in CMakeLists.txt.
constexpr int moduleVersionMajor = TRACKING_VERSION_MAJOR;
constexpr int moduleVersionMinor = TRACKING_VERSION_MINOR;
constexpr int moduleVersionPatch = TRACKING_VERSION_PATCH;

/// Version text as the dialogs show it: "v" and three numbers, for example "v3.0.6".
inline QString moduleVersion()
{
    return QStringLiteral("v%1.%2.%3")
            .arg(moduleVersionMajor)
            .arg(moduleVersionMinor)
            .arg(moduleVersionPatch);
}
