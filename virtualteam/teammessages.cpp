#include "virtualteam/teammessages.h"

#include "common/context.h"
#include "controls/tipbox.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <QObject>

namespace {

// The codes of the services, which mean something else with each.
constexpr int First = 10001;
constexpr int Second = 10002;
constexpr int Third = 10003;
constexpr int Fourth = 10004;

} // namespace

QString TeamMessages::created(bool ok, int code)
{
    if (ok)
        return code == CHttpVirtualTeamOperation::PendingCode
                   ? QObject::tr("virtualTeamCreateSuccessAndWait")
                   : QObject::tr("virtualTeamCreateSuccess");
    switch (code) {
    case First:
        return QObject::tr("virtualTeamCreateFailReasion1");
    case Second:
        return QObject::tr("virtualTeamCreateFailReasion2");
    default:
        return QObject::tr("virtualTeamCreateFail");
    }
}

QString TeamMessages::invited(bool ok, int code)
{
    if (ok)
        return QObject::tr("virtualTeamInviteSuccess");
    switch (code) {
    case First:
        return QObject::tr("virtualTeamInviteFail1");
    case Second:
        return QObject::tr("virtualTeamInviteFail2");
    default:
        return QObject::tr("virtualTeamInviteFail");
    }
}

QString TeamMessages::memberSearchFailed(qint64 code)
{
    switch (code) {
    case Second:
        return QObject::tr("idNoExist");
    case Third:
        return QObject::tr("searchTooMuch");
    case Fourth:
        return QObject::tr("persionnalAcountConnotAdd");
    default:
        return QObject::tr("checkAccount");
    }
}

QString TeamMessages::deletionFailed(int code)
{
    switch (code) {
    case First:
        return QString::fromUtf8("非法用户");
    case Second:
        return QString::fromUtf8("权限不够");
    case Third:
        return QString::fromUtf8("分组中存在管理员不能删除。");
    default:
        return QString::fromUtf8("删除失败，请重试。");
    }
}

QString TeamMessages::quitFailed(int code)
{
    switch (code) {
    case First:
        return QString::fromUtf8("非法用户导致退出失败，请重试。");
    case Second:
        return QString::fromUtf8("当前用户是管理员不允许退出，请重试。");
    default:
        return QString::fromUtf8("退出虚拟团队失败，请重试。");
    }
}

QString TeamMessages::dissolutionFailed(int code)
{
    switch (code) {
    case First:
        return QString::fromUtf8("非法用户导致解散失败，请重试。");
    case Second:
        return QString::fromUtf8("当前用户不是管理员不允许解散，请重试。");
    default:
        return QString::fromUtf8("解散虚拟团队失败，请重试。");
    }
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

bool TeamMessages::mayRequest(QWidget *parent, const char *key)
{
    if (isOnline())
        return true;
    TipBox::tell(parent, QObject::tr(key));
    return false;
}
