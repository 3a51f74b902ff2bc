// The dialogs that create and invite, and the windows that decide, before scripted
// team services.
#pragma once

#include "plugin/frienduisignalsender.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/cvirtualapplymannger.h"
#include "virtualteam/cvirtualteaminfomanager.h"
#include "virtualteam/dialogs/chosenmemberlist.h"
#include "virtualteam/dialogs/cvirtualapply.h"
#include "virtualteam/dialogs/cvirtualteamwidgetcreat.h"
#include "virtualteam/dialogs/memberlistmodel.h"
#include "virtualteam/dialogs/memberpicker.h"
#include "virtualteam/dialogs/reasonedit.h"
#include "virtualteam/dialogs/virtualteaminviteinfopage.h"

#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>

// The user is u1 of company C1.
class RequestFixture
{
public:
    ~RequestFixture()
    {
        emit FriendUISignalSender::instance()->signal_logout(); // closes every window
        settle();
        // What still runs is this test's own.
        service.server.release();
    }

    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    static QPushButton *button(const QWidget *window, const char *name)
    {
        return window->findChild<QPushButton *>(QLatin1String(name));
    }
    static QString text(const QWidget *window, const char *label)
    {
        const auto *found = window->findChild<QLabel *>(QLatin1String(label));
        return found && found->isVisibleTo(window) ? found->text() : QString();
    }

    TeamService service;
    QWidget opener; // of the dialogs
};

class CreationFixture : public RequestFixture
{
public:
    explicit CreationFixture(bool invites = false)
    {
        opener.show();
        CVirtualTeamSimpleInfo team;
        team.vtId = QStringLiteral("7");
        team.vtName = QStringLiteral("Alpha");
        dialog = invites ? new CVirtualTeamWidgetCreat(team, &opener)
                         : new CVirtualTeamWidgetCreat(&opener);
        dialog->present();
    }

    static QByteArray person(const QByteArray &userId, const QByteArray &company = "C2")
    {
        return R"({"userId":")" + userId + R"(","name":"Name of )" + userId +
               R"(","companyCode":")" + company + R"(","companyName":"Company )" + company +
               R"(","mobile":"139"})";
    }
    QLineEdit *name() const
    {
        return dialog->findChild<QLineEdit *>(QStringLiteral("teamNameEdit"));
    }
    QLineEdit *field() const
    {
        return dialog->findChild<QLineEdit *>(QStringLiteral("memberSearch"));
    }
    ChosenMemberList *list() const { return dialog->findChild<ChosenMemberList *>(); }
    QStringList chosen() const { return dialog->findChild<MemberPicker *>()->userIds(); }
    ReasonEdit *reason() const { return dialog->findChild<ReasonEdit *>(); }
    QPushButton *sure() const { return button(dialog, "btnSure"); }

    void search(const QString &key) const
    {
        field()->setText(key);
        QTest::keyClick(field(), Qt::Key_Return);
    }
    void pick(const QByteArray &userId, const QByteArray &company = "C2")
    {
        service.answer("searchMember", person(userId, company));
        search(QString::fromLatin1(userId));
        QTRY_VERIFY(chosen().contains(QString::fromLatin1(userId)));
    }
    // A dialog that may be confirmed.
    void fill()
    {
        if (name())
            name()->setText(QStringLiteral(" Beta "));
        pick("u2");
        pick("u3");
    }

    QPointer<CVirtualTeamWidgetCreat> dialog;
};
