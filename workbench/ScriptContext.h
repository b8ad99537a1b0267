#pragma once

#include <QString>
#include <QtGlobal>

class MainWindow;
class TimerHold;
class WorkbenchSession;

/** The objects that the lines of a script use. They belong to the code that runs the script. */
struct ScriptContext {
    WorkbenchSession *session = nullptr;
    MainWindow *window = nullptr;
    TimerHold *timers = nullptr;
    QString pictureDir;        ///< folder for screenshots; empty: the current folder
    qint64 transcriptMark = 0; ///< expectations look at the operations from this one on
    /// expectations look at the lines of the message log from this one on
    int logMark = 0;
    qint64 timeMarkMs = 0;       ///< virtual time at the mark
    int linesStarted = 0;        ///< shows a waiting line whether later lines ran meanwhile
    qint64 operationsAtLine = 0; ///< number of operations before the present line
    bool comparesDialogs =
            false; ///< after each line the open dialog must agree with the controller
    bool checksSoundness = false; ///< after each line its operations and the state must be sound
};
