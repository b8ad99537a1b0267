#pragma once

#include <QObject>

class IOManager;

/**
 * Reports to a dialog that another configuration has become active at its host's controller.
 *
 * Only one object of the module receives the host's message, and it calls announce(). Every watch
 * with the same IOManager then emits changed(). Owned by its dialog.
 */
class ConfigurationWatch : public QObject {
    Q_OBJECT

public:
    ConfigurationWatch(IOManager *iom, QObject *parent);
    ~ConfigurationWatch() override;

    /** Called when another configuration has become active at the controller behind `iom`. */
    static void announce(IOManager *iom);

    /** True when the configuration has changed since the construction or the last restart(). */
    bool hasChanged() const { return m_changed; }
    /** Resets hasChanged() to false until the next change. */
    void restart() { m_changed = false; }

signals:
    void changed();

private:
    IOManager *m_iom;
    bool m_changed = false;
};
