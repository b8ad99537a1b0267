#include "support/filterdialogrun.h"

#include "filterdialog.h"

#include <QPointer>

bool runFilterDialog(QWidget *parent, IOManager *iom, BackendVersions *versions, int bodyType,
                     int bodyIndex)
{
    const QPointer<QWidget> guard(parent);
    const QPointer<FilterDialog> dialog = new FilterDialog(iom, parent, versions);
    dialog->update_and_exec(bodyType, bodyIndex);
    delete dialog;
    return guard;
}
