#include "MessageLogDock.h"

#include "SimulatedIOManager.h"

#include <QPlainTextEdit>

namespace {

const char logChannel[] = "standard";
constexpr int maximumLines = 5000;

} // namespace

MessageLogDock::MessageLogDock(SimulatedIOManager *io, QWidget *parent)
    : QDockWidget(tr("Message log"), parent), m_io(io), m_view(new QPlainTextEdit)
{
    setObjectName(QStringLiteral("dock_messageLog"));
    m_view->setObjectName(QStringLiteral("plainTextEdit_messageLog"));
    m_view->setReadOnly(true);
    m_view->setMaximumBlockCount(maximumLines);
    setWidget(m_view);
    m_io->register_receiver(logChannel, this);
}

MessageLogDock::~MessageLogDock()
{
    m_io->unregister_receiver(logChannel, this);
}

void MessageLogDock::clear()
{
    m_lines.clear();
    m_view->clear();
}

int MessageLogDock::transmit_message(int, const char *sender, const char *text)
{
    const QString line = QString::fromUtf8(text);
    m_lines << line;
    m_view->appendPlainText(QStringLiteral("%1 %2: %3")
                                    .arg(m_io->virtualTime() / 1000.0, 9, 'f', 3)
                                    .arg(QString::fromUtf8(sender), line));
    return 0;
}
