#include "servicenum/cservicenohistory.h"

#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/elidedlabel.h"
#include "controls/panewindow.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/statepage.h"
#include "controls/statestack.h"
#include "controls/tipbox.h"
#include "http/requesttext.h"
#include "http/serviceaddresses.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/chttpservicenum.h"
#include "webview/browserwidget.h"
#include "webview/systembrowser.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QShortcut>

namespace {
constexpr QSize PageSize(640, 520); // device-independent pixels

// As it is resolved, so that no letter looks like another one.
QString hostOf(const QUrl &url)
{
    return displayText(url.host(QUrl::FullyEncoded));
}
} // namespace

void CServiceNoHistory::showHistory(const QString &code, const QString &name)
{
    static QPointer<CServiceNoHistory> window;
    if (code.isEmpty()) {
        LOG_ERROR("a history without a service number");
        return;
    }
    if (!window)
        window = new CServiceNoHistory(paneWindow());
    window->show(code, name);
}

CServiceNoHistory::CServiceNoHistory(QWidget *parent)
    : BaseDialog(parent),
      m_states(new StateStack),
      m_where(new ElidedLabel(this)),
      m_back(new SkinButton(SkinButton::Flat, QString(), titleBar())),
      m_restore(new SkinButton(SkinButton::Flat, QString(), titleBar()))
{
    setObjectName(QStringLiteral("CServiceNoHistory"));
    // Closed it only hides, and still knows its page; the next user shall not see it.
    setAttribute(Qt::WA_DeleteOnClose, false);
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_logout, this,
            &QObject::deleteLater);
    // No page may outlive the engine.
    connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this,
            [this] { delete this; });
    auto *body = new QWidget(this);
    body->setMinimumSize(PageSize);
    body->setLayout(m_states);
    bodyLayout()->addWidget(body, 1);
    m_where->setObjectName(QStringLiteral("where"));
    m_where->setContentsMargins(12, 0, 12, 12);
    followSkin(m_where);
    m_where->hide();
    bodyLayout()->addWidget(m_where, 0, Qt::AlignHCenter);
    connect(m_states, &StateStack::buttonClicked, this, &CServiceNoHistory::retry);
    makeTitleButtons();
    retranslate();
}

void CServiceNoHistory::makeTitleButtons()
{
    m_back->setObjectName(QStringLiteral("btnBack"));
    m_restore->setObjectName(QStringLiteral("btnRestore"));
    m_back->setEnabled(false);
    connect(m_back, &QPushButton::clicked, this, &CServiceNoHistory::back);
    connect(m_restore, &QPushButton::clicked, this, &CServiceNoHistory::toggleSize);
    connect(new QShortcut(QKeySequence::Back, this), &QShortcut::activated, this,
            &CServiceNoHistory::back);
    auto *layout = static_cast<QHBoxLayout *>(titleBar()->layout());
    const int last = layout->indexOf(closeButton());
    layout->insertWidget(last, m_restore);
    layout->insertWidget(last, m_back);
    for (SkinButton *button : {m_back, m_restore})
        button->setFocusPolicy(Qt::TabFocus);
}

void CServiceNoHistory::retranslate()
{
    m_back->setText(QObject::tr("back"));
    m_restore->setText(QObject::tr("restore"));
    closeButton()->setToolTip(QObject::tr("close"));
}

void CServiceNoHistory::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

// --- The number's own page --------------------------------------------------------------

void CServiceNoHistory::show(const QString &code, const QString &name)
{
    const QString shown = displayText(name);
    setWindowTitle(shown.isEmpty() ? displayText(code) : shown);
    present();
    // In the system's browser it may have been closed meanwhile.
    const bool isShown = m_first && code == m_code;
    if (isShown && !m_hasFailed)
        return;
    m_code = code;
    load();
}

void CServiceNoHistory::load()
{
    back();
    ++m_loads;
    m_hasFailed = false;
    m_where->hide();
    m_url = QUrl(CHttpServiceNum::historyAddress(m_code));
    showState("loading");
    if (BrowserWidget::isAvailable())
        loadInside();
    else
        loadOutside();
}

