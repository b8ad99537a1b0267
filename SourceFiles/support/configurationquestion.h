#pragma once

class ConfigurationWatch;
class QWidget;

/**
 * True when `dialog` may write what it shows: no other configuration became active since it was
 * read, or the user wants to write anyway. False, too, when the dialog was deleted meanwhile.
 */
bool mayStillWrite(const ConfigurationWatch *watch, QWidget *dialog);
