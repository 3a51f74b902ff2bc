// Whole files, read and written, and those of the source tree.
#pragma once

#include <QFile>

// Empty when it cannot be read.
inline QByteArray contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// What ends a line in files that the system's programs read.
#ifdef Q_OS_WIN
constexpr char LineEnd[] = "\r\n";
#else
constexpr char LineEnd[] = "\n";
#endif

// As contentOf(); lines end with "\n" on every system.
inline QByteArray textOf(const QString &path)
{
    return contentOf(path).replace(LineEnd, "\n");
}

// A file of the source tree, by its path from the root.
QString sourceFile(const char *path);

inline void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}
