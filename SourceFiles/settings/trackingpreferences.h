#pragma once

#include <QDomDocument>
#include <QString>

#include <optional>

/**
 * The file in which the tracking settings dialog keeps what it shows, one for each module version.
 *
 * A plain value that knows only the folder; it neither reads nor writes before it is asked to.
 */
class TrackingPreferences {
public:
    /** `folder` may be missing until the first save. */
    explicit TrackingPreferences(const QString &folder);

    /** The folder of this module version below the user's home folder. */
    static QString folderOf(const QString &moduleVersion);

    /** The file with its path. */
    QString fileName() const { return m_fileName; }

    /**
     * The preferences as a document with the right root element. Nothing when there is no file, or
     * when it cannot be used; the latter sets *problem to the line for the message log.
     */
    std::optional<QDomDocument> load(QString *problem) const;

    /**
     * Writes both preferences, creating the folder when needed. The old file stays whole until the
     * new one is complete. On failure returns false with the log line in *problem.
     */
    bool save(bool fixedAngleVisible, bool autoRestartShown, QString *problem) const;

private:
    static QDomDocument document(bool fixedAngleVisible, bool autoRestartShown);

    QString m_folder;
    QString m_fileName;
};
