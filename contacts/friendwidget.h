// The contacts pane: the entry column and the page of the current entry. Here
// the features meet; each of them reaches the others only through PaneActions.
#pragma once

#include <QHash>
#include <QWidget>

class FriendListView;
class FriendTreeWidget;
class OrgWidget;
class QStackedWidget;

class FriendWidget : public QWidget
{
    Q_OBJECT

public:
    explicit FriendWidget(QWidget *parent = nullptr);

    FriendTreeWidget *friendTree() const { return m_friendTree; }
    // Made when it is first needed; null for a user who has no such entry.
    OrgWidget *orgPage();

    // Shows the page of an entry, by the entry's id. False when the user has no
    // such entry.
    bool raisePage(const QString &id);
    QString currentPage() const;

    QSize sizeHint() const override { return QSize(360, 640); }

public slots:
    void slot_clickItem(int nType, QString strJid);

protected:
    void changeEvent(QEvent *event) override;

private:
    FriendListView *m_entries;
    QStackedWidget *m_pages;
    FriendTreeWidget *m_friendTree;
    OrgWidget *m_orgPage = nullptr;
    QHash<QString, QWidget *> m_pageById;
};
