// A file system of a few hundred kilobytes, for what a full or a read-only disk does.
// Where this user may mount none it is not there, and the test is to be skipped.
#pragma once

#include <QDir>
#include <QProcess>

class SmallFileSystem
{
public:
    SmallFileSystem(const QString &folder, const QString &size) : m_folder(folder)
    {
        m_isMounted =
            QDir().mkpath(folder) &&
            run("mount", {QStringLiteral("-t"), QStringLiteral("tmpfs"), QStringLiteral("-o"),
                          QLatin1String("size=") + size, QStringLiteral("friendui-test"), folder});
    }
    ~SmallFileSystem()
    {
        if (m_isMounted)
            run("umount", {m_folder});
    }
    SmallFileSystem(const SmallFileSystem &) = delete;
    SmallFileSystem &operator=(const SmallFileSystem &) = delete;

    bool isMounted() const { return m_isMounted; }
    QString folder() const { return m_folder; }
    bool makeReadOnly()
    {
        return run("mount", {QStringLiteral("-o"), QStringLiteral("remount,ro"), m_folder});
    }

private:
    static bool run(const char *program, const QStringList &arguments)
    {
        QProcess process;
        process.start(QString::fromLatin1(program), arguments);
        return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit &&
               process.exitCode() == 0;
    }

    const QString m_folder;
    bool m_isMounted = false;
};
