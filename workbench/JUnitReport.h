#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/** The result of a run in the format of build servers: one suite with a case for each step. */
class JUnitReport {
public:
    explicit JUnitReport(const QString &suite) : m_suite(suite) {}

    void addPassed(const QString &name) { m_cases.append({name, QString(), false}); }
    void addFailed(const QString &name, const QString &message)
    {
        m_cases.append({name, message, false});
    }
    /** Adds a step that was not reached. */
    void addSkipped(const QString &name) { m_cases.append({name, QString(), true}); }

    QByteArray toXml() const;
    /** Writes atomically; false with *error naming the file. */
    bool save(const QString &file, QString *error) const;

private:
    struct Case {
        QString name;
        QString failure; ///< empty: the step succeeded
        bool skipped;
    };

    QString m_suite;
    QVector<Case> m_cases;
};
