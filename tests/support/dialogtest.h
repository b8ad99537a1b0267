#pragma once

#include "dialogrobot.h"
#include "drive.h"
#include "testhost.h"

#include <QApplication>
#include <QLocale>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>

/**
 * Base of every test class. Each test function runs with a home folder of its own and the C locale
 * as default; an unexpected message box or Qt warning fails it, and so does an expected box that
 * never came.
 *
 * A subclass that needs init() or cleanup() of its own calls these first and last.
 */
class DialogTest : public QObject {
    Q_OBJECT

public:
    DialogTest();
    ~DialogTest() override;

protected slots:
    void init();
    void cleanup();

protected:
    /** Answers boxes and drives modal dialogs. */
    DialogRobot &robot() { return *m_robot; }
    /** The folder that $HOME names during this test function. */
    QString home() const;
    /** A Qt warning that begins so is expected in this test function. */
    void expectWarning(const QString &beginning);

private:
    std::unique_ptr<DialogRobot> m_robot;
    std::unique_ptr<QTemporaryDir> m_home;
};

/** The application of a test program, on the offscreen platform. */
std::unique_ptr<QApplication> makeTestApplication(int &argc, char **argv);

/** The main() of a test program of one test class. */
#define TRACKING_TEST_MAIN(Class)                                                                  \
    int main(int argc, char **argv)                                                                \
    {                                                                                              \
        const auto application = makeTestApplication(argc, argv);                                  \
        Class test;                                                                                \
        return QTest::qExec(&test, argc, argv);                                                    \
    }
