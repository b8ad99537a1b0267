#pragma once

#include "dialogrobot.h"
#include "drive.h"
#include "testhost.h"
#include "testprogram.h"

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
    static bool isEnabled(QWidget *root, const char *objectName);
    static bool isVisible(QWidget *root, const char *objectName);
    /** A Qt warning that begins so is expected in this test function. */
    void expectWarning(const QString &beginning);

private:
    std::unique_ptr<DialogRobot> m_robot;
    std::unique_ptr<QTemporaryDir> m_home;
};
