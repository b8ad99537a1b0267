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
    QString pictureDir;     ///< screenshots are written here; empty: into the current folder
    int transcriptMark = 0; ///< expectations look at the transcript from here on
    int logMark = 0;        ///< expectations look at the message log from here on
    qint64 timeMarkMs = 0;  ///< virtual time at the mark
    int linesStarted = 0;   ///< a line sees from it whether later ones ran while it waited
    bool comparesDialogs =
            false; ///< after each line the open dialog must agree with the controller
};
