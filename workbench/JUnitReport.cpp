#include "JUnitReport.h"

#include <QSaveFile>
#include <QXmlStreamWriter>

#include <algorithm>

namespace {

/** Replaces control characters, most of which XML does not allow. */
QString printable(QString text)
{
    for (QChar &character : text) {
        if (character < QLatin1Char(' ') && character != QLatin1Char('\n'))
            character = QChar::ReplacementCharacter;
    }
    return text;
}

} // namespace

QByteArray JUnitReport::toXml() const
{
    const auto failures = std::count_if(m_cases.cbegin(), m_cases.cend(),
                                        [](const Case &one) { return !one.failure.isEmpty(); });
    const auto skipped = std::count_if(m_cases.cbegin(), m_cases.cend(),
                                       [](const Case &one) { return one.skipped; });
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.setAutoFormatting(true);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("testsuite"));
    writer.writeAttribute(QStringLiteral("name"), m_suite);
    writer.writeAttribute(QStringLiteral("tests"), QString::number(m_cases.size()));
    writer.writeAttribute(QStringLiteral("failures"), QString::number(failures));
    writer.writeAttribute(QStringLiteral("skipped"), QString::number(skipped));
    for (const Case &one : m_cases) {
        writer.writeStartElement(QStringLiteral("testcase"));
        writer.writeAttribute(QStringLiteral("classname"), m_suite);
        writer.writeAttribute(QStringLiteral("name"), printable(one.name));
        if (one.skipped)
            writer.writeEmptyElement(QStringLiteral("skipped"));
        if (!one.failure.isEmpty()) {
            writer.writeStartElement(QStringLiteral("failure"));
            writer.writeAttribute(QStringLiteral("message"), printable(one.failure));
            writer.writeEndElement();
        }
        writer.writeEndElement();
    }
    writer.writeEndElement();
    writer.writeEndDocument();
    return xml;
}

bool JUnitReport::save(const QString &file, QString *error) const
{
    QSaveFile output(file);
    const QByteArray xml = toXml();
    const bool saved =
            output.open(QIODevice::WriteOnly) && output.write(xml) == xml.size() && output.commit();
    if (!saved)
        *error = QStringLiteral("--junit %1: %2").arg(file, output.errorString());
    return saved;
}
