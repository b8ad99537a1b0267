#pragma once

#include <QString>

class BodyQuestions;
class QWidget;
class TargetListPanel;
class TargetSearchPanel;
class Targetlibrary;

/**
 * Runs a search for library targets, from the press of start to the box that says how many were
 * found, and refreshes the tracked states between searches. Owned by the tab. A host may delete the
 * tab in any of these functions; after that nothing of it is touched.
 */
class SearchFlow {
public:
    /** All parameters outlive the flow. */
    SearchFlow(QWidget *tab, TargetSearchPanel &search, TargetListPanel &targets,
               const BodyQuestions &questions, const Targetlibrary &library)
        : m_tab(tab),
          m_search(search),
          m_targets(targets),
          m_questions(questions),
          m_library(library)
    {
    }

    /** Starts a search if the controller allows one. */
    void start() const;
    /**
     * Stops the search on the operator's request; `found` is the number of targets in the table.
     */
    void stop(int found) const;
    /**
     * Polls a running search once, and stores in `found` how many targets are found. Polls never
     * overlap.
     */
    void poll(int *found);
    /** Refreshes the tracked states while the window is shown; otherwise like poll(). */
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
