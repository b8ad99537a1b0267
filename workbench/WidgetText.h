#pragma once

#include <QString>

class QModelIndex;
class QWidget;

/** What a widget shows, read without knowing the dialog it belongs to. */
namespace WidgetText {

/**
 * A check box's "checked" or "unchecked", the value of a spin box or progress bar, the current
 * entry of a combo box, the text of a label, editor or button (rich text as plain text).
 */
QString of(const QWidget *widget);
/** A cell's text; for a cell with a check box and no text "checked" or "unchecked". */
QString ofItem(const QModelIndex &index);

/** "checked" or "unchecked". */
QString ofCheck(bool checked);
/** A title or caption without the "&" that marks its key. */
QString withoutMnemonic(QString text);

} // namespace WidgetText
