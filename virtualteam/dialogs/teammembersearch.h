// The members of a team that a typed text finds: asks the service when nobody types
// any more, and drops what answers an older text.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QTimer>
#include <QWidget>

class LoadingOverlay;
class MemberChoiceModel;
class QStackedLayout;
class StatePage;
class TeamChoiceView;

class TeamMemberSearch : public QWidget
{
    Q_OBJECT

public:
    static constexpr int Delay = 300; // ms, after the last letter

    TeamMemberSearch(const QString &vtId, QWidget *parent);

    // Empty: nothing is asked for any more.
    void search(const QString &text);
    TeamChoiceView *list() const { return m_list; }
    CVirtualTeamMemberInfo chosenMember() const; // without an id: none
    // Chooses the first hit, or leaves things as they are while there is none.
    void takeFocus();

signals:
    void choiceChanged();
    void confirmed(); // a double click on a hit

private:
    void ask();
    void arrived(const QList<CVirtualTeamMemberInfo> &hits);

    const QString m_vtId;
    QString m_text;
    QTimer m_delay;
    MemberChoiceModel *m_hits;
    TeamChoiceView *m_list;
    LoadingOverlay *m_busy;
    QStackedLayout *m_pages;
    StatePage *m_nothing;
    StatePage *m_failed;
};
