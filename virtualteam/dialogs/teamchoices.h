// The rows of one team from which one is chosen: all of them when it is a member, the
// team and its sub-groups when it is a group.
#pragma once

#include "virtualteam/teamroles.h"

#include <QSortFilterProxyModel>

class TeamTreeModel;

class TeamChoices : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    enum Kind
    {
        Members,
        Groups
    };
    enum Role
    {
        Choosable = TeamRowRole::Kind + 20, // whether the row can be chosen
        Note                                // why a group cannot; translated
    };

    TeamChoices(TeamTreeModel *teams, Kind kind, QObject *parent = nullptr);

    TeamTreeModel *teams() const { return m_teams; }
    Kind choiceKind() const { return m_kind; }

    // The group in which everybody is already: it cannot be chosen. Empty: none.
    QString refusedGroup() const { return m_refusedGroup; }
    void setRefusedGroup(const QString &groupId);

    // "0" for the team itself, empty for rows that are no groups.
    static QString groupId(const QModelIndex &index);

    bool hasChildren(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;

protected:
    bool filterAcceptsRow(int row, const QModelIndex &parent) const override;

private:
    TeamTreeModel *m_teams;
    const Kind m_kind;
    QString m_refusedGroup;
};
