// Picks people for a team: a field that searches one person by account or mobile
// number among all companies, and the list of who was found so far.
#pragma once

#include <QHash>
#include <QStringList>
#include <QWidget>

class ChosenMemberList;
class CHttpVirtualTeamOperation;
class QLabel;
class SearchBox;
class SkinButton;
struct CVirtualTeamMemberInfo;

class MemberPicker : public QWidget
{
    Q_OBJECT

public:
    enum Kind
    {
        AnyCompany,
        OtherCompanies // the own company's people are refused
    };

    explicit MemberPicker(Kind kind, QWidget *parent = nullptr);

    QStringList userIds() const; // in the order of their addition, without the user
    bool isSearching() const { return !m_searches.isEmpty(); }
    void takeFocus();

signals:
    // Somebody was added or taken out, or a search has begun or ended.
    void changed();
    void escapePressed();

public slots:
    // For what is in the field. The answer adds the person, or tells why not.
    void search();
    void removeMember(const QString &userId);

protected:
    void changeEvent(QEvent *event) override;

private:
    void found(const QString &key, const CVirtualTeamMemberInfo &member);
    void refuse(const QString &key, const QString &text);
    void updateState();
    void retranslate();

    Kind m_kind;
    QLabel *m_caption;
    QLabel *m_state; // how many, or that a search runs
    SearchBox *m_key;
    SkinButton *m_add;
    ChosenMemberList *m_list;
    // What is being searched for. The requests die with this object, unanswered.
    QHash<CHttpVirtualTeamOperation *, QString> m_searches;
};
