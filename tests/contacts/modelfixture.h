// A friend-tree model with a host of its own, watched by Qt's model tester.
#pragma once

#include "contacts/friendtreemodel.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/fakecontext.h"

#include <QAbstractItemModelTester>
#include <QObject>
#include <QSignalSpy>
#include <QTest>

#include <memory>

inline QString jid(const QString &user)
{
    return user + QStringLiteral("@corp.example");
}

// How often rows came, went and moved.
struct RowSignals
{
    explicit RowSignals(FriendTreeModel *model)
        : inserted(model, &QAbstractItemModel::rowsInserted),
          removed(model, &QAbstractItemModel::rowsRemoved),
          moved(model, &QAbstractItemModel::rowsMoved),
          reset(model, &QAbstractItemModel::modelReset)
    {
        QObject::connect(model, &QAbstractItemModel::layoutChanged, &guard, [this] { ++layouts; });
    }
    QVector<int> counts() const
    {
        return {inserted.count(), removed.count(), moved.count(), reset.count(), layouts};
    }
    QSignalSpy inserted, removed, moved, reset;
    QObject guard;
    int layouts = 0;
};

// Own jid me@corp.example; the groups g1 "Alpha" and g2 "Beta", empty. New for each
// test function.
class ModelFixture : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        context = std::make_unique<FakeContext>();
        scope = std::make_unique<HostContextScope>(context.get());
        model = std::make_unique<FriendTreeModel>(ContactRow);
        tester = std::make_unique<QAbstractItemModelTester>(
            model.get(), QAbstractItemModelTester::FailureReportingMode::QtTest);
        model->setOwnJid(jid(QStringLiteral("me")));
        model->mergeGroups({{QStringLiteral("g1"), QStringLiteral("Alpha")},
                            {QStringLiteral("g2"), QStringLiteral("Beta")}});
    }
    void cleanup()
    {
        tester.reset();
        model.reset();
        scope.reset();
        context.reset();
    }

protected:
    // The users as shown.
    QStringList rows(const QString &groupId) const
    {
        QStringList users;
        const QModelIndex group = model->groupIndex(groupId);
        for (int row = 0; group.isValid() && row < model->rowCount(group); ++row) {
            const QString id = model->index(row, 0, group).data(FriendTreeRole::Id).toString();
            users.append(id.section(QLatin1Char('@'), 0, 0));
        }
        return users;
    }
    QStringList groupIds() const
    {
        QStringList ids;
        for (int row = 0; row < model->rowCount(); ++row)
            ids.append(model->index(row, 0).data(FriendTreeRole::Id).toString());
        return ids;
    }
    // "online/total"
    QString counts(const QString &groupId) const
    {
        const QModelIndex group = model->groupIndex(groupId);
        return group.data(FriendTreeRole::OnlineCount).toString() + QLatin1Char('/') +
               group.data(FriendTreeRole::TotalCount).toString();
    }
    QVariant role(const QString &user, int role) const
    {
        return model->contactIndex(jid(user)).data(role);
    }

    std::unique_ptr<FakeContext> context;
    std::unique_ptr<HostContextScope> scope;
    std::unique_ptr<FriendTreeModel> model;
    std::unique_ptr<QAbstractItemModelTester> tester;
};
