#include "virtualteam/teammessages.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/tipbox.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <QObject>

#include <algorithm>
#include <initializer_list>

namespace {

// A code means something else with each service.
struct Meaning
{
    int code;
    QString sentence;
};

QString meaning(qint64 code, std::initializer_list<Meaning> meanings, const QString &otherwise)
{
    const auto *const at = std::find_if(meanings.begin(), meanings.end(),
                                        [&](const Meaning &known) { return known.code == code; });
    return at == meanings.end() ? otherwise : at->sentence;
}

} // namespace

QString TeamMessages::created(bool ok, int code)
{
    if (ok)
        return code == CHttpVirtualTeamOperation::PendingCode
                   ? QObject::tr("virtualTeamCreateSuccessAndWait")
                   : QObject::tr("virtualTeamCreateSuccess");
    return meaning(code,
                   {{10001, QObject::tr("virtualTeamCreateFailReasion1")},
                    {10002, QObject::tr("virtualTeamCreateFailReasion2")}},
                   QObject::tr("virtualTeamCreateFail"));
}

QString TeamMessages::invited(bool ok, int code)
{
    if (ok)
        return QObject::tr("virtualTeamInviteSuccess");
    return meaning(code,
                   {{10001, QObject::tr("virtualTeamInviteFail1")},
                    {10002, QObject::tr("virtualTeamInviteFail2")}},
                   QObject::tr("virtualTeamInviteFail"));
}

QString TeamMessages::memberSearchFailed(qint64 code)
{
    return meaning(code,
                   {{10002, QObject::tr("idNoExist")},
                    {10003, QObject::tr("searchTooMuch")},
                    {10004, QObject::tr("persionnalAcountConnotAdd")}},
                   QObject::tr("checkAccount"));
}

QString TeamMessages::deletionFailed(int code)
{
    return meaning(code,
                   {{10001, QString::fromUtf8("非法用户")},
                    {10002, QString::fromUtf8("权限不够")},
                    {10003, QString::fromUtf8("分组中存在管理员不能删除。")}},
                   QString::fromUtf8("删除失败，请重试。"));
}

QString TeamMessages::quitFailed(int code)
{
    return meaning(code,
                   {{10001, QString::fromUtf8("非法用户导致退出失败，请重试。")},
                    {10002, QString::fromUtf8("当前用户是管理员不允许退出，请重试。")}},
                   QString::fromUtf8("退出虚拟团队失败，请重试。"));
}

QString TeamMessages::dissolutionFailed(int code)
{
    return meaning(code,
                   {{10001, QString::fromUtf8("非法用户导致解散失败，请重试。")},
                    {10002, QString::fromUtf8("当前用户不是管理员不允许解散，请重试。")}},
                   QString::fromUtf8("解散虚拟团队失败，请重试。"));
}

QString TeamMessages::addAdministratorFailed()
{
    return QString::fromUtf8("设置子管理员失败，请重试");
}

QString TeamMessages::removeAdministratorFailed()
{
    return QString::fromUtf8("取消子管理员失败，请重试");
}

QString TeamMessages::postChangeFailed()
{
    return QString::fromUtf8("修改岗位失败，请重试");
}

QString TeamMessages::nickNameChangeFailed()
{
    return QString::fromUtf8("修改昵称失败，请重试");
}

QString TeamMessages::groupRenameFailed()
{
    return QObject::tr("modifyGroupNameFail");
}

QString TeamMessages::grantFailed()
{
    return QString::fromUtf8("权限转移失败，请重试。");
}

QString TeamMessages::moveFailed()
{
    return QString::fromUtf8("移动成员失败，请重试。");
}

QString TeamMessages::failed()
{
    return QObject::tr("teamChangeFailed");
}

void TeamMessages::tell(QWidget *parent, const QString &text)
{
    TipBox::tell(parent, text, QString::fromUtf8("确定"));
}

QString TeamMessages::about(const QString &question, const QString &name)
{
    const QString shown = displayText(name).trimmed();
    return shown.isEmpty() ? question : question + QLatin1Char('\n') + shown;
}

bool TeamMessages::mayRequest(QWidget *parent, const char *key)
{
    if (isOnline())
        return true;
    TipBox::tell(parent, QObject::tr(key));
    return false;
}