void CServiceNoHistory::loadInside()
{
    if (!m_first) {
        m_first = new BrowserWidget(this);
        m_states->addWidget(m_first);
        connect(m_first, &BrowserWidget::finished, this, &CServiceNoHistory::slot_loadFinished);
        connect(m_first, &BrowserWidget::linkClicked, this, &CServiceNoHistory::slot_openLink);
    }
    m_first->open(m_url);
}

// Asked for before, because nobody hears what the system's browser makes of it.
void CServiceNoHistory::loadOutside()
{
    auto *operation = new CHttpServiceNum(this);
    connect(operation, &CHttpServiceNum::signal_serviceNumMessage, this,
            [this, load = m_loads](const QString &, bool ok) {
                if (load != m_loads)
                    return;
                m_hasFailed = !ok || !SystemBrowser::open(m_url);
                if (m_hasFailed) {
                    showState("historyFailed", true);
                    return;
                }
                showState("historyInBrowser");
                m_where->setText(hostOf(m_url));
                m_where->show();
            });
    operation->getServiceNumMessage(m_code);
}

void CServiceNoHistory::slot_loadFinished(bool res)
{
    LOG_DEBUG("CServiceNoHistory::slot_loadFinished,res=" << (res ? "true" : "false"));
    m_hasFailed = !res;
    if (!m_second)
        showPage(m_first, res);
}

// --- Pages that it links to ---------------------------------------------------------------

void CServiceNoHistory::slot_openLink(const QUrl &url)
{
    LOG_DEBUG("CServiceNoHistory::slot_openLink,url=" << logText(RequestText::address(url)));
    if (!ServiceAddresses::isWebAddress(url))
        return;
    if (!m_first || !ServiceAddresses::isSameHost(url, m_url)) {
        TipBox::ask(this, QObject::tr("openOutsidePage").arg(hostOf(url)), [this, url] {
            if (!SystemBrowser::open(url))
                TipBox::tell(this, QObject::tr("orgLinkFailed"));
        });
        return;
    }
    if (!m_second) {
        m_second = new BrowserWidget(this);
        m_states->addWidget(m_second);
        connect(m_second, &BrowserWidget::finished, this,
                &CServiceNoHistory::slot_secondPageLoadFinished);
        connect(m_second, &BrowserWidget::linkClicked, this, &CServiceNoHistory::slot_openLink);
        m_back->setEnabled(true);
    }
    showState("loading");
    m_second->open(url);
}

void CServiceNoHistory::slot_secondPageLoadFinished(bool res)
{
    LOG_DEBUG("CServiceNoHistory::slot_secondPageLoadFinished,res=" << (res ? "true" : "false"));
    if (m_second)
        showPage(m_second, res);
}

void CServiceNoHistory::back()
{
    if (!m_second)
        return;
    m_second->deleteLater();
    m_second->disconnect(this);
    m_second = nullptr;
    m_back->setEnabled(false);
    showPage(m_first, !m_hasFailed);
}

// --- What is shown -------------------------------------------------------------------------

void CServiceNoHistory::showState(const char *key, bool mayRetry)
{
    const char *picture = mayRetry ? "Resources/images/FriendDetail/failed.png"
                          : qstrcmp(key, "loading") == 0
                              ? "Resources/images/SearchFriend/qora_Loading.gif"
                              : "Resources/images/contacts/empty_list.png";
    giveFocus(m_states->showPage(key, picture, mayRetry ? "retry" : nullptr));
}

// Pages are made one by one, after the buttons in the title.
void CServiceNoHistory::giveFocus(QWidget *page)
{
    if (!page->focusProxy())
        return;
    setTabOrder(page, m_back);
    setTabOrder(m_back, m_restore);
    setTabOrder(m_restore, closeButton());
    if (isActiveWindow())
        page->setFocus(Qt::OtherFocusReason);
}

void CServiceNoHistory::showPage(BrowserWidget *page, bool ok)
{
    if (!ok) {
        showState("historyFailed", true);
        return;
    }
    m_states->setCurrentWidget(page);
    giveFocus(page);
}

void CServiceNoHistory::retry()
{
    if (!m_second) {
        load();
        return;
    }
    showState("loading");
    m_second->open(m_second->url());
}

void CServiceNoHistory::toggleSize()
{
    if (isMaximized())
        showNormal();
    else
        showMaximized();
}
