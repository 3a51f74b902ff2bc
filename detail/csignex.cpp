#include "detail/csignex.h"

#include "common/context.h"
#include "common/logging.h"
#include "controls/skin.h"
#include "controls/tipbox.h"
#include "controls/valuelabel.h"
#include "detail/cardframe.h"
#include "detail/cardstyle.h"
#include "detail/remarkedit.h"
#include "plugin/frienduieventprocess.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

CSignEx::CSignEx(QWidget *parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus),
      m_body(new CardBody(this))
{
    setObjectName(QStringLiteral("CSignEx"));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    followSkin(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1); // the frame
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(m_body);
    CardFrame::connectBody(this, m_body);
    slot_SkinChange(ctx().skin());
}

QString CSignEx::jid() const
{
    return m_body->jid();
}

void CSignEx::setJid(const QString &jid)
{
    m_body->setJid(jid);
    if (jid.isEmpty())
        return;
    m_body->setAllowed(CardFrame::userRights());
    m_body->setConnected(isOnline());
    m_watermark = ctx().hasRight(ApplicationContext::DetailWatermark);
    dealWatermark();
}

void CSignEx::createData(bool quietly)
{
    const QString jid = this->jid();
    if (!quietly)
        m_body->startWaiting();
    FriendUIEventProcess::requestProfile(jid, true);
}

void CSignEx::dealWatermark()
{
    m_body->setWatermark(m_watermark);
}

// --- What the user does -----------------------------------------------------------

void CSignEx::slot_showTopicWidget()
{
    emit signal_showTopicWidget(jid());
}

void CSignEx::slot_orgPosition()
{
    emit signal_orgPosition(jid());
}

void CSignEx::slot_sendMail()
{
    emit signal_sendMail(jid());
}

void CSignEx::slot_opendialog()
{
    emit signal_opendialog(jid());
}

void CSignEx::slot_reloadVcard()
{
    LOG_SCOPE("CSignEx::slot_reloadVcard()");
    if (!isOnline()) {
        TipBox::tell(this, QObject::tr("cannotSearchForOtherInfoForSelfOffLine"));
        return;
    }
    m_body->startWaiting();
    emit signal_reloadVcard(jid());
}

void CSignEx::slot_setFriendName()
{
    LOG_SCOPE("CSignEx::slot_setFriendName()");
    editRemark(this, jid());
}

// --- What the host says -----------------------------------------------------------

void CSignEx::slot_SkinChange(SysUIData skindata)
{
    styleCard(this, skindata);
    dealWatermark(); // its colour is the skin's
}

void CSignEx::slot_setBtn(bool connected)
{
    m_body->setConnected(connected);
}

void CSignEx::slot_EmployeeInfo(const QString &jid, const VcardInfo &info)
{
    m_body->takeProfile(jid, info);
}

void CSignEx::slot_replacepic(const QString &jid, const QString &path)
{
    if (jid.isEmpty() || jid != this->jid())
        return;
    LOG_DEBUG("enter CSignEx::slot_replacepic jid:" << logText(jid) << " Path" << logText(path));
    m_body->takePicture(jid, path);
}

void CSignEx::slot_getVcardFail(const QString &jid)
{
    m_body->takeFailure(jid);
}

void CSignEx::slot_GetVcardSuccessNoChange(const QString &username)
{
    m_body->takeUnchanged(username);
}

void CSignEx::slot_notifyCooperate(const QMap<QString, bool> &mapCooperateRelation)
{
    m_body->takeCooperation(mapCooperateRelation);
}

// --- The frame ----------------------------------------------------------------------

void CSignEx::enterEvent(QEvent *event)
{
    QWidget::enterEvent(event);
    emit signal_enter();
}

void CSignEx::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    emit signal_leave();
}

void CSignEx::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    qApp->installEventFilter(this);
}

void CSignEx::hideEvent(QHideEvent *event)
{
    qApp->removeEventFilter(this);
    clearSelections(nullptr);
    QWidget::hideEvent(event);
}

void CSignEx::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    emit sizeChanged();
}

void CSignEx::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(Skin::instance().colors().border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

// Without the focus the card gets no keys, and its texts are not told when another one
// is being selected.
bool CSignEx::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        if (watched->isWidgetType() && isAncestorOf(static_cast<QWidget *>(watched)))
            clearSelections(watched);
        break;
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        if (!QApplication::activeModalWidget() &&
            static_cast<QKeyEvent *>(event)->matches(QKeySequence::Copy) && copySelection()) {
            event->accept();
            return true;
        }
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

bool CSignEx::copySelection()
{
    const auto values = findChildren<ValueLabel *>();
    for (const ValueLabel *value : values) {
        if (value->hasSelectedText()) {
            value->copy();
            return true;
        }
    }
    auto *name = findChild<QLineEdit *>();
    if (!name || !name->hasSelectedText())
        return false;
    name->copy();
    return true;
}

void CSignEx::clearSelections(const QObject *except)
{
    const auto values = findChildren<ValueLabel *>();
    for (ValueLabel *value : values) {
        if (value != except && value->hasSelectedText())
            value->setSelection(0, 0);
    }
    auto *name = findChild<QLineEdit *>();
    if (name && name != except)
        name->deselect();
}
