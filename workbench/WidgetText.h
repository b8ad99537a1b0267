#pragma once

#include <QString>

class QModelIndex;
class QWidget;

/** The text that a widget shows, read without knowledge of its dialog. */
namespace WidgetText {

/**
 * "checked" or "unchecked" for a check box, the value of a spin box or progress bar, the current
 * entry of a combo box, the text of a label, editor or button (rich text as plain text).
 */
QString of(const QWidget *widget);
/** The text of a cell; "checked" or "unchecked" for a cell with a check box and no text. */
QString ofItem(const QModelIndex &index);

/** "checked" or "unchecked". */
QString ofCheck(bool checked);
/** A title or caption without the "&" before its access key. */
QString withoutMnemonic(QString text);

} // namespace WidgetText
