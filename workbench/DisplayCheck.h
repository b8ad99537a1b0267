#pragma once

/**
 * Finds out before any window exists whether there is a display, because Qt would abort without
 * one.
 */
namespace DisplayCheck {

/** True when a platform was chosen or a display server answers. */
bool isReachable();

} // namespace DisplayCheck
