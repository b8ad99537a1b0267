#pragma once

#include "bodies/adminbody.h"

#include <QString>
#include <QVector>

#include <optional>

class QComboBox;
class QSpinBox;
class QTableWidget;

/** One registered body type: its bodies and the widgets, owned by the tab's form, that show them.
 */
struct AdminBodyType {
    QVector<AdminBody> bodies; ///< one record per body slot of the controller
    QSpinBox *spinBox = nullptr;
    QComboBox *comboBox = nullptr;
    QTableWidget *tableWidget = nullptr;
    QTableWidget *tableWidget_tl = nullptr;
    bool tableWidgetColumnNameStartEdit = false; ///< the user began to edit a name
    QString tableWidgetColumnIdFormat;           ///< text of the id column, "%1" is the number
    QVector<COLUMN_TYPE> tableWidgetColumns;
    QString typedesc; ///< the controller's description of the type
    bool filter6dAvailable = false;
    int numInertialSensors = 0; ///< bodies of the type that carry an inertial sensor

    std::optional<int> limit; ///< largest number of bodies: the controller's, or a default
    bool isLimitRead = false; ///< the limit is the controller's
    bool isCountRead = false; ///< the number of bodies is the controller's, or one it accepted
    bool isDescriptionMissing = false; ///< the description was asked and could not be read
    bool isFilterMissing = false;      ///< so was the availability of the 6DOF filter

    /** True when there is a body of that zero-based index. */
    bool isValidIndex(int index) const { return index >= 0 && index < bodies.size(); }
    /** Out-of-range indexes are ignored. */
    void setBodyIsReference(int index, bool reference)
    {
        if (isValidIndex(index))
            bodies[index].isReference = reference;
    }
    /** False for an out-of-range index. */
    bool getBodyIsReference(int index) const
    {
        return isValidIndex(index) && bodies.at(index).isReference;
    }
    /** Zero-based column of that kind; -1 when the table has none. */
    int columnOf(COLUMN_TYPE kind) const { return tableWidgetColumns.indexOf(kind); }
};
