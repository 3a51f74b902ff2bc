#include "detail/cdetailviewmanager.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/panewindow.h"
#include "controls/tipbox.h"
#include "detail/cardframe.h"
#include "detail/cdetailview.h"
#include "detail/ownprofilewindow.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"
#include "plugin/paneactions.h"

#include <QApplication>

CDetailViewManager *CDetailViewManager::instance()
{
    static auto *manager = new CDetailViewManager;
    return manager;
}

CDetailViewManager::CDetailViewManager() = default;

void CDetailViewManager::openDialogByJid(const QString &jid)
{
    LOG_SCOPE("CDetailViewManager::openDialogByJid(const QString& jid)");
    if (jid.isEmpty())
        return;
    if (!isOnline()) {
        TipBox::tell(QApplication::activeWindow(),
                     QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return;
    }
    if (jid == ctx().ownJid()) {
        openOwnProfile(jid);
        return;
    }
    const QPointer<CDetailView> dialog = createInit(jid);
    if (!dialog) {
        LOG_ERROR("ContactInfo dialog creat failed!");
        return;
    }
    dialog->setRights();
    dialog->createData();
    // The host may have closed it from within the request.
    if (dialog && openDialog(jid) == dialog)
        dialog->slot_showOpacity();
}

void CDetailViewManager::openOwnProfile(const QString &jid)
{
    if (!m_ownProfile) {
        m_ownProfile = new OwnProfileWindow;
        connect(m_ownProfile, &BaseDialog::closed, this, [this] { m_ownProfile.clear(); });
        connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_logout,
                m_ownProfile, &QDialog::reject);
    }
    m_ownProfile->setJid(jid);
    if (m_ownProfile)
        m_ownProfile->present();
}

CDetailView *CDetailViewManager::createInit(const QString &jid)
{
    if (jid.isEmpty()) {
        LOG_ERROR("Jid is empty!");
        return nullptr;
    }
    if (!openDialog(jid) && m_dialogs.count() >= MaximumCards) {
        LOG_ERROR("too many cards are open");
        return nullptr;
    }
    return m_dialogs.findOrMake(jid, [this, jid] {
        auto *dialog = new CDetailView(jid, paneWindow());
        connectDialog(dialog);
        return dialog;
    });
}

void CDetailViewManager::connectDialog(CDetailView *dialog)
{
    using Manager = CDetailViewManager;
    connect(dialog, &CDetailView::signal_ColseDetailDlg, this, &Manager::slot_closeDetailDialog);
    CardFrame::connectManager(dialog, this);
    connect(dialog, &CDetailView::signal_showDetailWidget, this, &Manager::slot_openLeaderDetail);
    connect(dialog, &CDetailView::signal_reloadVcard, dialog, &CDetailView::createData);
    connect(dialog, &CDetailView::signal_ColseSignDlg, this, [] {
        if (PaneActions *actions = paneActions())
            actions->hideContactCard(QString());
    });
    // What one user may see is not for the next one.
    connect(FriendUISignalSender::instance(), &FriendUISignalSender::signal_logout, dialog,
            &QDialog::reject);
}

CDetailView *CDetailViewManager::openDialog(const QString &jid) const
{
    return m_dialogs.find(jid);
}

OwnProfileWindow *CDetailViewManager::ownProfileWindow() const
{
    return m_ownProfile;
}

void CDetailViewManager::slot_closeDetailDialog(const QString &jid)
{
    LOG_SCOPE("CDetailViewManager::slot_closeDetailDialog(const QString& jid)");
    if (CDetailView *dialog = m_dialogs.take(jid)) {
        dialog->close();
        dialog->deleteLater(); // the call may come from inside it
    }
}

void CDetailViewManager::slot_showTopicWidget(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_showTopicWidget(QString jid)");
    FriendUIEventProcess::openTopicPage(jid);
}

void CDetailViewManager::slot_openLeaderDetail(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_openLeaderDetail(QString jid)");
    openDialogByJid(jid);
}

void CDetailViewManager::slot_showPhoto(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_showPhoto(QString jid)");
    const CDetailView *dialog = openDialog(jid);
    const QString shown = dialog ? dialog->body()->picture() : QString();
    const QString file = shown.isEmpty() ? ctx().headPath(jid) : shown;
    if (!file.isEmpty())
        FriendUIEventProcess::showPicture(jid, file);
}

void CDetailViewManager::slot_sendMail(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_sendMail(QString jid)");
    FriendUIEventProcess::writeMail({jid});
}

void CDetailViewManager::slot_opendialog(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_opendialog(QString jid)");
    // It would stand in front of the chat.
    if (CDetailView *dialog = openDialog(jid))
        dialog->reject();
    FriendUIEventProcess::openChat(jid, MessageData::Person);
}

void CDetailViewManager::slot_orgPosition(QString jid)
{
    LOG_SCOPE("CDetailViewManager::slot_orgPosition(QString jid)");
    if (PaneActions *actions = paneActions())
        actions->locateInOrganisation(jidUser(jid), false);
}
