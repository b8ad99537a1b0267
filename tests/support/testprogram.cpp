#include "testprogram.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>

#include <cstdio>
#include <map>
#include <string>

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

struct TestClass {
    TestProgram::Needs needs = TestProgram::Needs::Windows;
    TestProgram::Run run = nullptr;
};

std::map<std::string, TestClass> &testClasses()
{
    static std::map<std::string, TestClass> classes;
    return classes;
}

std::unique_ptr<QCoreApplication> makeApplication(TestProgram::Needs needs, int &argc, char **argv)
{
    if (needs == TestProgram::Needs::NoWindows)
        return std::make_unique<QCoreApplication>(argc, argv);
    qputenv("QT_QPA_PLATFORM", "offscreen");
#if defined(__SANITIZE_ADDRESS__)
    // The offscreen platform never frees the screen that it makes here.
    const __lsan::ScopedDisabler platformOnly;
#endif
    return std::make_unique<QApplication>(argc, argv);
}

/** A class that asks no controller anything leaves an empty tally, so that it is known to have run.
 */
void leaveTally()
{
    const QString name = qEnvironmentVariable("TRACKING_COMMAND_TALLY");
    if (!name.isEmpty())
        QFile(name).open(QIODevice::Append);
}

} // namespace

TestProgram::Registration::Registration(const char *sourceFile, Needs needs, Run run)
{
    const QString name = QFileInfo(QString::fromLocal8Bit(sourceFile)).completeBaseName();
    testClasses()[name.toStdString()] = {needs, run};
}

int TestProgram::run(int argc, char **argv)
{
    const auto found = testClasses().find(argc > 1 ? argv[1] : "");
    if (found == testClasses().end()) {
        std::fprintf(stderr, "usage: %s CLASS [options of Qt Test]\nclasses:\n", argv[0]);
        for (const auto &known : testClasses())
            std::fprintf(stderr, "  %s\n", known.first.c_str());
        return 2;
    }
    leaveTally();
    // Qt Test shows the first argument as the name of the program and reads the rest.
    int rest = argc - 1;
    char **arguments = argv + 1;
    const auto application = makeApplication(found->second.needs, rest, arguments);
    return found->second.run(rest, arguments);
}
