#pragma once

#include <QRandomGenerator>
#include <QStringList>
#include <QVector>

class QAbstractItemView;
class QMessageBox;
class QWidget;
class WorkbenchSession;

/**
 * Picks at random something that can be done now, as the words of a script's line: with what is
 * shown, or what another client, the host or a bad link does meanwhile. The same seed and the same
 * windows give the same lines.
 */
class ActionChooser {
public:
    ActionChooser(WorkbenchSession *session, quint32 seed);

    /** The next lines: the chosen one, and before it what it needs of the oracle. */
    QVector<QStringList> choose();

private:
    QVector<QStringList> withoutOracle(const QStringList &line);
    QStringList atBox(const QMessageBox *box);
    QStringList inDialog(const QWidget *dialog);
    QStringList on(QWidget *widget);
    QStringList onTable(const QAbstractItemView *view);
    QStringList onNumber(const QWidget *box);
    QStringList openSomething();
    /** What happens outside of the dialogs. */
    QStringList elsewhere();
    QStringList bySecondClient();
    QStringList byHost();
    QStringList byLink();

    int below(int bound) { return int(m_random.bounded(qMax(1, bound))); }
    QString pick(const QStringList &from) { return from.at(below(from.size())); }

    WorkbenchSession *m_session;
    QRandomGenerator m_random;
    bool m_comparing = false; ///< the lines so far switched the oracle on
};
