#pragma once

#include <QString>
#include <QtGlobal>

class MainWindow;
class TimerHold;
class WorkbenchSession;

/** What the lines of a script act on. The objects belong to whoever runs the script. */
struct ScriptContext {
    WorkbenchSession *session = nullptr;
    MainWindow *window = nullptr;
    TimerHold *timers = nullptr;
    QString pictureDir;          ///< screenshots are written here; empty: into the current folder
    qint64 transcriptMark = 0;   ///< expectations look at the operations from this one on
    int logMark = 0;             ///< expectations look at the message log from here on
    qint64 timeMarkMs = 0;       ///< virtual time at the mark
    int linesStarted = 0;        ///< a line sees from it whether later ones ran while it waited
    qint64 operationsAtLine = 0; ///< operations before the line that runs
    bool comparesDialogs =
            false; ///< after each line the open dialog must agree with the controller
    bool checksSoundness = false; ///< after each line its operations and the state must be sound
};
