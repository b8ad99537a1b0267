#pragma once

#include <QMainWindow>

class StallMeter;
struct Script;
struct ScriptContext;
class TranscriptDock;
class WorkbenchSession;

/**
 * The window beside the host, with all panels that show or change the simulated controller. It has
 * no parent, so that it can be used while the module runs a modal dialog. Owned by the main window.
 */
class ToolWindow : public QMainWindow {
    Q_OBJECT

public:
    explicit ToolWindow(WorkbenchSession *session);
    ~ToolWindow() override;

    TranscriptDock *transcript() const { return m_transcript; }
    StallMeter *stalls() const { return m_stalls; }

    /** Adds a dock that says what to try and plays the script when its button is pressed. */
    void showDemonstration(const Script &script, const ScriptContext &context);

private:
    TranscriptDock *m_transcript;
    StallMeter *m_stalls;
};
