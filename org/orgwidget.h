// The page of the organisation: the tree over its watermark, and the pages that
// stand there while it loads, when it failed, and for who has none to see.
#pragma once

#include "http/orgrecords.h"

#include <QWidget>

class OrgStructureTreeView;
class QLabel;
class QPushButton;
class QStackedWidget;
class StatePage;

class OrgWidget : public QWidget
{
    Q_OBJECT

public:
    // Loads nothing before it is first shown or asked for a place.
    explicit OrgWidget(QWidget *parent = nullptr);

    OrgStructureTreeView *tree() const { return m_tree; }

    // Shows a department in the tree, as slot_orgPosition() does a person.
    void locateDepartment(const QString &id);

signals:
    // Somebody wants to see this person's place.
    void signal_orgPosition(QString strId);

public slots:
    void slot_connected(bool bConnected);
    void slot_refreshOrganization();
    void slot_noLocate(int nStatus = 0);
    void slot_searchOrgFail(QString strId, int nStatus);
    void slot_locateEmpFail(QString strId);
    void slot_locateOrgElements(const OrgElementMap &mapOrgElements, QString strId);
    void slot_haveOrgInfo(const OrgElementMap &mapOrgElements);
    void slot_gotoEnterpriseBackground();
    void slot_reLoad();
    void slot_registerEnterprise();
    void slot_GetThirdPartyRealLinkFinish(bool bSuccess, QString strUrl);
    // A user id or jid.
    void slot_orgPosition(QString strId);
    void dealWatermark(bool bShow);

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    void connectSources();
    // The page for what is known of the user; begins to load where there is
    // something to load. Nothing more once it has.
    void start();
    void startAnew(); // after a log-in
    void showTree();
    StatePage *statePage(StatePage *&page, const char *key, const char *picture,
                         const char *button);
    QWidget *noEnterprisePage();
    QWidget *noPermissionPage();
    void openLink(const char *key);
    void showLocating(bool locating);
    void retranslate();

    QStackedWidget *m_pages;
    OrgStructureTreeView *m_tree;
    QLabel *m_locating; // over the tree, while a place in it is looked for
    StatePage *m_loadingPage = nullptr;
    StatePage *m_failedPage = nullptr;
    StatePage *m_emptyPage = nullptr;
    QWidget *m_noEnterprisePage = nullptr;
    QWidget *m_noPermissionPage = nullptr;
    QLabel *m_enterpriseTip = nullptr;
    QPushButton *m_registerButton = nullptr;
    QPushButton *m_manageLink = nullptr;
    QLabel *m_permissionText = nullptr;
    bool m_started = false;
};
