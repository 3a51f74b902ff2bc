// The members found in the user's teams, one row for each team that a person was found
// in. The teams stand in the order of the user's list, whichever answers first. Those of
// a team are replaced by what the team answers anew, and rows that stay do not move.
#pragma once

#include "controls/markedline.h"
#include "virtualteam/teamrecords.h"
#include "virtualteam/teamroles.h"

#include <QAbstractListModel>
#include <QHash>
#include <QList>
#include <QMap>
#include <QVector>

namespace TeamHitRole {
enum Role // besides those of TeamRowRole
{
    Second = 267,    // the second line: where the person was found
    Beside = 268,    // a MarkedText: number or account, when that was what was typed
    MarkedName = 269 // a MarkedText
};
}

struct TeamHit
{
    QString vtId;
    CVirtualTeamMemberInfo member;
};

class TeamSearchModel : public QAbstractListModel
{
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    // What the teams are called; rows of others go.
    void setTeams(const QList<CVirtualTeamSimpleInfo> &teams);
    // What is searched for. Rows stay where it is the old text and more, since what is
    // found for it is among them; else they go.
    void setText(const QString &text);
    // `atEnd`: no row may come between others now.
    void setHits(const QString &vtId, const QList<CVirtualTeamMemberInfo> &hits, bool atEnd);
    // By jid.
    void setPresence(const QMap<QString, PresenceData> &presence);
    // Pictures, the language or what the host knows of presence have changed.
    void showAnew();

    const TeamHit &at(int row) const { return m_hits.at(row); }

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

private:
    template <class Condition> void removeIf(const Condition &isGone);
    int rowAfter(const QString &vtId) const; // where the team's next row belongs
    QString secondLine(const TeamHit &hit) const;
    MarkedText markedName(const CVirtualTeamMemberInfo &member) const;
    MarkedText foundBeside(const CVirtualTeamMemberInfo &member) const;

    QVector<TeamHit> m_hits;
    struct Team
    {
        QString name; // a display text
        int place = 0;
    };
    QHash<QString, Team> m_teams;
    QString m_text;
};
