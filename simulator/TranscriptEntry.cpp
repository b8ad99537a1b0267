#include "TranscriptEntry.h"

QString TranscriptEntry::operationName(Operation operation)
{
    switch (operation) {
    case Operation::Command:
        return QStringLiteral("command");
    case Operation::GetString:
        return QStringLiteral("get-string");
    case Operation::GetInt:
        return QStringLiteral("get-int");
    case Operation::GetDouble:
        return QStringLiteral("get-double");
    case Operation::GetBool:
        return QStringLiteral("get-bool");
    case Operation::Set:
        return QStringLiteral("set");
    case Operation::Message:
        return QStringLiteral("message");
    }
    return {};
}

int TranscriptEntry::surplus(int count, int limit)
{
    constexpr int part = 8;
    return limit > 0 && count > limit ? count - limit + limit / part : 0;
}
