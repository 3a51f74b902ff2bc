#include "common/cmodifyconfigfile.h"

#include "common/logging.h"
#include "common/postroutine.h"
#include "common/settingsfile.h"

#include <QCoreApplication>
#include <QThread>

namespace {
// ms. Nobody stands still meanwhile.
constexpr int Patience = 2000;

// A line in one call: the pieces of the other form may mix with those of the GUI
// thread.
void logLine(int level, int line, const QString &text)
{
    CLogManger::instance().log(
        level, QStringLiteral("cmodifyconfigfile.cpp:") + QString::number(line), text);
}

// The entry and the exit line of a slot.
class WriterScope
{
public:
    WriterScope(const char *function, int line) : m_function(function), m_line(line)
    {
        logLine(LogDebug, m_line, QLatin1String("entry fun ") + QLatin1String(m_function));
    }
    ~WriterScope()
    {
        logLine(LogDebug, m_line, QLatin1String("exit fun ") + QLatin1String(m_function));
    }
    WriterScope(const WriterScope &) = delete;
    WriterScope &operator=(const WriterScope &) = delete;

private:
    const char *m_function;
    int m_line;
};

SettingsFile::Format formatOf(int format)
{
    return format == SettingsFile::Ini ? SettingsFile::Ini : SettingsFile::Native;
}
} // namespace

CModifyConfigFile &CModifyConfigFile::instance()
{
    static CModifyConfigFile *writer = [] {
        // For an application that ends without aboutToQuit(): no thread may run on
        // while the process takes itself apart.
        static const PostRoutine finishing([] { instance().finish(); });
        return new CModifyConfigFile;
    }();
    return *writer;
}

CModifyConfigFile::CModifyConfigFile() : m_thread(new QThread)
{
    m_thread->setObjectName(QStringLiteral("settings writer"));
    m_thread->start(QThread::InheritPriority);
    moveToThread(m_thread);

    // Queued even on the writer's own thread, so that the order holds.
    connect(this, &CModifyConfigFile::signal_changeConfigValue, this,
            &CModifyConfigFile::slot_changeConfigValue, Qt::QueuedConnection);
    connect(this, &CModifyConfigFile::signal_changeConfigValues, this,
            &CModifyConfigFile::slot_changeConfigValues, Qt::QueuedConnection);
    connect(this, &CModifyConfigFile::signal_removeConfigKey, this,
            &CModifyConfigFile::slot_removeConfigKey, Qt::QueuedConnection);
    if (const QCoreApplication *application = QCoreApplication::instance()) {
        connect(application, &QCoreApplication::aboutToQuit, this, &CModifyConfigFile::finish,
                Qt::DirectConnection);
    }
}

CModifyConfigFile::~CModifyConfigFile()
{
    // A thread that is still busy must not be destroyed, and still uses this.
    while (!finish()) {
    }
    delete m_thread;
}

bool CModifyConfigFile::finish()
{
    constexpr unsigned long MaximumWait = 3000; // ms
    // Behind the changes that wait already.
    QMetaObject::invokeMethod(
        this, [thread = m_thread] { thread->quit(); }, Qt::QueuedConnection);
    if (m_thread->wait(MaximumWait))
        return true;
    logLine(LogError, __LINE__, QStringLiteral("the settings are still being written"));
    return false;
}

void CModifyConfigFile::slot_changeConfigValue(const QString &file, const QString &key,
                                               QVariant value, int format)
{
    const WriterScope scope("CModifyConfigFile::slot_changeConfigValue(const QString &file, "
                            "const QString &key, QVariant value, int format)",
                            __LINE__);
    SettingsFile settings(file, formatOf(format));
    settings.setValue(key, value);
    settings.save(Patience);
}

void CModifyConfigFile::slot_changeConfigValues(const QString &file,
                                                const QMap<QString, QVariant> &values, int format)
{
    const WriterScope scope("CModifyConfigFile::slot_changeConfigValues(const QString &file, "
                            "const QMap<QString, QVariant> &values, int format)",
                            __LINE__);
    SettingsFile settings(file, formatOf(format));
    for (auto at = values.constBegin(); at != values.constEnd(); ++at)
        settings.setValue(at.key(), at.value());
    settings.save(Patience);
}

void CModifyConfigFile::slot_removeConfigKey(const QString &file, const QString &key, int format)
{
    const WriterScope scope("CModifyConfigFile::slot_removeConfigKey(const QString &file, "
                            "const QString &key, int format)",
                            __LINE__);
    SettingsFile settings(file, formatOf(format));
    settings.remove(key);
    settings.save(Patience);
}
