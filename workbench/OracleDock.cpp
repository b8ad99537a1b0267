#include "OracleDock.h"

#include "DialogOracle.h"
#include "WidgetFinder.h"
#include "WorkbenchSession.h"
#include "WorkbenchTime.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

OracleDock::OracleDock(WorkbenchSession *session, QWidget *parent)
    : QDockWidget(tr("Differences"), parent),
      m_session(session),
      m_always(new QCheckBox(tr("compare after each &action"))),
      m_differences(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("dock_oracle"));
    m_always->setObjectName(QStringLiteral("checkBox_compareAlways"));
    m_differences->setObjectName(QStringLiteral("plainTextEdit_oracle"));
    m_differences->setReadOnly(true);
    auto *now = new QPushButton(tr("Compare &now"));
    now->setObjectName(QStringLiteral("pushButton_compareNow"));
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    layout->addWidget(now);
    layout->addWidget(m_always, 0, Qt::AlignLeft);
    layout->addWidget(m_differences);
    setWidget(content);
    connect(now, &QPushButton::clicked, this, &OracleDock::compare);
    connect(session->io(), &SimulatedIOManager::recorded, this, [this] {
        if (!m_always->isChecked() || m_isDue)
            return;
        // The dialog shows the outcome of an operation only when its own work is done.
        m_isDue = true;
        QTimer::singleShot(0, this, &OracleDock::compare);
    });
}

void OracleDock::compare()
{
    const WorkbenchTime own;
    m_isDue = false;
    const QWidget *dialog = WidgetFinder::modalWindow();
    const QStringList lines = DialogOracle::differences(m_session->state(), dialog);
    if (!dialog)
        m_differences->setPlainText(tr("no dialog is open"));
    else
        m_differences->setPlainText(lines.isEmpty() ? tr("no difference")
                                                    : lines.join(QLatin1Char('\n')));
}
