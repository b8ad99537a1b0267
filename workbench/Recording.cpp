#include "Recording.h"

#include "TranscriptText.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const auto operationKey = QStringLiteral("operation");
const auto lineKey = QStringLiteral("line");
const auto answerKey = QStringLiteral("answer");
const auto resultKey = QStringLiteral("result");
const auto timeKey = QStringLiteral("timeMs");
const auto dialogKey = QStringLiteral("dialog");
/** A limit that no recording reaches; a double can represent every whole number up to it. */
constexpr double longestMs = 1e15;
/** Added to the key of a text that is stored in base 64. */
const auto encodedSuffix = QStringLiteral("Base64");

void insertBytes(QJsonObject *object, const QString &key, const QByteArray &bytes)
{
    const QString text = QString::fromUtf8(bytes);
    if (text.toUtf8() == bytes)
        object->insert(key, text);
    else
        object->insert(key + encodedSuffix, QString::fromLatin1(bytes.toBase64()));
}

QByteArray bytesOf(const QJsonObject &object, const QString &key)
{
    const QJsonValue encoded = object.value(key + encodedSuffix);
    return encoded.isString() ? QByteArray::fromBase64(encoded.toString().toLatin1())
                              : object.value(key).toString().toUtf8();
}

bool readOperation(const QString &name, TranscriptEntry::Operation *operation)
{
    using O = TranscriptEntry::Operation;
    for (const O candidate :
         {O::Command, O::GetString, O::GetInt, O::GetDouble, O::GetBool, O::Set, O::Message}) {
        *operation = candidate;
        if (TranscriptEntry::operationName(candidate) == name)
            return true;
    }
    return false;
}

bool isSame(const TranscriptEntry &left, const TranscriptEntry &right)
{
    return left.operation == right.operation && left.line == right.line
           && left.answer == right.answer && left.result == right.result;
}

QString lineOrEnd(const QVector<TranscriptEntry> &entries, int index)
{
    return index < entries.size() ? TranscriptText::line(entries.at(index))
                                  : QStringLiteral("(end)");
}

} // namespace

QByteArray Recording::toLine(const TranscriptEntry &entry)
{
    QJsonObject object;
    object.insert(timeKey, double(entry.virtualMs));
    object.insert(operationKey, TranscriptEntry::operationName(entry.operation));
    insertBytes(&object, lineKey, entry.line);
    insertBytes(&object, answerKey, entry.answer);
    object.insert(resultKey, entry.result);
    if (!entry.dialog.isEmpty())
        object.insert(dialogKey, entry.dialog);
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

bool Recording::fromLine(const QByteArray &line, TranscriptEntry *entry, QString *problem)
{
    *entry = TranscriptEntry();
    QJsonParseError syntax = {};
    const QJsonObject object = QJsonDocument::fromJson(line, &syntax).object();
    if (object.isEmpty()) {
        *problem = QStringLiteral("expected a JSON object, found %1")
                           .arg(syntax.error == QJsonParseError::NoError ? QStringLiteral("none")
                                                                         : syntax.errorString());
        return false;
    }
    const QString operation = object.value(operationKey).toString();
    if (!readOperation(operation, &entry->operation)) {
        *problem = QStringLiteral("operation: expected \"set\" or another operation, found \"%1\"")
                           .arg(operation);
        return false;
    }
    if (!object.value(resultKey).isDouble()) {
        *problem = QStringLiteral("result: expected a number, found none");
        return false;
    }
    const double timeMs = object.value(timeKey).toDouble();
    if (!(timeMs >= 0.0 && timeMs <= longestMs)) {
        *problem = QStringLiteral("timeMs: expected 0 to %1, found %2").arg(longestMs).arg(timeMs);
        return false;
    }
    entry->line = bytesOf(object, lineKey);
    entry->answer = bytesOf(object, answerKey);
    entry->result = object.value(resultKey).toInt();
    entry->virtualMs = qint64(timeMs);
    entry->dialog = object.value(dialogKey).toString();
    return true;
}

bool Recording::load(const QString &file, QVector<TranscriptEntry> *entries, QString *error)
{
    entries->clear();
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: the recording cannot be read: %2")
                         .arg(file, input.errorString());
        return false;
    }
    for (int number = 1; !input.atEnd(); ++number) {
        const QByteArray line = input.readLine().trimmed();
        TranscriptEntry entry;
        QString problem;
        if (!fromLine(line, &entry, &problem)) {
            *error = QStringLiteral("%1:%2: %3").arg(file).arg(number).arg(problem);
            return false;
        }
        entries->append(entry);
    }
    return true;
}

QString Recording::difference(const QVector<TranscriptEntry> &left,
                              const QVector<TranscriptEntry> &right)
{
    int first = 0;
    while (first < left.size() && first < right.size() && isSame(left.at(first), right.at(first)))
        ++first;
    if (first == left.size() && first == right.size())
        return QString();
    QString text = QStringLiteral("first difference at operation %1\n").arg(first + 1);
    for (int i = qMax(0, first - contextLines); i < first; ++i)
        text += QStringLiteral("  %1\n").arg(lineOrEnd(left, i));
    text += QStringLiteral("- %1\n").arg(lineOrEnd(left, first));
    text += QStringLiteral("+ %1\n").arg(lineOrEnd(right, first));
    return text;
}
