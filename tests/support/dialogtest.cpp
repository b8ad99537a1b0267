#include "dialogtest.h"

#include <clocale>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

QStringList expectedWarnings;
QtMessageHandler previousHandler = nullptr;

/** What the offscreen platform says whatever a program does. */
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

std::unique_ptr<QApplication> makeTestApplication(int &argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
#if defined(__SANITIZE_ADDRESS__)
    // The offscreen platform never gives back the screen that it makes here.
    const __lsan::ScopedDisabler platformOnly;
#endif
    return std::make_unique<QApplication>(argc, argv);
}

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

void DialogTest::expectWarning(const QString &beginning)
{
    expectedWarnings.append(beginning);
}
