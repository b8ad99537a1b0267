#include "targets/searchflow.h"

#include "bodies/bodyquestions.h"
#include "linkobserver.h"
#include "support/steps.h"
#include "targets/targetlistpanel.h"
#include "targets/targetsearchpanel.h"
#include "waiting.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

namespace {

QString waitingText()
{
    return QCoreApplication::translate("BodyTypeAdministrationTab", "Reading targets ...");
}

} // namespace

void SearchFlow::start() const
{
    const QPointer<QWidget> tab(m_tab);
    if (m_search.widgets().category)
        m_targets.selectCategory(TargetTableFiller::foundTargets());
    if (!tab)
        return;
    const bool canStart = m_search.canStart();
    if (!tab || !canStart)
        return;
    m_search.showRunning();
    m_search.applyStartRule();
    m_search.applyDeselectRule();
    m_search.setControlsEnabled(false);
    m_search.start();
}

void SearchFlow::stop(int found) const
{
    runSteps(m_tab,
             {[&] { m_search.cancel(); }, [&] { m_search.showIdle(); },
              [&] { m_questions.showFoundTargets(found); }, [&] { m_search.startTracking(); }});
}

void SearchFlow::poll(int *found)
{
    if (m_isBusy)
        return;
    const Waiting waiting(LinkObserver::of(m_tab), Waiting::For::Refresh, waitingText());
    const QPointer<QWidget> tab(m_tab);
    m_isBusy = true;
    const TargetSearchRun::Step step = m_search.poll();
    if (!tab)
        return;
    if (step == TargetSearchRun::Step::Searching)
        showTracked(found);
    else
        finish(step == TargetSearchRun::Step::Ended, found);
    if (tab)
        m_isBusy = false;
}

void SearchFlow::finish(bool ended, int *found) const
{
    int counted = *found;
    runSteps(m_tab, {[&] { counted = ended ? m_search.countTracked(m_library) : counted; },
                     [&] {
                         *found = counted;
                         if (ended)
                             m_questions.showFoundTargets(counted);
                     },
                     [&] { m_search.showIdle(); }, [&] { m_search.startTracking(); }});
}

void SearchFlow::refresh(int *found)
{
    // The list is not visible while another module has the screen.
    if (m_isBusy || !m_tab->window()->isVisible())
        return;
    const Waiting waiting(LinkObserver::of(m_tab), Waiting::For::Refresh, waitingText());
    const QPointer<QWidget> tab(m_tab);
    m_isBusy = true;
    showTracked(found);
    if (tab)
        m_isBusy = false;
}

void SearchFlow::showTracked(int *found) const
{
    const TabWidgets &widgets = m_search.widgets();
    const bool listsFound = m_targets.showsFoundTargets();
    int tracked = 0;
    int alreadyUsed = 0;
    runSteps(m_tab,
             {[&] {
                  if (listsFound)
                      m_targets.refreshTracked(widgets.type);
              },
              [&] {
                  if (listsFound) {
                      m_targets.listAgain(widgets.targetTable, widgets.type,
                                          TargetTableFiller::foundTargets());
                  }
              },
              [&] { m_targets.refreshTrackedRows(widgets.targetTable, &tracked, &alreadyUsed); },
              [&] {
                  *found = tracked;
                  m_search.showCounts(tracked, alreadyUsed);
              }});
}
