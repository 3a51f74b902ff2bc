#include "host/hostcontext.h"

#include "common/clogthread.h"
#include "common/displaytext.h"
#include "common/logfilewriter.h"
#include "host/conversationstore.h"
#include "host/core/corestore.h"
#include "host/filetransfers.h"
#include "host/messagingcore.h"
#include "host/systempicture.h"
#include "host/weblog.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>

#include <vector>

namespace {
// Whoever was given the log keeps using it until the process ends: nothing destroys
// it. The list tells a leak checker that this is meant.
template <class Object> Object *kept(Object *object)
{
    static auto *const all = new std::vector<Object *>;
    all->push_back(object);
    return object;
}
} // namespace

HostContext::HostContext(MessagingCore *core, const QString &dataFolder)
    : m_core(core), m_dataFolder(QDir(dataFolder).absolutePath())
{
    QDir().mkpath(m_dataFolder + QLatin1String("/logs"));
    startLog();
    const QString folder = userFolder();
    QDir().mkpath(folder);
    m_conversations.reset(new ConversationStore(folder + QLatin1String("/localData.db")));
}

HostContext::~HostContext() = default;

void HostContext::startLog()
{
    m_logFile = m_dataFolder + QLatin1String("/logs/friendui.log");
    m_writer = kept(new LogFileWriter(m_logFile));
    m_thread = kept(new CLogThread);
    m_thread->setWriter(m_writer);
    m_thread->start(QThread::LowPriority);
}

void HostContext::shutDown()
{
    if (!m_thread->isRunning())
        return;
    const QDeadlineTimer deadline(3000);
    while (!m_thread->isDrained() && !deadline.hasExpired())
        QThread::msleep(2);
    // The loop looks at the flag when an entry wakes it.
    m_thread->stop();
    m_thread->enqueue(3, CLogThread::location(__FILE__, __LINE__),
                      QStringLiteral("the log ends with the host"));
    m_thread->wait(qMax(qint64(100), deadline.remainingTime()));
}

QString HostContext::notice() const
{
    return CoreStore::damageNotice(m_conversations->setAsideAs());
}

void HostContext::setSessionTop(const QString &jid, bool top)
{
    m_conversations->setTop(jid, top);
}

void HostContext::setWebAccess(const QString &caFile, const QString &password)
{
    m_caFile = caFile;
    m_password = password;
}

void HostContext::webRequestFinished(const WebRequestRecord &record)
{
    if (m_webLog)
        emit m_webLog->recorded(record);
}

LogFileWriter *HostContext::logWriter() const
{
    return m_writer;
}
CLogThread *HostContext::logThread() const
{
    return m_thread;
}
QString HostContext::userId() const
{
    return m_core->ownUid();
}
QString HostContext::serverDomain() const
{
    return m_core->serverDomain();
}
QString HostContext::companyCode() const
{
    return m_core->companyCode();
}
bool HostContext::vcard(const QString &jid, VcardInfo *out) const
{
    return m_core->profile(jid, out);
}
QString HostContext::userBaseFolder() const
{
    return m_dataFolder + QLatin1String("/users");
}
QSqlDatabase HostContext::userDatabase() const
{
    return m_conversations->database();
}
void HostContext::setAllUsersDatabase(const QSqlDatabase &database)
{
    m_allUsers = database;
}
CServerSettings *HostContext::serverSettings() const
{
    return &m_settings;
}
QList<GroupData> HostContext::groups(bool inner) const
{
    return m_rosterKnown ? m_core->groups(inner) : QList<GroupData>();
}
QList<FriendData> HostContext::friends() const
{
    return m_rosterKnown ? m_core->contacts() : QList<FriendData>();
}
bool HostContext::friendData(const QString &jid, FriendData *out) const
{
    return m_core->contact(jid, out);
}
PresenceData HostContext::presence(const QString &jid) const
{
    return m_core->presence(jid);
}
bool HostContext::cooperates(const QString &jid, bool *value) const
{
    if (m_core->cooperates(jid, value))
        return true;
    const auto outsider = m_outsiders.constFind(jid);
    if (outsider == m_outsiders.constEnd())
        return false;
    *value = *outsider;
    return true;
}
bool HostContext::mucData(const QString &jid, MucData *out) const
{
    return m_core->room(jid, out);
}
int HostContext::mucRole(const QString &jid) const
{
    return m_core->roomRole(jid);
}
bool HostContext::isSessionTop(const QString &jid) const
{
    return m_conversations->isTop(jid);
}
int HostContext::sessionNotify(const QString &jid) const
{
    return m_conversations->isMuted(jid) ? 1 : 0;
}
bool HostContext::isTransferring(const QString &jid) const
{
    return m_transfers && m_transfers->isRunning(jid);
}
QString HostContext::productTeamJid() const
{
    return m_core->productTeamJid();
}

QString HostContext::headPath(const QString &jidOrPhoto) const
{
    FriendData contact;
    if (m_core->contact(jidOrPhoto, &contact) && !contact.headPath.isEmpty())
        return contact.headPath;
    MucData room;
    if (m_core->room(jidOrPhoto, &room))
        return room.headImage;
    CSChannelData channel;
    VcardInfo profile;
    QString name = jidOrPhoto;
    if (m_core->channel(jidOrPhoto, &channel))
        name = channel.photoName;
    else if (jidOrPhoto.contains(QLatin1Char('@')))
        name = m_core->profile(jidOrPhoto, &profile) ? profile.photoName
                                                     : jidUser(jidOrPhoto) + QLatin1String(".png");
    const QString system = SystemPicture::file(name);
    if (!system.isEmpty())
        return system;
    // Only what the module has fetched for this user, and nothing outside of it.
    if (name.isEmpty() || QFileInfo(name).fileName() != name)
        return QString();
    const QString path = pictureFolder() + QLatin1Char('/') + name;
    return QFileInfo(path).isFile() ? path : QString();
}

SysUIData HostContext::skin() const
{
    return m_skin;
}
