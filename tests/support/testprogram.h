#pragma once

#include <memory>

class QCoreApplication;

/**
 * A test program has several test classes and runs the one in its first argument: the name of the
 * source file without its suffix.
 */
namespace TestProgram {

using Run = int (*)(int argc, char **argv);

/** Whether the test class of a source needs windows, which are drawn on the offscreen platform. */
enum class Needs { Windows, NoWindows };

/** Registers a test class with its program; a global object in the source of the class. */
class Registration {
public:
    Registration(const char *sourceFile, Needs needs, Run run);
};

/**
 * Runs the named class with the remaining arguments; prints the usage when there is no such class.
 */
int run(int argc, char **argv);

} // namespace TestProgram

#define TRACKING_TEST_REGISTRATION(Class, needs)                                                   \
    static const TestProgram::Registration registrationOf##Class(                                  \
            __FILE__, TestProgram::Needs::needs, [](int argc, char **argv) {                       \
                Class test;                                                                        \
                return QTest::qExec(&test, argc, argv);                                            \
            });

/** Registers the test class at the end of a source; it runs with a QApplication. */
#define TRACKING_TEST_MAIN(Class) TRACKING_TEST_REGISTRATION(Class, Windows)
/** Registers the test class at the end of a source; it runs with a QCoreApplication. */
#define TRACKING_TEST_GUILESS_MAIN(Class) TRACKING_TEST_REGISTRATION(Class, NoWindows)
