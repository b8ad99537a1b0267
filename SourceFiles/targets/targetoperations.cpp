#include "targets/targetoperations.h"

#include <QTimer>

TargetOperations::TargetOperations(QObject *tab, const ControllerLink &link, Targetlibrary *library)
    : targetlib(library),
      timerDoMea_tl(new QTimer(tab)),
      timerCheckForTracked_tl(new QTimer(tab)),
      m_assignment(link, library),
      m_targets(m_assignment, library, icon_ok),
      m_search(link, timerDoMea_tl, timerCheckForTracked_tl)
{
    timerDoMea_tl->setObjectName(QStringLiteral("timerDoMea_tl"));
    timerCheckForTracked_tl->setObjectName(QStringLiteral("timerCheckForTracked_tl"));
}
