#pragma once

#include <QObject>

class IOManager;

/**
 * Lets a dialog know that another configuration became active at its host's controller.
 *
 * The message reaches the module at one place only, which announces it here; every watch with the
 * same IOManager hears of it, whichever dialog owns it. Owned by its dialog.
 */
class ConfigurationWatch : public QObject {
    Q_OBJECT

public:
    ConfigurationWatch(IOManager *iom, QObject *parent);
    ~ConfigurationWatch() override;

    /** Another configuration became active at the controller behind `iom`. */
    static void announce(IOManager *iom);

    /** True when that happened since the construction or the last restart(). */
    bool hasChanged() const { return m_changed; }
    /** From now on hasChanged() is false until the next change. */
    void restart() { m_changed = false; }

signals:
    void changed();

private:
    IOManager *m_iom;
    bool m_changed = false;
};
