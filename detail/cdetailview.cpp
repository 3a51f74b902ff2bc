#include "detail/cdetailview.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/tipbox.h"
#include "detail/cardframe.h"
#include "detail/cardstyle.h"
#include "detail/remarkedit.h"
#include "plugin/frienduieventprocess.h"

#include <QPropertyAnimation>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int FadeInTime = 120; // milliseconds
}

CDetailView::CDetailView(const QString &jid, QWidget *parent)
    : BaseDialog(parent), m_body(new CardBody(this))
{
    setObjectName(QStringLiteral("CDetailView"));
    setTitleKey("contactDetail");
    bodyLayout()->addWidget(m_body);
    m_body->setJid(jid);
    m_body->setConnected(isOnline());
    CardFrame::connectBody(this, m_body);
    closeButton()->disconnect(this);
    connect(closeButton(), &QAbstractButton::clicked, this, &CDetailView::slot_closeDlg);
    connect(this, &BaseDialog::closed, this, [this] { emit signal_ColseDetailDlg(this->jid()); });
    slot_SkinChange(ctx().skin());
}

QString CDetailView::jid() const
{
    return m_body->jid();
}

void CDetailView::setRights()
{
    m_body->setAllowed(CardFrame::userRights());
    m_watermark = ctx().hasRight(ApplicationContext::DetailWatermark);
    dealWatermark();
}

void CDetailView::createData()
{
    const QString jid = this->jid();
    if (jid.isEmpty()) {
        LOG_DEBUG("entry fun CDetailView::createData() jid is empty");
        return;
    }
    LOG_SCOPE("CDetailView::createData()");
    m_body->startWaiting();
    FriendUIEventProcess::requestProfile(jid, true);
}

void CDetailView::setInfoOfWidget()
{
    m_body->takeProfile(jid(), m_info);
}

void CDetailView::dealWatermark()
{
    m_body->setWatermark(m_watermark);
}

// --- What the user does -----------------------------------------------------------

void CDetailView::slot_closeDlg()
{
    LOG_SCOPE("CDetailView::slot_closeDlg()");
    reject();
}

void CDetailView::slot_showOpacity()
{
    emit signal_ColseSignDlg();
    if (!isVisible()) {
        auto *fadeIn = new QPropertyAnimation(this, "windowOpacity", this);
        fadeIn->setDuration(FadeInTime);
        fadeIn->setStartValue(0.0);
        fadeIn->setEndValue(1.0);
        fadeIn->start(QAbstractAnimation::DeleteWhenStopped);
        m_body->focusFirst();
    }
    present();
}

void CDetailView::slot_showTopicWidget()
{
    emit signal_showTopicWidget(jid());
}

void CDetailView::slot_orgPosition()
{
    emit signal_orgPosition(jid());
}

void CDetailView::slot_sendMail()
{
    emit signal_sendMail(jid());
}

void CDetailView::slot_opendialog()
{
    emit signal_opendialog(jid());
}

void CDetailView::slot_reloadVcard()
{
    LOG_SCOPE("CDetailView::slot_reloadVcard()");
    if (!isOnline()) {
        TipBox::tell(this, QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return;
    }
    m_body->startWaiting();
    emit signal_reloadVcard(jid());
}

void CDetailView::slot_setFriendName()
{
    LOG_SCOPE("CDetailView::slot_setFriendName()");
    editRemark(this, jid());
}

// --- What the host says -----------------------------------------------------------

void CDetailView::slot_SkinChange(SysUIData skindata)
{
    styleCard(this, skindata);
    dealWatermark(); // its colour is the skin's
}

void CDetailView::slot_setBtn(bool connected)
{
    m_body->setConnected(connected);
}

void CDetailView::slot_EmployeeInfo(const QString &jid, const VcardInfo &info)
{
    if (jid.isEmpty() || jid != this->jid())
        return;
    LOG_SCOPE("CDetailView::slot_EmployeeInfo(const QString& jid, const VcardInfo& info)");
    m_info = info;
    setInfoOfWidget();
}

void CDetailView::slot_replacepic(const QString &jid, const QString &path)
{
    m_body->takePicture(jid, path);
}

void CDetailView::slot_getVcardFail(const QString &jid)
{
    m_body->takeFailure(jid);
}

void CDetailView::slot_GetVcardSuccessNoChange(const QString &username)
{
    m_body->takeUnchanged(username);
}

void CDetailView::slot_notifyCooperate(const QMap<QString, bool> &mapCooperateRelation)
{
    m_body->takeCooperation(mapCooperateRelation);
}
