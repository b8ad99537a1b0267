#pragma once

#include <memory>

class QCoreApplication;

/**
 * A test program holds several test classes and runs the one that its first argument names: the
 * name of its source file without the suffix.
 */
namespace TestProgram {

using Run = int (*)(int argc, char **argv);

/** Whether the classes of a source need windows; what they draw on is the offscreen platform. */
enum class Needs { Windows, NoWindows };

/** Makes a test class known to its program; an object of file scope in the class's source. */
class Registration {
public:
    Registration(const char *sourceFile, Needs needs, Run run);
};

/** Runs the named class with the arguments that follow; explains itself when there is none. */
int run(int argc, char **argv);

} // namespace TestProgram

#define TRACKING_TEST_REGISTRATION(Class, needs)                                                   \
    static const TestProgram::Registration registrationOf##Class(                                  \
            __FILE__, TestProgram::Needs::needs, [](int argc, char **argv) {                       \
                Class test;                                                                        \
                return QTest::qExec(&test, argc, argv);                                            \
            });

/** At the end of a source: its test class, run with a QApplication. */
#define TRACKING_TEST_MAIN(Class) TRACKING_TEST_REGISTRATION(Class, Windows)
/** At the end of a source: its test class, run with a QCoreApplication. */
#define TRACKING_TEST_GUILESS_MAIN(Class) TRACKING_TEST_REGISTRATION(Class, NoWindows)
