#pragma once

#include "bodies/adminbody.h"

#include <QString>
#include <QVector>

#include <optional>

class QComboBox;
class QSpinBox;
class QTableWidget;

/** One registered body type: its bodies, and the widgets of the tab's form that show them. */
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
    bool isLimitRead = false; ///< true when the limit came from the controller
    bool isCountRead = false; ///< true when the controller gave the number of bodies or accepted it
    bool isDescriptionMissing = false; ///< true when the query for the description failed
    /// true when the query for the availability of the 6DOF filter failed
    bool isFilterMissing = false;

    /** True when the type has a body with that zero-based index. */
    bool isValidIndex(int index) const { return index >= 0 && index < bodies.size(); }
    /** Ignores an index that is out of range. */
    void setBodyIsReference(int index, bool reference)
    {
        if (isValidIndex(index))
            bodies[index].isReference = reference;
    }
    /** False when the index is out of range. */
    bool getBodyIsReference(int index) const
    {
        return isValidIndex(index) && bodies.at(index).isReference;
    }
    /** Zero-based column of that kind; -1 when the table has none. */
    int columnOf(COLUMN_TYPE kind) const { return tableWidgetColumns.indexOf(kind); }
};
