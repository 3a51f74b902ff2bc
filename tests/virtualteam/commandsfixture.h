// TeamCommands over a view, with the services of a script. Boxes are answered as the
// test says and not shown.
#pragma once

#include "controls/tipbox.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/dialogs/teamnameedit.h"
#include "virtualteam/dialogs/virtualteameditwidget.h"
#include "virtualteam/teamcommands.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QWidget>

#include <memory>

inline CVirtualTeamMemberInfo teamMember(const char *id, int role = TeamRole::Member)
{
    CVirtualTeamMemberInfo member;
    member.userId = QString::fromLatin1(id);
    member.nickName = QStringLiteral("nick");
    member.duty = QStringLiteral("post");
    member.role = role;
    return member;
}

// Of the team "t", sub-group "7" named "group", where the user is the owner.
inline TeamSelection teamSelection(const QList<CVirtualTeamMemberInfo> &members = {})
{
    TeamSelection selection;
    selection.team.vtId = QStringLiteral("t");
    selection.team.vtName = QStringLiteral("team");
    selection.team.role = TeamRole::Owner;
    selection.groupId = QStringLiteral("7");
    selection.groupName = QStringLiteral("group");
    selection.level = 1;
    selection.members = members;
    return selection;
}

// All that the commands tell the tree, as words.
class Told : public QObject
{
    Q_OBJECT

public:
    explicit Told(TeamCommands *commands);

    QStringList words;
};

class CommandsFixture
{
public:
    CommandsFixture() { view->resize(300, 200); }

    VirtualTeamEditWidget *editor() const { return view->findChild<VirtualTeamEditWidget *>(); }
    // Types a text in the place of the one in the edit dialog, and presses Enter.
    void type(const QString &text) const
    {
        auto *line = editor()->findChild<TeamNameEdit *>();
        line->selectAll();
        line->insert(text);
        QTest::keyClick(line, Qt::Key_Return);
    }
    // A command by its name, as the menus give it; what is asked for is typed.
    void give(const QString &command) const;
    bool isBusy() const { return commands->isBusy(QStringLiteral("t")); }
    // The answers to what has been sent are there and have been dealt with.
    bool settle() const
    {
        return QTest::qWaitFor([this] { return !isBusy(); }, TestPatience);
    }

    TeamService service;
    std::unique_ptr<QWidget> view = std::make_unique<QWidget>();
    TeamCommands *commands = new TeamCommands(view.get());
};
