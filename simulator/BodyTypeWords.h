#pragma once

#include <QString>

/** The body types in the words that commands use. */
namespace BodyTypeWords {

/** Standard bodies. */
inline const QString standardWord = QStringLiteral("standard");
/** Joywand devices. */
inline const QString joywandWord = QStringLiteral("joywand");
/** Head targets of several users. */
inline const QString headWord = QStringLiteral("multiuserjoywand_head");
/** Tracked hands. */
inline const QString handWord = QStringLiteral("fingertracking");
/** Measurement tools. */
inline const QString toolWord = QStringLiteral("measurementtool");
/** References of measurement tools. */
inline const QString referenceWord = QStringLiteral("measurementtool_reference");

} // namespace BodyTypeWords
