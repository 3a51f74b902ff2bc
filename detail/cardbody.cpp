#include "detail/cardbody.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "controls/avatarstore.h"
#include "controls/loadingoverlay.h"
#include "controls/outsidemark.h"
#include "controls/pictures.h"
#include "controls/presencetext.h"
#include "controls/skinbutton.h"
#include "controls/valuelabel.h"
#include "controls/watermark.h"
#include "detail/cardstyle.h"
#include "detail/detailrows.h"
#include "detail/headbutton.h"
#include "detail/nameedit.h"
#include "detail/personpicture.h"

#include <QEvent>
#include <QLabel>
#include <QStackedWidget>

namespace {
// A null pixmap's path is empty: nothing is shown then.
void showIcon(QLabel *label, const char *picture, const QString &meaning)
{
    label->setVisible(picture);
    if (!picture)
        return;
    label->setPixmap(
        loadPicture(QLatin1String(picture), label->width(), label->devicePixelRatioF()));
    label->setToolTip(meaning);
    label->setAccessibleName(meaning);
}

// The text in the page's way: what a button does, or why it cannot.
void explain(QPushButton *button, const QString &meaning, bool connected)
{
    button->setAccessibleName(meaning);
    button->setToolTip(connected ? meaning : QObject::tr("notexecuteoperation"));
}
} // namespace

void CardBody::setJid(const QString &jid)
{
    stopWaiting();
    m_jid = jid;
    m_cooperation.clear();
    m_contact = FriendData();
    ctx().friendData(jid, &m_contact);
    bool cooperates = false;
    if (ctx().cooperates(jid, &cooperates))
        m_cooperation.insert(jid, cooperates);
    showPresence(ctx().presence(jid));
    showCooperation();
    VcardInfo known;
    ctx().vcard(jid, &known);
    setInfo(known, true);
    m_signatureStack->setCurrentWidget(m_signaturePage);
    m_head->setPicture(personPicture(jid, known));
    m_rows->setRemark(m_contact.remark);
    // Nobody has a remark on themselves, or talks to themselves.
    const bool isOwn = !jid.isEmpty() && jid == ctx().ownJid();
    m_rows->showRemark(!isOwn);
    m_createDialog->setVisible(!isOwn);
    updateButtons();
}

QString CardBody::picture() const
{
    return m_head->picture();
}

// --- The request ----------------------------------------------------------------

void CardBody::startWaiting()
{
    VcardInfo known;
    const bool isKnown = ctx().vcard(m_jid, &known) || !m_contact.jid.isEmpty();
    m_signatureStack->setCurrentWidget(m_signaturePage);
    setInfo(known, false);
    if (isKnown)
        m_loading->note();
    else
        m_loading->cover();
    m_patience.start();
}

void CardBody::stopWaiting()
{
    m_patience.stop();
    m_loading->hide();
}

void CardBody::setReplyTimeLimit(int milliseconds)
{
    m_patience.setInterval(milliseconds);
}

void CardBody::showFailure()
{
    stopWaiting();
    setInfo(m_profile, true);
    m_signatureStack->setCurrentWidget(m_reloadPage);
}

// --- Answers and news -------------------------------------------------------------

void CardBody::takeProfile(const QString &jid, const VcardInfo &profile)
{
    if (jid.isEmpty() || jid != m_jid)
        return;
    stopWaiting();
    m_signatureStack->setCurrentWidget(m_signaturePage);
    setInfo(profile, true);
    m_head->setPicture(personPicture(jid, profile));
}

void CardBody::takeUnchanged(const QString &userName)
{
    if (userName.isEmpty() || (userName != m_jid && userName != jidUser(m_jid)))
        return;
    VcardInfo known;
    takeProfile(m_jid, ctx().vcard(m_jid, &known) ? known : VcardInfo(m_profile));
}

void CardBody::takeFailure(const QString &jid)
{
    if (!jid.isEmpty() && jid == m_jid)
        showFailure();
}

void CardBody::takePicture(const QString &jid, const QString &file)
{
    if (jid.isEmpty() || jid != m_jid)
        return;
    AvatarStore::instance().refresh(file);
    m_head->setPicture(file);
}

void CardBody::takeCooperation(const QMap<QString, bool> &flags)
{
    if (!flags.contains(m_jid))
        return;
    m_cooperation.insert(m_jid, flags.value(m_jid));
    showCooperation();
}

