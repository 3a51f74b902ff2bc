// Records of teams for tests, and a model with its host and its tester.
#pragma once

#include "tests/support/fakecontext.h"
#include "virtualteam/teamtreemodel.h"

#include <QAbstractItemModelTester>

#include <memory>

inline CVirtualTeamSimpleInfo makeTeam(const QString &id, int role = TeamRole::Member,
                                       int count = 0)
{
    CVirtualTeamSimpleInfo info;
    info.vtId = id;
    info.vtName = id;
    info.role = role;
    info.count = count;
    return info;
}

inline CVirtualTeamMemberInfo makeMember(const QString &id, int role = TeamRole::Member,
                                         PresenceData::ePcShowType show = PresenceData::Offline)
{
    CVirtualTeamMemberInfo member;
    member.userId = id;
    member.nickName = id;
    member.companyCode = QStringLiteral("C1");
    member.role = role;
    member.presence.pcShow = show;
    return member;
}

// "a b c" as groups or members of those ids; a member's "a*" is reachable, "a+" a
// sub-administrator, "a#" the owner.
inline QList<CVirtualTeamSimpleInfo> groupsOf(const char *ids)
{
    QList<CVirtualTeamSimpleInfo> groups;
    for (const QString &id : QString::fromLatin1(ids).split(QLatin1Char(' '), Qt::SkipEmptyParts))
        groups.append(makeTeam(id));
    return groups;
}

inline QList<CVirtualTeamMemberInfo> membersOf(const char *ids)
{
    QList<CVirtualTeamMemberInfo> members;
    for (QString id : QString::fromLatin1(ids).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        const QChar mark = id.back();
        if (QStringLiteral("*+#").contains(mark))
            id.chop(1);
        members.append(
            makeMember(id,
                       mark == QLatin1Char('#')   ? TeamRole::Owner
                       : mark == QLatin1Char('+') ? TeamRole::SubAdministrator
                                                  : TeamRole::Member,
                       mark == QLatin1Char('*') ? PresenceData::Available : PresenceData::Offline));
    }
    return members;
}

// What views have been told since.
struct TeamModelSteps
{
    explicit TeamModelSteps(const TeamTreeModel *model)
    {
        using Model = QAbstractItemModel;
        const auto count = [](int *steps) { return [steps] { ++*steps; }; };
        QObject::connect(model, &Model::rowsInserted, &context, count(&inserted));
        QObject::connect(model, &Model::rowsRemoved, &context, count(&removed));
        QObject::connect(model, &Model::rowsMoved, &context, count(&moved));
        QObject::connect(model, &Model::layoutChanged, &context, count(&laidOut));
        QObject::connect(model, &Model::dataChanged, &context, count(&changed));
        QObject::connect(model, &Model::modelReset, &context, count(&reset));
    }

    int inserted = 0, removed = 0, moved = 0, laidOut = 0, changed = 0, reset = 0;
    QObject context;
};

struct TeamModelFixture
{
    TeamModelFixture() { host.company = QStringLiteral("C1"); }

    void level(const char *group, const char *groups, const char *members)
    {
        model.setLevel(QStringLiteral("T"), QString::fromLatin1(group), groupsOf(groups),
                       membersOf(members));
    }
    QModelIndex member(const char *id) const
    {
        return model.memberIndex(QStringLiteral("T"), QString::fromLatin1(id));
    }
    QModelIndex group(const char *id) const
    {
        return model.groupIndex(QStringLiteral("T"), QString::fromLatin1(id));
    }
    void presence(const char *id, PresenceData::ePcShowType show)
    {
        PresenceData presence;
        presence.pcShow = show;
        model.setPresence({{QString::fromLatin1(id) + QStringLiteral("@corp.example"), presence}});
    }
    // "T(G1(a b) c)": a level that is not asked for has no brackets; "~" loading, "!"
    // failed, "-" empty.
    QString rows(const QModelIndex &parent = QModelIndex()) const
    {
        QStringList texts;
        for (int row = 0; row < model.rowCount(parent); ++row) {
            const QModelIndex index = model.index(row, 0, parent);
            QString text = index.data(TeamRowRole::Id).toString();
            switch (model.kind(index)) {
            case TeamRowKind::Loading:
                text = QStringLiteral("~");
                break;
            case TeamRowKind::Failed:
                text = QStringLiteral("!");
                break;
            case TeamRowKind::Empty:
                text = QStringLiteral("-");
                break;
            case TeamRowKind::Team:
            case TeamRowKind::Group:
                if (model.rowCount(index) > 0)
                    text += QLatin1Char('(') + rows(index) + QLatin1Char(')');
                break;
            case TeamRowKind::Member:
                break;
            }
            texts.append(text);
        }
        return texts.join(QLatin1Char(' '));
    }

    FakeContext host;
    const HostContextScope scope{&host};
    TeamTreeModel model;
    // Looks at every row at every step.
    std::unique_ptr<QAbstractItemModelTester> tester = std::make_unique<QAbstractItemModelTester>(
        &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
};
