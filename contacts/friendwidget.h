// The contacts pane: the entry column, the search box, and the page of the current
// entry or what was found. Here the features meet; each of them reaches the others
// only through PaneActions.
#pragma once

#include <QHash>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class CCustomerServerPage;
class CServiceNoWidget;
class CVirtualTeamPage;
class ExternalFriendWidget;
class FriendListView;
class FriendTreeWidget;
class MucWidget;
class OrgWidget;
class QStackedWidget;
class SearchBox;
class SearchPage;
class SearchSources;
struct SearchEntry;

class FriendWidget : public QWidget
{
    Q_OBJECT

public:
    explicit FriendWidget(QWidget *parent = nullptr);
    ~FriendWidget() override;

    FriendTreeWidget *friendTree() const { return m_friendTree; }
    MucWidget *rooms() const { return m_rooms; } // null for a user who has no such entry
    // Made when they are first needed; null for a user who has no such entry.
    OrgWidget *orgPage();
    CCustomerServerPage *channels();
    CVirtualTeamPage *teamPage();
    ExternalFriendWidget *externalPage();
    bool hasExternalPage() const { return m_externalPage != nullptr; } // made already
    CServiceNoWidget *serviceNumbers();

    // Shows the page of an entry, by the entry's id, and ends a search. False when the
    // user has no such entry.
    bool raisePage(const QString &id);
    QString currentPage() const;

    QSize sizeHint() const override { return QSize(360, 640); }

public slots:
    void slot_clickItem(int nType, QString strJid);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void layOut();
    void makePages();
    QWidget *makePage(const QString &id);
    QWidget *makeLatestPage(); // tells the entry how much is unread
    template <class Page> Page *pageInPlace(const QString &id, Page *&page);
    void connectSearch();
    SearchPage *searchPage(); // made when something is first searched for
    void search();
    void endSearch();
    void leaveSearchFor(const SearchEntry &entry, bool inOrganisation);
    void focusList(); // of the current page

    FriendListView *m_entries;
    SearchBox *m_searchBox;
    QStackedWidget *m_body; // the pages, or what was found
    QStackedWidget *m_pages;
    FriendTreeWidget *m_friendTree;
    SearchSources *m_sources;
    SearchPage *m_searchPage = nullptr;
    QPointer<QWidget> m_focusBefore; // where the focus was before the search
    QPointer<QWidget> m_focusDue;    // the list that gets it when it is shown
    MucWidget *m_rooms = nullptr;
    OrgWidget *m_orgPage = nullptr;
    CCustomerServerPage *m_channels = nullptr;
    CVirtualTeamPage *m_teamPage = nullptr;
    ExternalFriendWidget *m_externalPage = nullptr;
    CServiceNoWidget *m_serviceNumbers = nullptr;
    QHash<QString, QWidget *> m_pageById;
    QTimer m_countDue; // of the unread messages
};
