#pragma once

#include <QObject>
#include <QString>

/**
 * What happens on the links of one dialog, as signals: each operation, line and write that its
 * ControllerLink values carry out, and the work that Waiting marks.
 *
 * A child of the dialog, made before its links. A link whose observer is gone goes on without it.
 */
class LinkObserver final : public QObject {
    Q_OBJECT

public:
    explicit LinkObserver(QObject *dialog);
    ~LinkObserver() override;

    /** The observer among the children of `object` or of its next ancestor that has one; or null.
     */
    static LinkObserver *of(const QObject *object);

signals:
    /** A query or write came back, whatever its result. */
    void operationDone();
    /** The controller accepted a set or an action. */
    void writeAccepted();
    /** A line went to the message log. */
    void lineLogged(const QString &line);
    /** The link has queried whether the configuration can be changed. */
    void lockRead(bool locked);
    /** Of `total` things, `done` are being or have been read. */
    void progressed(int done, int total);

    /** The first Waiting of a piece of work began. */
    void workBegun();
    /** The last Waiting of a piece of work is over. */
    void workEnded();
    /** The operator waits for what the text says; empty when no longer. */
    void waitingFor(const QString &text);
};
