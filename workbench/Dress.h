#pragma once

#include <QString>

#include <memory>
#include <vector>

class QTranslator;

/**
 * The language and the colours in which a script shows the module. The destructor restores the
 * previous ones.
 */
class Dress {
public:
    Dress();
    ~Dress();
    Dress(const Dress &) = delete;
    Dress &operator=(const Dress &) = delete;

    /** Shows everything in dark colours. */
    void darken();
    /**
     * Installs the translation beside the plug-in, and Qt's own translation where it is installed.
     *
     * @param language for example "de"
     * @return false with *error naming the file that cannot be read
     */
    bool translate(const QString &language, const QString &pluginFile, QString *error);

private:
    std::vector<std::unique_ptr<QTranslator>> m_translators;
    bool m_isDark = false;
};
