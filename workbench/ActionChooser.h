#pragma once

#include <QRandomGenerator>
#include <QStringList>
#include <QVector>

class QAbstractItemView;
class QMessageBox;
class QWidget;
class WorkbenchSession;

/**
 * Chooses at random an action that is possible now, as the words of a script's line. The action
 * uses a widget that is shown, or does what another client, the host or a bad link could do
 * meanwhile. The same seed and the same windows give the same lines.
 */
class ActionChooser {
public:
    ActionChooser(WorkbenchSession *session, quint32 seed);

    /** The next lines: the chosen action, preceded by the switch of the oracle that it needs. */
    QVector<QStringList> choose();

private:
    QVector<QStringList> withoutOracle(const QStringList &line);
    QStringList atBox(const QMessageBox *box);
    QStringList inDialog(const QWidget *dialog);
    QStringList on(QWidget *widget);
    QStringList onTable(const QAbstractItemView *view);
    QStringList onNumber(const QWidget *box);
    QStringList openSomething();
    /** An action that happens outside the dialogs. */
    QStringList elsewhere();
    QStringList bySecondClient();
    QStringList byHost();
    QStringList byLink();

    int below(int bound) { return int(m_random.bounded(qMax(1, bound))); }
    QString pick(const QStringList &from) { return from.at(below(from.size())); }

    WorkbenchSession *m_session;
    QRandomGenerator m_random;
    bool m_comparing = false; ///< true when the lines so far have switched the oracle on
};
