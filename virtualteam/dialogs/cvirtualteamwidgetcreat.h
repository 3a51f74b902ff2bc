// The dialog that creates a team, or invites people of other companies to one. What
// was typed stays until the service has agreed.
//
// A request that runs when the dialog is closed goes on: the user is told its result,
// and that the list of teams has changed comes by the hub's signal_refresh_virtualTeam.
#pragma once

#include "controls/basedialog.h"
#include "virtualteam/teamrecords.h"

class DialogBar;
class MemberPicker;
class ReasonEdit;
class TeamNameEdit;

class CVirtualTeamWidgetCreat : public BaseDialog
{
    Q_OBJECT

public:
    explicit CVirtualTeamWidgetCreat(QWidget *parent);                            // creates
    CVirtualTeamWidgetCreat(const CVirtualTeamSimpleInfo &team, QWidget *parent); // invites

signals:
    // The team is there, or waits for its approval. The dialog closes after this.
    void teamCreated(const QString &vtId, bool pending);

public slots:
    void slot_sure();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    CVirtualTeamWidgetCreat(const CVirtualTeamSimpleInfo &team, bool invites, QWidget *parent);
    void build();
    QLayout *buildName();
    QLayout *buildReason();
    void retranslate();
    void showLength(int length);
    bool isComplete(); // else the user was told what is missing
    void create(const QString &name, const QStringList &members, const QString &reason);
    void invite(const QStringList &members, const QString &reason);
    void succeeded(const QString &text);
    void failed(const QString &text);

    const CVirtualTeamSimpleInfo m_team; // empty for a new one
    const bool m_invites;
    bool m_isClosed = false;

    QLabel *m_nameCaption;
    TeamNameEdit *m_name; // of a new team; null for an invitation
    MemberPicker *m_picker;
    QLabel *m_reasonCaption;
    QLabel *m_length;
    ReasonEdit *m_reason;
    DialogBar *m_bar;
};
