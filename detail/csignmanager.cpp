#include "detail/csignmanager.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/cardhover.h"
#include "detail/cardframe.h"
#include "detail/cdetailviewmanager.h"
#include "detail/csignex.h"
#include "plugin/frienduieventprocess.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QWindow>

namespace {
constexpr int MaximumAsked = 1000; // people

bool mayShow(const QString &jid)
{
    MucData room;
    return !jid.isEmpty() && isOnline() && ctx().hasRight(ApplicationContext::Detail) &&
           !ctx().mucData(jid, &room);
}
} // namespace

CSignManager *CSignManager::instance()
{
    static auto *manager = new CSignManager;
    return manager;
}

CSignManager::CSignManager()
{
    m_clock.start();
    const auto *hub = FriendUISignalSender::instance();
    connect(hub, &FriendUISignalSender::signal_isConnected, this, [this](bool connected) {
        if (!connected)
            close();
    });
    connect(hub, &FriendUISignalSender::signal_logout, this, [this] {
        m_asked.clear();
        close();
    });
    connect(hub, &FriendUISignalSender::signal_GetVcardFail, this,
            [this](const QString &jid) { m_asked.remove(jid); });
}

// --- Showing ----------------------------------------------------------------------

void CSignManager::makeCard()
{
    m_card = new CSignEx;
    CardFrame::connectManager(m_card.data(), this);
    connect(m_card, &CSignEx::signal_showDetailWidget, this, &CSignManager::slot_showDetailWidget);
    connect(m_card, &CSignEx::signal_reloadVcard, this, &CSignManager::slot_reloadVcard);
    connect(m_card, &CSignEx::signal_enter, this, &CSignManager::slot_enter);
    connect(m_card, &CSignEx::signal_leave, this, &CSignManager::slot_leave);
    connect(m_card, &CSignEx::sizeChanged, this, &CSignManager::place);
    connect(qApp, &QCoreApplication::aboutToQuit, m_card, [this] { delete m_card; });
}

void CSignManager::showCard(const QString &jid, int x, int y, int width, bool preferLeft)
{
    LOG_SCOPE("CSignManager::showCard(const QString& jid, int x, int y, int width, bool "
              "preferLeft)");
    if (!mayShow(jid)) {
        close();
        return;
    }
    if (!m_card)
        makeCard();
    m_anchor = {QPoint(x, y), width, preferLeft};
    const bool isNew = m_jid != jid;
    if (isNew) {
        rejectBoxes();
        m_jid = jid;
        m_card->setJid(jid);
    }
    place();
    CardHover::instance().cardShown(jid, m_card);
    if (!m_card->isVisible()) {
        // In front of the window that it belongs to, but not its child: it lives on.
        m_card->winId();
        const QWidget *window = QApplication::activeWindow();
        m_card->windowHandle()->setTransientParent(window ? window->windowHandle() : nullptr);
        m_card->show();
    }
    if (isNew)
        askForProfile();
}

void CSignManager::place()
{
    if (m_jid.isEmpty())
        return;
    m_card->adjustSize();
    QVector<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens.append(screen->availableGeometry());
    m_card->move(CardPlace::onScreens(m_anchor, m_card->size(), screens));
}

void CSignManager::hideCard(const QString &jid)
{
    if (jid.isEmpty())
        close();
    else if (jid == m_jid)
        CardHover::instance().rowLeft(jid);
}

void CSignManager::close()
{
    CardHover::instance().cardHidden();
    if (m_jid.isEmpty())
        return;
    m_jid.clear();
    if (!m_card)
        return;
    m_card->hide();
    rejectBoxes();
    m_card->setJid(QString()); // news are nobody's from here on
}

// They are about who was shown.
void CSignManager::rejectBoxes()
{
    const auto boxes = m_card->findChildren<QDialog *>();
    for (QDialog *box : boxes)
        box->reject();
}

// --- The profile --------------------------------------------------------------------

bool CSignManager::isRecent(const QString &jid) const
{
    const auto asked = m_asked.constFind(jid);
    return asked != m_asked.constEnd() && m_clock.elapsed() - asked.value() < ProfileAge;
}

void CSignManager::askForProfile()
{
    VcardInfo known;
    const bool isKnown = ctx().vcard(m_jid, &known);
    if (isKnown && isRecent(m_jid))
        return;
    if (m_asked.size() >= MaximumAsked)
        m_asked.clear();
    m_asked.insert(m_jid, m_clock.elapsed());
    m_card->createData(isKnown);
}

void CSignManager::slot_reloadVcard(QString jid)
{
    LOG_SCOPE("CSignManager::slot_reloadVcard(QString jid)");
    m_asked.insert(jid, m_clock.elapsed());
    FriendUIEventProcess::requestProfile(jid, true);
}

// --- The pointer ----------------------------------------------------------------------

void CSignManager::slot_enter()
{
    CardHover::instance().setPointerOnCard(true);
}

void CSignManager::slot_leave()
{
    CardHover::instance().setPointerOnCard(false);
}

// --- What the buttons do: what leads elsewhere closes the card ----------------------------

void CSignManager::slot_showTopicWidget(QString jid)
{
    LOG_SCOPE("CSignManager::slot_showTopicWidget(QString jid)");
    close();
    CDetailViewManager::instance()->slot_showTopicWidget(jid);
}

void CSignManager::slot_showDetailWidget(QString jid)
{
    LOG_SCOPE("CSignManager::slot_showDetailWidget(QString jid)");
    close();
    CDetailViewManager::instance()->openDialogByJid(jid);
}

void CSignManager::slot_showPhoto(QString jid)
{
    LOG_SCOPE("CSignManager::slot_showPhoto(QString jid)");
    const QString shown = m_card && m_card->jid() == jid ? m_card->body()->picture() : QString();
    const QString file = shown.isEmpty() ? ctx().headPath(jid) : shown;
    close();
    if (!file.isEmpty())
        FriendUIEventProcess::showPicture(jid, file);
}

void CSignManager::slot_orgPosition(QString jid)
{
    LOG_SCOPE("CSignManager::slot_orgPosition(QString jid)");
    close();
    CDetailViewManager::instance()->slot_orgPosition(jid);
}

void CSignManager::slot_sendMail(QString jid)
{
    LOG_SCOPE("CSignManager::slot_sendMail(QString jid)");
    close();
    CDetailViewManager::instance()->slot_sendMail(jid);
}

void CSignManager::slot_opendialog(QString jid)
{
    LOG_SCOPE("CSignManager::slot_opendialog(QString jid)");
    close();
    CDetailViewManager::instance()->slot_opendialog(jid);
}
