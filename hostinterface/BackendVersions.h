#pragma once

#include <QMetaType>
#include <QString>
#include <QStringList>

/**
 * A version triple. Comparison is lexicographic over signed integers; a patch of -1 means that no
 * patch level is given and gets no special treatment, so it sorts below every known patch level.
 */
class VersionInfo {
public:
    VersionInfo() = default;
    VersionInfo(int major, int minor, int patch) : ma(major), mi(minor), pa(patch) {} ///< setVer()
    /** Takes numbers from 0 on; a patch of -1 means that none is given. */
    void setVer(int major, int minor, int patch)
    {
        ma = major;
        mi = minor;
        pa = patch;
    }

    /**
     * Reads "major.minor" or "major.minor.patch" (non-negative decimal numbers). Without a patch
     * the patch becomes -1. On a text of another shape the version stays as it is and *ok is false.
     */
    void fromString(const QString &text, bool *ok = nullptr)
    {
        const QStringList parts = text.split(QLatin1Char('.'));
        int numbers[3] = {0, 0, -1};
        bool valid = parts.size() == 2 || parts.size() == 3;
        for (int i = 0; valid && i < parts.size(); ++i) {
            numbers[i] = parts.at(i).toInt(&valid);
            valid = valid && numbers[i] >= 0;
        }
        if (valid)
            setVer(numbers[0], numbers[1], numbers[2]);
        if (ok)
            *ok = valid;
    }

    /** "major.minor.patch", or "major.minor" when no patch level is given. */
    QString toString() const
    {
        const QString text = QString::number(ma) + QLatin1Char('.') + QString::number(mi);
        return pa < 0 ? text : text + QLatin1Char('.') + QString::number(pa);
    }

    int major() const { return ma; } ///< the member ma
    int minor() const { return mi; } ///< the member mi
    int patch() const { return pa; } ///< the member pa
    /** All three numbers are the same. */
    bool operator==(const VersionInfo &other) const
    {
        return ma == other.ma && mi == other.mi && pa == other.pa;
    }
    bool operator!=(const VersionInfo &other) const { return !(*this == other); } ///< not ==
    bool operator>=(const VersionInfo &other) const                               ///< lexicographic
    {
        if (ma != other.ma)
            return ma > other.ma;
        if (mi != other.mi)
            return mi > other.mi;
        return pa >= other.pa;
    }
    bool operator<(const VersionInfo &other) const { return !(*this >= other); } ///< not >=
    bool operator>(const VersionInfo &other) const { return other < *this; }     ///< other < this
    bool operator<=(const VersionInfo &other) const { return other >= *this; }   ///< other >= this

    int ma = 0;  ///< major number
    int mi = 0;  ///< minor number
    int pa = -1; ///< patch number; -1 when none is given
};

/**
 * Versions and model name of the connected controller. Owned by the host; outlives every module.
 */
class BackendVersions {
public:
    VersionInfo &systemPt() { return sysPt; }             ///< sysPt, for the host to set
    const VersionInfo &systemPt() const { return sysPt; } ///< sysPt
    VersionInfo &protocol() { return prot; }              ///< prot, for the host to set
    const VersionInfo &protocol() const { return prot; }  ///< prot
    VersionInfo &systemCt() { return sysCt; }             ///< sysCt, for the host to set
    const VersionInfo &systemCt() const { return sysCt; } ///< sysCt
    QString &atcModel() { return mod; }                   ///< mod, for the host to set
    const QString &atcModel() const { return mod; }       ///< mod

    VersionInfo sysPt; ///< system version, decides about the compact system's pages
    VersionInfo prot;  ///< version of the command protocol; the only one that gates features
    VersionInfo sysCt; ///< second system version
    QString mod;       ///< model name; begins with "POCKETUNIT" on the compact all-in-one system
};

Q_DECLARE_METATYPE(BackendVersions *)
