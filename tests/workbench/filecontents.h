#pragma once

#include <QByteArray>
#include <QFile>

/** What stands in a file; nothing when it cannot be read. */
inline QByteArray contents(const QString &file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}
