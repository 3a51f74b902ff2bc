#include "hostapi/applicationcontext.h"

ApplicationContext::~ApplicationContext() = default;

LogFileWriter *ApplicationContext::logWriter() const
{
    return nullptr;
}
CLogThread *ApplicationContext::logThread() const
{
    return nullptr;
}
QString ApplicationContext::userId() const
{
    return QString();
}
QString ApplicationContext::serverDomain() const
{
    return QString();
}
QString ApplicationContext::companyCode() const
{
    return QString();
}
bool ApplicationContext::vcard(const QString &, VcardInfo *) const
{
    return false;
}
QString ApplicationContext::userBaseFolder() const
{
    return QString();
}
QSqlDatabase ApplicationContext::userDatabase() const
{
    return QSqlDatabase();
}
void ApplicationContext::setAllUsersDatabase(const QSqlDatabase &) {}
CPassportLoginServer *ApplicationContext::passport() const
{
    return nullptr;
}
CServerSettings *ApplicationContext::serverSettings() const
{
    return nullptr;
}
QList<GroupData> ApplicationContext::groups(bool) const
{
    return {};
}
QList<FriendData> ApplicationContext::friends() const
{
    return {};
}
bool ApplicationContext::friendData(const QString &, FriendData *) const
{
    return false;
}
PresenceData ApplicationContext::presence(const QString &) const
{
    return PresenceData();
}
bool ApplicationContext::cooperates(const QString &, bool *) const
{
    return false;
}
bool ApplicationContext::mucData(const QString &, MucData *) const
{
    return false;
}
int ApplicationContext::mucRole(const QString &) const
{
    return 0;
}
bool ApplicationContext::isSessionTop(const QString &) const
{
    return false;
}
int ApplicationContext::sessionNotify(const QString &) const
{
    return 0;
}
bool ApplicationContext::isTransferring(const QString &) const
{
    return false;
}
QString ApplicationContext::headPath(const QString &) const
{
    return QString();
}
SysUIData ApplicationContext::skin() const
{
    return SysUIData();
}
bool ApplicationContext::hasRight(int) const
{
    return true;
}
int ApplicationContext::contactLimit() const
{
    return 0;
}
QString ApplicationContext::productTeamJid() const
{
    return QString();
}

QString ApplicationContext::password() const
{
    return QString();
}
QString ApplicationContext::applicationFolder() const
{
    return QString();
}
QString ApplicationContext::documentsFolder() const
{
    return QString();
}
QString ApplicationContext::caFile() const
{
    return QString();
}
void ApplicationContext::webRequestFinished(const WebRequestRecord &) {}

QString ApplicationContext::ownJid() const
{
    const QString user = userId();
    return user.isEmpty() ? QString() : user + QLatin1Char('@') + serverDomain();
}

QString ApplicationContext::userFolder() const
{
    const QString base = userBaseFolder();
    const QString user = userId();
    return base.isEmpty() || user.isEmpty() ? QString() : base + QLatin1Char('/') + user;
}
