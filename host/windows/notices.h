// What others want of the user, in one window instead of one each: people who ask to
// become contacts, teams that wait for a decision. A row each, however often it is said;
// those that were not looked at yet stand in bold.
#pragma once

#include <QDialog>
#include <QSet>

class QListWidget;
class QListWidgetItem;
class QPushButton;

struct Notice
{
    enum Kind
    {
        ContactRequest, // id: jid
        TeamRequest,    // id: what the host knows the application by
        ExternalRequest // of somebody outside the company; id: jid
    };
    Kind kind = ContactRequest;
    QString id;
    QString name; // of who asks
    QString text; // what is said; both are anybody's
};

class Notices : public QDialog
{
    Q_OBJECT

public:
    static constexpr int MaximumRows = 100; // then the oldest goes

    explicit Notices(QWidget *parent = nullptr);

    // On top of the list, without taking the focus; what is listed moves there with the
    // new text.
    void add(const Notice &notice);
    void remove(Notice::Kind kind, const QString &id);
    // All of the kind; those that the user does not want to see stay away.
    void setAll(Notice::Kind kind, const QList<Notice> &notices);

    int count() const;
    int unread() const;

signals:
    // The user wants what the notice is about. A colleague's request is gone then; the
    // others stay until they are decided.
    void accepted(int kind, const QString &id);
    void countsChanged();

protected:
    void changeEvent(QEvent *event) override;

private:
    QListWidgetItem *find(Notice::Kind kind, const QString &id) const; // null: none
    void put(const Notice &notice, int row);
    void take(QListWidgetItem *item);
    void accept(QListWidgetItem *item);
    void ignore(QListWidgetItem *item);
    void setRead(QListWidgetItem *item);
    void showState();
    void retranslate();

    QListWidget *m_list;
    QPushButton *m_accept;
    QPushButton *m_ignore;
    QSet<QString> m_ignored[Notice::ExternalRequest + 1]; // ids, by kind
};
