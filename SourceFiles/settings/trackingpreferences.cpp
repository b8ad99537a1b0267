#include "settings/trackingpreferences.h"

#include <QDir>
#include <QFile>
#include <QSaveFile>

namespace {

constexpr int indentation = 4;

} // namespace

TrackingPreferences::TrackingPreferences(const QString &folder)
    : m_folder(folder), m_fileName(folder + QStringLiteral("/trackingsettings-preferences.xml"))
{
}

QString TrackingPreferences::folderOf(const QString &moduleVersion)
{
    return QDir::homePath() + QStringLiteral("/.QOR/MORVEK3/modules/trackingsettings/")
           + moduleVersion + QStringLiteral("/config");
}

std::optional<QDomDocument> TrackingPreferences::load(QString *problem) const
{
    QFile file(m_fileName);
    if (!file.exists())
        return std::nullopt;
    if (!file.open(QIODevice::ReadOnly)) {
        *problem = QStringLiteral("Error: Loading tracking settings preferences. "
                                  "File %1 cannot be opened for reading. Using built-in values")
                           .arg(m_fileName);
        return std::nullopt;
    }
    QDomDocument document;
    QString message;
    int line = 0;
    int column = 0;
    if (!document.setContent(&file, &message, &line, &column)) {
        *problem =
                QStringLiteral("Error: Loading tracking settings preferences while parsing "
                               "%1 (Line %2, Column %3) :\n%4. Using built-in values")
                        .arg(m_fileName, QString::number(line), QString::number(column), message);
        return std::nullopt;
    }
    if (document.documentElement().tagName() != QLatin1String("MORVEK")) {
        *problem = QStringLiteral("Error: Loading tracking settings preferences while parsing "
                                  "%1 : The file doesn't look like a valid preferences file. "
                                  "Using built-in values")
                           .arg(m_fileName);
        return std::nullopt;
    }
    return document;
}

bool TrackingPreferences::save(bool fixedAngleVisible, bool autoRestartShown,
                               QString *problem) const
{
    if (!QDir().exists(m_folder) && !QDir().mkpath(m_folder)) {
        *problem = QStringLiteral("Error: Writing tracking preferences. "
                                  "Directory %1 doesn't exist and cannot be created")
                           .arg(m_folder);
        return false;
    }
    QSaveFile file(m_fileName);
    // In a folder that allows no new file, the old file is overwritten.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        *problem = QStringLiteral("Error: Writing tracking preferences. "
                                  "File %1 cannot be opened for writing")
                           .arg(m_fileName);
        return false;
    }
    // toByteArray() writes UTF-8 in every locale.
    file.write(document(fixedAngleVisible, autoRestartShown).toByteArray(indentation));
    // commit() alone does not detect that the disk had no room for the last buffer.
    const bool isWhole = file.flush();
    if (!isWhole)
        file.cancelWriting();
    if (!file.commit() || !isWhole) {
        *problem = QStringLiteral("Error: Unable to write the tracking preferences file %1")
                           .arg(m_fileName);
        return false;
    }
    return true;
}

QDomDocument TrackingPreferences::document(bool fixedAngleVisible, bool autoRestartShown)
{
    QDomDocument document;
    document.appendChild(document.createProcessingInstruction(
            QStringLiteral("xml"), QStringLiteral("version=\"1.0\" encoding=\"UTF-8\"")));
    QDomElement root = document.createElement(QStringLiteral("MORVEK"));
    document.appendChild(root);

    QDomElement fixedAngle = document.createElement(QStringLiteral("FIXED_ANGLE"));
    if (fixedAngleVisible)
        fixedAngle.setAttribute(QStringLiteral("VISIBLE"), QStringLiteral("true"));
    root.appendChild(fixedAngle);

    QDomElement autoRestart =
            document.createElement(QStringLiteral("AUTO_RESTART_MEA_AFTER_SYNC_LOST"));
    autoRestart.setAttribute(QStringLiteral("HIDE"),
                             autoRestartShown ? QStringLiteral("false") : QStringLiteral("true"));
    root.appendChild(autoRestart);
    return document;
}
