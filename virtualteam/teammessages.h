// What the user is told of the results of team operations, as whole sentences in the
// user's language. `code` is the service's; it counts only when `ok` is false.
#pragma once

#include <QString>

class QWidget;

namespace TeamMessages {

// Fixed texts, for lists of members that cannot be shown.
constexpr char MembersFailed[] = "获取成员信息出错";
constexpr char NoMembers[] = "没有成员信息";

QString created(bool ok, int code); // with ok: CHttpVirtualTeamOperation::PendingCode or 0
QString invited(bool ok, int code);
QString memberSearchFailed(qint64 code);
QString deletionFailed(int code); // of members and sub-groups
QString quitFailed(int code);
QString dissolutionFailed(int code);
QString addAdministratorFailed();
QString removeAdministratorFailed();
QString postChangeFailed();
QString nickNameChangeFailed();
QString groupRenameFailed();
QString grantFailed();
QString moveFailed();
// Of additions of members and sub-groups and of a team's new name, for which there is
// no sentence of their own.
QString failed();

// A box titled "tip" with the one button "确定", as for creation, invitation and
// deletion.
void tell(QWidget *parent, const QString &text);

// A fixed question with a line below it for whom or what it is about, if that has a name.
QString about(const QString &question, const QString &name);

// False, and the user was told by `key`, when nothing can be sent now.
bool mayRequest(QWidget *parent, const char *key = "notexecuteoperation");

} // namespace TeamMessages
