// A team to choose members and groups of: the user u1 of the company C1 owns it.
//
//     team (0): 前端 (7), u1, u2 of C1, u3 of C2, u4 of no known company
//     前端 (7): 组件 (8), u5
#pragma once

#include "controls/basedialog.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teamroles.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

class ChooseFixture
{
public:
    explicit ChooseFixture(const QString &language = QStringLiteral("en")) : m_language(language)
    {
        qRegisterMetaType<QList<CVirtualTeamMemberInfo>>();
        levels["vtId=1&pgId=0"] = TeamService::reply(
            R"({"group":[{"groupId":"7","groupName":"前端"}],"members":[
                {"userId":"u1","nickName":"张一","companyCode":"C1","role":2},
                {"userId":"u2","nickName":"李二","companyCode":"C1","duty":"测试"},
                {"userId":"u3","nickName":"王三","companyCode":"C2"},
                {"userId":"u4","nickName":"赵四"}]})");
        levels["vtId=1&pgId=7"] = TeamService::reply(
            R"({"group":[{"groupId":"8","groupName":"组件"}],"members":[
                {"userId":"u5","nickName":"钱五","companyCode":"C1"}]})");
        service.server.replyElsewhere([this](const FakeRequest &request) {
            return levels.value(request.body, TeamService::reply("{}"));
        });
    }
    ~ChooseFixture()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (qobject_cast<BaseDialog *>(window))
                window->close();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    static QPushButton *sure(const QWidget *dialog)
    {
        return dialog->findChild<QPushButton *>(QStringLiteral("btnSure"));
    }
    static QString note(const QWidget *dialog)
    {
        return dialog->findChild<QLabel *>(QStringLiteral("note"))->text();
    }
    static QLineEdit *field(const QWidget *dialog)
    {
        return dialog->findChild<QLineEdit *>(QStringLiteral("searchBox"));
    }
    // The row with that id, invalid for none.
    static QModelIndex row(const QAbstractItemView *view, const char *id)
    {
        return view->model()
            ->match(view->model()->index(0, 0), TeamRowRole::Id, QString::fromLatin1(id), 1,
                    Qt::MatchExactly | Qt::MatchRecursive)
            .value(0);
    }
    static void click(QAbstractItemView *view, const QModelIndex &index)
    {
        view->scrollTo(index);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(index).center());
    }

    TeamService service;
    CVirtualTeamSimpleInfo team{QStringLiteral("1"), QString::fromUtf8("项目组"), TeamRole::Owner,
                                5};
    QHash<QByteArray, FakeReply> levels; // by the form that asks for them

private:
    const Language m_language;
};
