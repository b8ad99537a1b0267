#pragma once

#include "BackendVersions.h"

#include <QMetaType>

Q_DECLARE_METATYPE(VersionInfo)
