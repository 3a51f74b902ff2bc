// What a window that takes a decision shows of the request: team, who asks, why, and
// who is to come along; below it the buttons or, afterwards, what was decided.
#pragma once

#include "virtualteam/teamrecords.h"

#include <QWidget>

class CVirtualTeamMemberListView;
class ElidedLabel;
class QGridLayout;
class QLabel;
class QPlainTextEdit;
class SkinButton;
class ValueLabel;

class TeamDecisionBody : public QWidget
{
    Q_OBJECT

public:
    enum Outcome
    {
        Open,
        Agreed,
        Refused,
        Decided, // one way or the other
        Gone     // nobody can decide it any more
    };

    // `personKey`: what who asks is called, as a translation key.
    explicit TeamDecisionBody(const char *personKey, QWidget *parent = nullptr);

    // Also makes it Decided, when the record says so and it was open.
    void setInfo(const CVirtualTeamInfo &info);
    void setOutcome(Outcome outcome);
    bool isOpen() const { return m_outcome == Open; }
    void setDeciding(bool deciding); // the buttons wait

signals:
    void decided(bool agree);

protected:
    void changeEvent(QEvent *event) override;

private:
    struct Field
    {
        const char *key; // of its caption
        QLabel *caption;
        ValueLabel *value;
    };
    ValueLabel *addField(const char *key, QGridLayout *layout);
    QLayout *buildHeader();
    QLayout *buildFields();
    QLayout *buildMembers();
    QWidget *buildFooter();
    void showPicture();
    void showOutcome();
    void retranslate();

    const char *const m_personKey;
    CVirtualTeamInfo m_info;
    Outcome m_outcome = Open;
    bool m_deciding = false;

    ElidedLabel *m_teamName;
    QLabel *m_personCaption;
    QLabel *m_portrait;
    ElidedLabel *m_creator;
    ElidedLabel *m_creatorCode;
    QList<Field> m_fields;
    ValueLabel *m_company;
    ValueLabel *m_department;
    ValueLabel *m_mobile;
    QLabel *m_reasonCaption;
    QPlainTextEdit *m_reason;
    QLabel *m_membersCaption;
    QLabel *m_memberCount;
    CVirtualTeamMemberListView *m_members;
    SkinButton *m_agree;
    SkinButton *m_refuse;
    SkinButton *m_pressed = nullptr; // one of them, last
    QLabel *m_mark;
    QLabel *m_markText;
};
