#include "dialogtest.h"

#include <clocale>

namespace {

QStringList expectedWarnings;
QtMessageHandler previousHandler = nullptr;

/** True for messages that the offscreen platform writes in every program. */
bool isPlatformNoise(const QString &message)
{
    return message.startsWith(QLatin1String("This plugin does not support"));
}

void handleMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (isPlatformNoise(message))
        return;
    if (type != QtWarningMsg && type != QtCriticalMsg) {
        if (previousHandler)
            previousHandler(type, context, message);
        return;
    }
    for (int i = 0; i < expectedWarnings.size(); ++i) {
        if (message.startsWith(expectedWarnings.at(i))) {
            expectedWarnings.removeAt(i);
            return;
        }
    }
    QTest::qFail(qPrintable(QStringLiteral("unexpected warning: ") + message), __FILE__, __LINE__);
}

} // namespace

DialogTest::DialogTest() = default;
DialogTest::~DialogTest() = default;

void DialogTest::init()
{
    m_home = std::make_unique<QTemporaryDir>();
    qputenv("HOME", m_home->path().toLocal8Bit());
    QLocale::setDefault(QLocale::c());
    std::setlocale(LC_ALL, "C");
    expectedWarnings.clear();
    previousHandler = qInstallMessageHandler(handleMessage);
    m_robot = std::make_unique<DialogRobot>();
}

void DialogTest::cleanup()
{
    m_robot->verify();
    m_robot.reset();
    qInstallMessageHandler(previousHandler);
    for (const QString &warning : qAsConst(expectedWarnings)) {
        QTest::qFail(qPrintable(QStringLiteral("warning never came: ") + warning), __FILE__,
                     __LINE__);
    }
    m_home.reset();
}

QString DialogTest::home() const
{
    return m_home->path();
}

bool DialogTest::isEnabled(QWidget *root, const char *objectName)
{
    return Drive::find<QWidget>(root, objectName)->isEnabled();
}

bool DialogTest::isVisible(QWidget *root, const char *objectName)
{
    return Drive::find<QWidget>(root, objectName)->isVisible();
}

void DialogTest::expectWarning(const QString &beginning)
{
    expectedWarnings.append(beginning);
}
