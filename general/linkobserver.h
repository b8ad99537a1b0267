#pragma once

#include <QObject>
#include <QString>

/**
 * Emits what happens on the links of one dialog: each operation, log line and write of its
 * ControllerLink values, and the work that Waiting marks.
 *
 * A child of the dialog, made before the links. A link whose observer was deleted works without it.
 */
class LinkObserver final : public QObject {
    Q_OBJECT

public:
    explicit LinkObserver(QObject *dialog);
    ~LinkObserver() override;

    /**
     * The observer among the children of `object` or of its nearest ancestor that has one; null
     * when there is none.
     */
    static LinkObserver *of(const QObject *object);

signals:
    /** A query or write has ended, with any result. */
    void operationDone();
    /** The controller accepted a set or an action. */
    void writeAccepted();
    /** A line was written to the message log. */
    void lineLogged(const QString &line);
    /** The link has queried whether the configuration can be changed. */
    void lockRead(bool locked);
    /** Number `done` of `total` things is being read, or was read last. */
    void progressed(int done, int total);

    /** The first Waiting of a piece of work has begun. */
    void workBegun();
    /** The last Waiting of a piece of work has ended. */
    void workEnded();
    /** The text says for what the operator waits; it is empty when the waiting has ended. */
    void waitingFor(const QString &text);
};
