#include "support/configurationquestion.h"

#include "configurationwatch.h"
#include "support/userquestion.h"

#include <QCoreApplication>
#include <QWidget>

bool mayStillWrite(const ConfigurationWatch *watch, QWidget *dialog)
{
    if (!watch->hasChanged())
        return true;
    const QString question = QCoreApplication::translate(
            "ConfigurationQuestion", "The active configuration has changed. Write anyway?");
    return UserQuestion::yesNo(dialog, dialog->windowTitle(), question)
           == UserQuestion::Answer::Accepted;
}
