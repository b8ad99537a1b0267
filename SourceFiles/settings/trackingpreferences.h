#pragma once

#include <QDomDocument>
#include <QString>

#include <optional>

/**
 * The file with the preferences of the tracking settings dialog. Each module version has its own
 * file.
 *
 * A plain value that holds only the folder. Only load() and save() read or write the file.
 */
class TrackingPreferences {
public:
    /** `folder` need not exist before the first save. */
    explicit TrackingPreferences(const QString &folder);

    /** The folder of this module version below the user's home folder. */
    static QString folderOf(const QString &moduleVersion);

    /** The name of the file with its path. */
    QString fileName() const { return m_fileName; }

    /**
     * The preferences as a document with the right root element. Nothing when there is no file or
     * the file cannot be used; in the second case *problem gets the line for the message log.
     */
    std::optional<QDomDocument> load(QString *problem) const;

    /**
     * Writes both preferences, and creates the folder when needed. The old file is replaced only
     * when the new one is complete. On failure returns false, with the log line in *problem.
     */
    bool save(bool fixedAngleVisible, bool autoRestartShown, QString *problem) const;

private:
    static QDomDocument document(bool fixedAngleVisible, bool autoRestartShown);

    QString m_folder;
    QString m_fileName;
};
