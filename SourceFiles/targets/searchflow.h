#pragma once

#include <QString>

class BodyQuestions;
class QWidget;
class TargetListPanel;
class TargetSearchPanel;
class Targetlibrary;

/**
 * A search for library targets from the press of start to the box that says how many were found,
 * and the refresh of the tracked states between searches. Owned by the tab, which a host may delete
 * in any of it: then nothing is touched any more.
 */
class SearchFlow {
public:
    /** All outlive the flow. */
    SearchFlow(QWidget *tab, TargetSearchPanel &search, TargetListPanel &targets,
               const BodyQuestions &questions, const Targetlibrary &library)
        : m_tab(tab),
          m_search(search),
          m_targets(targets),
          m_questions(questions),
          m_library(library)
    {
    }

    /** Starts a search if one can start. */
    void start() const;
    /** The operator stops the search; `found` targets are in the table. */
    void stop(int found) const;
    /** One poll of a running search; stores how many targets are found. Never overlaps another. */
    void poll(int *found);
    /** Refreshes the tracked states while the window is shown, as poll() in all else. */
    void refresh(int *found);

private:
    void showTracked(int *found) const;
    void finish(bool ended, int *found) const;

    QWidget *m_tab;
    TargetSearchPanel &m_search;
    TargetListPanel &m_targets;
    const BodyQuestions &m_questions;
    const Targetlibrary &m_library;
    bool m_isBusy = false;
};