void CardBody::takeRemark(const QString &jid, const QString &remark)
{
    if (jid.isEmpty() || jid != m_jid)
        return;
    m_contact.remark = remark;
    m_rows->setRemark(remark);
    showNames();
}

void CardBody::takePresence(const QMap<QString, PresenceData> &presences)
{
    const auto at = presences.constFind(m_jid);
    if (at != presences.constEnd())
        showPresence(at.value());
}

// --- What is shown ----------------------------------------------------------------

void CardBody::setInfo(const VcardInfo &profile, bool complete)
{
    m_profile = profile;
    const bool unknown = profile == VcardInfo();
    m_signature->setValue(unknown ? m_contact.sign : profile.sign);
    const char *sex = nullptr;
    if (profile.sex == QString::fromUtf8("男"))
        sex = "Resources/images/FriendDetail/man.png";
    else if (profile.sex == QString::fromUtf8("女"))
        sex = "Resources/images/FriendDetail/female.png";
    showIcon(m_sex, sex, profile.sex);
    m_admin->setVisible(profile.isAdmin != 0);
    m_company->setValue(profile.companyName);
    m_rows->fill(profile, complete);
    showNames();
}

void CardBody::showNames()
{
    FriendData person = m_contact;
    person.jid = m_jid;
    const QString name = contactDisplayName(person, m_profile);
    m_name->setName(name);
    m_head->setPerson(m_jid, name);
    // Who is behind a remark, and which of several of the same name.
    QStringList others{m_profile.nickName.isEmpty() ? m_contact.nickName : m_profile.nickName,
                       m_profile.userName.isEmpty() ? jidUser(m_jid) : m_profile.userName};
    for (QString &other : others)
        other = displayText(other);
    others.removeAll(QString());
    others.removeAll(name);
    others.removeDuplicates();
    m_account->setValue(others.join(QStringLiteral(" · ")));
}

void CardBody::showPresence(const PresenceData &presence)
{
    m_presence = presence;
    m_head->setPresence(presence);
    m_presenceText->setText(presenceText(presence));
}

void CardBody::showCooperation()
{
    constexpr const char *outside = "Resources/images/icon/ic_outsideFrd.png";
    const bool isKnown = m_cooperation.contains(m_jid);
    const bool cooperates = m_cooperation.value(m_jid);
    showIcon(m_cooperateIcon,
             !isKnown     ? nullptr
             : cooperates ? "Resources/images/icon/ic_cooperate.png"
                          : outside,
             cooperates ? QObject::tr("cooperatingContact") : outsideText());
    showIcon(m_outsideIcon, cooperates && isExternal(m_jid) ? outside : nullptr, outsideText());
}

void CardBody::setAllowed(const Buttons &allowed)
{
    m_allowed = allowed;
    updateButtons();
}

void CardBody::setConnected(bool connected)
{
    m_connected = connected;
    updateButtons();
}

void CardBody::updateButtons()
{
    m_topic->setEnabled(m_connected && m_allowed.topic);
    m_position->setVisible(!isExternal(m_jid)); // the organisation is the user's own
    m_position->setEnabled(m_connected && m_allowed.position);
    m_sendMail->setEnabled(m_connected && m_allowed.mail);
    m_createDialog->setEnabled(m_connected && m_allowed.chat);
    m_rows->setRemarkEditable(!m_contact.jid.isEmpty(), m_connected);
    explain(m_topic, QString::fromUtf8("打开个人主页"), m_connected);
    explain(m_position, QString::fromUtf8("定位到组织架构"), m_connected);
    explain(m_sendMail, QObject::tr("sendemail"), m_connected);
    explain(m_createDialog, QObject::tr("invitechat"), m_connected);
}

void CardBody::focusFirst()
{
    m_createDialog->setFocus();
}

void CardBody::setWatermark(bool show)
{
    changeStyleSheet(m_background, watermarkSheet(m_background->objectName(), show));
}

void CardBody::resizeEvent(QResizeEvent *event)
{
    m_background->setGeometry(rect());
    QWidget::resizeEvent(event);
}

void CardBody::retranslate()
{
    m_admin->setText(QObject::tr("administrator"));
    m_heading->setText(QObject::tr("enterprisesCard"));
    m_sendMail->setText(QObject::tr("sendemail"));
    m_createDialog->setText(QObject::tr("invitechat"));
    m_presenceText->setText(presenceText(m_presence));
}

void CardBody::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        showCooperation();
        updateButtons();
    }
    QWidget::changeEvent(event);
}
