#include "detail/ownprofilewindow.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/avatarstore.h"
#include "controls/presencetext.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/valuelabel.h"
#include "detail/avatar/editavatar.h"
#include "detail/cardstyle.h"
#include "detail/detailrows.h"
#include "detail/headbutton.h"
#include "detail/nameedit.h"
#include "detail/personpicture.h"
#include "http/fileservices.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
constexpr int Margin = 20; // device-independent pixels, as all below
constexpr int BodyWidth = 360;
} // namespace

OwnProfileWindow::OwnProfileWindow(QWidget *parent) : BaseDialog(parent)
{
    setObjectName(QStringLiteral("ownProfileWindow"));
    setTitleKey("ownProfile");
    bodyLayout()->addWidget(makeBody());
    styleCard(this, ctx().skin());
    retranslate();

    auto *hub = FriendUISignalSender::instance();
    connect(hub, &FriendUISignalSender::signal_SkinChange, this,
            [this](const SysUIData &skin) { styleCard(this, skin); });
    const auto refill = [this](const QString &jid) {
        if (jid == m_jid)
            fill();
    };
    connect(hub, &FriendUISignalSender::signal_FriendVcardInfo, this, refill);
    connect(hub, &FriendUISignalSender::signal_FriendFullVcardInfo, this, refill);
    connect(hub, &FriendUISignalSender::signal_myProfileRecv, this, &OwnProfileWindow::fill);
    connect(hub, &FriendUISignalSender::signal_myStatusChanged, this, &OwnProfileWindow::fill);
    connect(hub, &FriendUISignalSender::signal_isConnected, this, &OwnProfileWindow::fill);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this,
            [this](const QString &name, const QString &) {
                VcardInfo profile;
                if (ctx().vcard(m_jid, &profile) && name == pictureName(profile))
                    fill();
            });
    connect(hub, &FriendUISignalSender::signal_UpdateFrdHead, this,
            [this](const QString &jid, const QString &file) {
                if (jid != m_jid)
                    return;
                AvatarStore::instance().refresh(file);
                m_head->setPicture(file);
            });
    connect(hub, &FriendUISignalSender::signal_updateFriendPresence, this,
            [this](const QMap<QString, PresenceData> &presences) {
                if (presences.contains(m_jid))
                    fill();
            });
}

QWidget *OwnProfileWindow::makeBody()
{
    auto *body = new QWidget(this);
    body->setFixedWidth(BodyWidth);
    m_head = new HeadButton(body);
    connect(m_head, &QAbstractButton::clicked, this,
            [this] { FriendUIEventProcess::showPicture(m_jid, m_head->picture()); });
    auto *header = new QHBoxLayout;
    header->setSpacing(14);
    header->addWidget(m_head);
    header->addLayout(makeTexts(body), 1);
    m_signature = new ValueLabel(body);
    m_signature->setObjectName(QStringLiteral("qianming"));
    m_signature->setFont(skinFont(13));
    m_signature->setQuiet(true);
    m_signature->setTextWhenEmpty(QStringLiteral("---"));
    m_rows = new DetailRows(body);
    m_rows->showRemark(false);
    m_editPicture = new SkinButton(SkinButton::Outline, QString(), body);
    m_editPicture->setObjectName(QStringLiteral("btnEditPicture"));
    connect(m_editPicture, &QPushButton::clicked, this, [this] { EditAvatar::edit(this); });

    auto *layout = new QVBoxLayout(body);
    layout->setContentsMargins(Margin, 16, Margin, Margin);
    layout->setSpacing(14);
    layout->addLayout(header);
    layout->addWidget(m_signature);
    layout->addWidget(m_rows);
    layout->addWidget(m_editPicture, 0, Qt::AlignRight);
    return body;
}

QLayout *OwnProfileWindow::makeTexts(QWidget *body)
{
    m_name = new NameEdit(body);
    m_name->setObjectName(QStringLiteral("name"));
    m_account = new ValueLabel(body);
    m_account->setObjectName(QStringLiteral("lblAccount"));
    m_account->setFont(skinFont(12));
    m_presence = new QLabel(body);
    m_presence->setObjectName(QStringLiteral("lblPresence"));
    m_presence->setTextFormat(Qt::PlainText);
    m_presence->setFont(skinFont(12));
    m_account->setQuiet(true);
    m_presence->setForegroundRole(QPalette::PlaceholderText);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addWidget(m_name, 0, Qt::AlignLeft);
    texts->addWidget(m_account);
    texts->addWidget(m_presence);
    texts->addStretch(1);
    return texts;
}

void OwnProfileWindow::setJid(const QString &jid)
{
    m_jid = jid;
    fill();
    VcardInfo known;
    if (!ctx().vcard(jid, &known))
        FriendUIEventProcess::requestProfile(jid, true);
}

void OwnProfileWindow::fill()
{
    VcardInfo profile;
    ctx().vcard(m_jid, &profile);
    FriendData own;
    own.jid = m_jid;
    const QString name = contactDisplayName(own, profile);
    m_name->setName(name);
    m_head->setPerson(m_jid, name);
    m_head->setPicture(personPicture(m_jid, profile));
    const PresenceData presence = ctx().presence(m_jid);
    m_head->setPresence(presence);
    m_presence->setText(isOnline() ? presenceText(presence) : presenceText(PresenceData()));
    m_account->setValue(profile.userName.isEmpty() ? jidUser(m_jid) : profile.userName);
    m_signature->setValue(profile.sign);
    m_rows->fill(profile, true);
}

void OwnProfileWindow::retranslate()
{
    m_editPicture->setText(QObject::tr("editPicture"));
}

void OwnProfileWindow::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        fill();
    }
}
