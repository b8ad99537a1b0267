#pragma once

#include <QString>

/** The body types in the words that commands use. */
namespace BodyTypeWords {

inline const QString standardWord = QStringLiteral("standard");
inline const QString joywandWord = QStringLiteral("joywand");
inline const QString headWord = QStringLiteral("multiuserjoywand_head");
inline const QString handWord = QStringLiteral("fingertracking");
inline const QString toolWord = QStringLiteral("measurementtool");
inline const QString referenceWord = QStringLiteral("measurementtool_reference");

} // namespace BodyTypeWords
