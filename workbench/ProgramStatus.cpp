#include "ProgramStatus.h"

#include <QTextStream>

int ProgramStatus::complain(const QString &text)
{
    QTextStream(stderr) << "workbench: " << text << '\n';
    return unusable;
}
