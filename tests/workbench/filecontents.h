#pragma once

#include <QByteArray>
#include <QFile>

/** The contents of a file; empty when it cannot be read. */
inline QByteArray contents(const QString &file)
{
    QFile input(file);
    return input.open(QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}
