#pragma once

class ConfigurationWatch;
class QWidget;

/**
 * True when `dialog` may write what it shows: no other configuration has become active since the
 * dialog was read, or the user wants to write anyway. False when the user declines or the dialog
 * was deleted meanwhile.
 */
bool mayStillWrite(const ConfigurationWatch *watch, QWidget *dialog);
