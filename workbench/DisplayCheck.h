#pragma once

/** Tells before any window exists whether there is a display, since the toolkit would abort. */
namespace DisplayCheck {

/** A platform was chosen, or a display server answers. */
bool isReachable();

} // namespace DisplayCheck
