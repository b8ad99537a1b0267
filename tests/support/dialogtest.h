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
 * The base of every test class. Each test function runs with a home folder of its own and with the
 * C locale as default. An unexpected message box, a Qt warning, or an expected box that does not
 * open fails it.
 *
 * A subclass with its own init() or cleanup() calls this init() first and this cleanup() last.
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
    /** The folder that is $HOME during this test function. */
    QString home() const;
    static bool isEnabled(QWidget *root, const char *objectName);
    static bool isVisible(QWidget *root, const char *objectName);
    /** Expects a Qt warning with this beginning in this test function. */
    void expectWarning(const QString &beginning);

private:
    std::unique_ptr<DialogRobot> m_robot;
    std::unique_ptr<QTemporaryDir> m_home;
};
