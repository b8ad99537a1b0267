#pragma once

#include <QByteArray>

/**
 * The readers of the project, each with any bytes as input. A target returns when it has handled
 * the input. A violation ends the process: a finding of a sanitizer, or expect() with false.
 */
namespace FuzzTargets {

using Target = void (*)(const QByteArray &input);

/**
 * Answers to the reader of the target library, one on each line; a line that begins with ! fails.
 */
void library(const QByteArray &input);
/** Answers to the reader of bodies. */
void bodies(const QByteArray &input);
/** Answers to the queries about inertial sensors during a reset. */
void sensors(const QByteArray &input);
/** Answers to the filter dialog. */
void filters(const QByteArray &input);
/** The preferences file of the tracking settings. */
void preferences(const QByteArray &input);
/** The text that is entered as a fixed angle. */
void angles(const QByteArray &input);
/** A scenario file. */
void scenario(const QByteArray &input);
/** A script of the workbench. */
void script(const QByteArray &input);
/** A recorded transcript. */
void recording(const QByteArray &input);
/** Fault rules, one on each line. */
void faultrule(const QByteArray &input);

/** The target with that name; null when there is none. */
Target byName(const QByteArray &name);

/** Ends the process when `isTrue` is false. */
void expect(bool isTrue, const char *what);

} // namespace FuzzTargets
