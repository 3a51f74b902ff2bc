#include "org/orgwidget.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/skin.h"
#include "controls/statepage.h"
#include "controls/tipbox.h"
#include "controls/watermark.h"
#include "http/httpmgr.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreeview.h"
#include "plugin/frienduisignalsender.h"

#include <QDesktopServices>
#include <QEvent>
#include <QLabel>
#include <QStackedWidget>
#include <QUrl>
#include <QVBoxLayout>

namespace {
constexpr int BannerInset = 8;
}

OrgWidget::OrgWidget(QWidget *parent)
    : QWidget(parent),
      m_pages(new QStackedWidget(this)),
      m_tree(new OrgStructureTreeView(m_pages)),
      m_locating(new QLabel(this))
{
    LOG_SCOPE("OrgWidget::OrgWidget(QWidget* parent)");
    setObjectName(QStringLiteral("orgWidget"));
    // Else the watermark of the style sheet would not be painted.
    setAttribute(Qt::WA_StyledBackground);
    followSkin(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_pages);
    m_pages->addWidget(m_tree);
    setFocusProxy(m_tree);

    m_locating->setObjectName(QStringLiteral("orgLocatingLabel"));
    m_locating->setTextFormat(Qt::PlainText);
    m_locating->setContentsMargins(12, 6, 12, 6);
    m_locating->setFont(skinFont(13));
    m_locating->setAutoFillBackground(true);
    m_locating->hide();
    connectSources();
    retranslate();
}

void OrgWidget::connectSources()
{
    using Page = OrgWidget;
    using Tree = OrgStructureTreeView;
    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    connect(hub, &Hub::signal_isConnected, this, &Page::slot_connected);
    connect(hub, &Hub::signal_refreshOrganization, this, &Page::slot_refreshOrganization);
    connect(hub, &Hub::signal_login, this, &Page::startAnew);
    connect(this, &Page::signal_orgPosition, this, &Page::slot_orgPosition);

    const HttpMgr *services = HttpMgr::instance();
    connect(services, &HttpMgr::searchOrgFail, this, &Page::slot_searchOrgFail);
    connect(services, &HttpMgr::signal_noLocate, this, [this] { slot_noLocate(); });
    connect(services, &HttpMgr::signal_locateOrgFail, this, &Page::slot_locateEmpFail);
    connect(OrgStructureMgr::instance(), &OrgStructureMgr::signal_locateEmp, this,
            &Page::slot_locateOrgElements);

    connect(m_tree, &Tree::signal_upDataTreeViewEnd, this, &Page::slot_haveOrgInfo);
    connect(m_tree, &Tree::signal_LoadFail, this, &Page::slot_searchOrgFail);
    connect(m_tree, &Tree::signal_locateFrdOrgStructureShow, this, &Page::showTree);
    connect(m_tree, &Tree::locateFailed, this, &Page::slot_locateEmpFail);
    connect(m_tree, &Tree::locatingChanged, this, &Page::showLocating);
    // Another skin has another colour for the watermark; the own profile has the name.
    const auto renew = [this] {
        if (m_started)
            dealWatermark(ctx().hasRight(ApplicationContext::OrgWatermark));
    };
    connect(&Skin::instance(), &Skin::changed, this, renew);
    connect(hub, &Hub::signal_myProfileRecv, this, renew);
}

// --- Pages -----------------------------------------------------------------------

void OrgWidget::showEvent(QShowEvent *event)
{
    start();
    QWidget::showEvent(event);
}

void OrgWidget::start()
{
    if (m_started)
        return;
    if (!ctx().hasRight(ApplicationContext::Org)) {
        m_pages->setCurrentWidget(noPermissionPage());
        return;
    }
    if (ctx().companyCode().isEmpty()) {
        LOG_DEBUG("strRootId.isEmpty() is true");
        m_pages->setCurrentWidget(noEnterprisePage());
        return;
    }
    m_started = true;
    dealWatermark(ctx().hasRight(ApplicationContext::OrgWatermark));
    m_tree->setRootId(ctx().companyCode());
    slot_reLoad();
}

void OrgWidget::startAnew()
{
    m_started = false;
    if (isVisible())
        start();
}

void OrgWidget::slot_reLoad()
{
    LOG_SCOPE("OrgWidget::slot_reLoad()");
    // What is known from before stays in view while it is asked for anew.
    if (m_tree->isEmpty())
        m_pages->setCurrentWidget(statePage(m_loadingPage, "orgWidgetLoading",
                                            "Resources/images/SearchFriend/qora_Loading.gif",
                                            nullptr));
    else
        showTree();
    m_tree->loadRoot();
}

