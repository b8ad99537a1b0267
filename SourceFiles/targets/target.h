#pragma once

#include <QObject>
#include <QString>

/** One target of the controller's library; owned by the Targetlibrary that made it. */
class Target : public QObject {
    Q_OBJECT

public:
    explicit Target(QObject *parent = nullptr);

    QString id() const { return sId; }
    QString shortName() const { return sShortName; }
    QString longName() const { return sLongName; }
    QString bodyType() const { return sBodyType; }
    QString group() const { return sGroup; }
    bool isCalibrated() const { return bIsCalibrated; }
    bool isTracked() const { return bIsTracked; }
    bool isTrackedUnread() const { return m_isTrackedUnread; }

    void setId(const QString &id) { sId = id; }
    void setShortName(const QString &name) { sShortName = name; }
    void setLongName(const QString &name) { sLongName = name; }
    void setBodyType(const QString &type) { sBodyType = type; }
    void setGroup(const QString &group) { sGroup = group; }
    void setCalibrated(bool calibrated) { bIsCalibrated = calibrated; }
    void setIsTracked(bool tracked) { bIsTracked = tracked; }
    void setTrackedUnread(bool unread) { m_isTrackedUnread = unread; }

private:
    QString sId; ///< t01, t02, ... with at least two digits
    QString sShortName;
    QString sLongName;
    QString sBodyType;              ///< the controller's word, or "none"
    QString sGroup;                 ///< empty when the target belongs to no group
    bool bIsCalibrated = false;     ///< true when a body holds the target
    bool bIsTracked = false;        ///< true when the cameras see the target
    bool m_isTrackedUnread = false; ///< true when the last query of the tracked state failed
};
