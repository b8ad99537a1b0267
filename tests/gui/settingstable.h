#pragma once

#include "drive.h"

#include <QTableWidget>

/** The table of a dialog that shows one: the body settings or the fixed angles. */
inline QTableWidget *tableOf(QWidget *dialog)
{
    return Drive::find<QTableWidget>(dialog, "tableWidget");
}