void OrgWidget::showTree()
{
    m_pages->setCurrentWidget(m_tree);
}

void OrgWidget::slot_haveOrgInfo(const OrgElementMap &)
{
    if (!m_tree->isEmpty())
        showTree();
    else
        m_pages->setCurrentWidget(statePage(m_emptyPage, "orgEmpty",
                                            "Resources/images/contacts/empty_list.png",
                                            "freshPersionInfo"));
}

void OrgWidget::slot_searchOrgFail(QString strId, int nStatus)
{
    LOG_SCOPE("OrgWidget::slot_searchOrgFail(QString strId, int nStatus)");
    LOG_ERROR("the department " << logText(strId) << " could not be loaded, status "
                                << QString::number(nStatus));
    m_tree->departmentFailed(strId);
    if (m_started && (strId == m_tree->rootId() || m_tree->isEmpty()))
        m_pages->setCurrentWidget(statePage(m_failedPage, "loadErrorAndCrazyRetry",
                                            "Resources/images/FriendDetail/failed.png", "retry"));
}

// Made when it is first needed: most users see one of them at most.
StatePage *OrgWidget::statePage(StatePage *&page, const char *key, const char *picture,
                                const char *button)
{
    if (!page) {
        page = new StatePage(key, QString::fromLatin1(picture), button, m_pages);
        page->setObjectName(QLatin1String(key));
        m_pages->addWidget(page);
        connect(page, &StatePage::buttonClicked, this, &OrgWidget::slot_reLoad);
    }
    return page;
}

// --- The host's news ---------------------------------------------------------------

void OrgWidget::slot_connected(bool bConnected)
{
    LOG_SCOPE("OrgWidget::slot_connected(bool bConnected)");
    const bool failed = m_failedPage && m_pages->currentWidget() == m_failedPage;
    if (bConnected && m_started && (failed || m_tree->isEmpty()))
        slot_reLoad();
}

void OrgWidget::slot_refreshOrganization()
{
    LOG_SCOPE("OrgWidget::slot_refreshOrganization()");
    if (!m_started)
        return;
    if (m_tree->isEmpty())
        slot_reLoad();
    else
        m_tree->refreshAll();
}

// --- Places ------------------------------------------------------------------------

void OrgWidget::slot_orgPosition(QString strId)
{
    LOG_SCOPE("OrgWidget::slot_orgPosition(QString strId)");
    start();
    if (m_started)
        m_tree->locate(jidUser(strId), false);
}

void OrgWidget::locateDepartment(const QString &id)
{
    start();
    if (m_started)
        m_tree->locate(id, true);
}

void OrgWidget::slot_locateOrgElements(const OrgElementMap &, QString)
{
    if (!m_tree->isEmpty())
        showTree();
}

void OrgWidget::slot_noLocate(int)
{
    LOG_SCOPE("OrgWidget::slot_noLocate(int nStatus)");
    if (m_tree->locateEnded(QString()))
        TipBox::tell(this, QObject::tr("notInOrganization"));
}

void OrgWidget::slot_locateEmpFail(QString strId)
{
    LOG_SCOPE("OrgWidget::slot_locateEmpFail(QString strId)");
    if (m_tree->locateEnded(strId))
        TipBox::tell(this, QObject::tr("notInOrganization"));
}

void OrgWidget::showLocating(bool locating)
{
    m_locating->setVisible(locating);
    if (!locating)
        return;
    QPalette palette;
    palette.setColor(QPalette::Window, Skin::instance().colors().theme);
    palette.setColor(QPalette::WindowText, Skin::instance().colors().background);
    m_locating->setPalette(palette);
    m_locating->adjustSize();
    const int width = qMin(m_locating->width(), this->width() - 2 * BannerInset);
    m_locating->setGeometry((this->width() - width) / 2,
                            this->height() - m_locating->height() - BannerInset, width,
                            m_locating->height());
    m_locating->raise();
}

// --- Watermark -----------------------------------------------------------------------

void OrgWidget::dealWatermark(bool bShow)
{
    const QString sheet = watermarkSheet(objectName(), bShow);
    // To set even the same one again would style everything below anew.
    if (sheet != styleSheet())
        setStyleSheet(sheet);
}

void OrgWidget::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showLocating(m_locating->isVisibleTo(this));
}

void OrgWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
