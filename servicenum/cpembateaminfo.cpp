#include "servicenum/cpembateaminfo.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/windowregistry.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/frienduisignalsender.h"
#include "servicenum/customerchannels.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

constexpr int BodyWidth = 320; // device-independent pixels, as all below
constexpr int Margin = 20;
constexpr int AvatarSize = 64;
constexpr int CodeSize = 124;

QString codePicture()
{
    return QStringLiteral("Resources/images/MainWindow/qora_ic_about_code.png");
}

QString portrait()
{
    return QStringLiteral("Resources/images/FriendDetail/defaultHead.png");
}

} // namespace

CPembaTeamInfo *CPembaTeamInfo::open(QWidget *parent)
{
    static auto *windows = new WindowRegistry<CPembaTeamInfo>;
    const QString jid = ctx().productTeamJid();
    if (jid.isEmpty())
        return nullptr;
    CPembaTeamInfo *window = windows->findOrMake(jid, [&] {
        auto *made = new CPembaTeamInfo(jid, parent);
        connect(made, &BaseDialog::closed, [jid] { windows->take(jid); });
        return made;
    });
    window->present();
    return window;
}

CPembaTeamInfo::CPembaTeamInfo(const QString &jid, QWidget *parent) : BaseDialog(parent), m_jid(jid)
{
    LOG_SCOPE("CPembaTeamInfo::CPembaTeamInfo(QWidget* parent)");
    setObjectName(QStringLiteral("pembateam"));
    setTitleKey("pembateam");
    auto *body = new QVBoxLayout;
    body->setContentsMargins(Margin, 12, Margin, Margin);
    body->setSpacing(16);
    body->addLayout(makeHeader());
    body->addLayout(makeCode());
    body->addLayout(makeButtons());
    bodyLayout()->addLayout(body);
    setFixedWidth(BodyWidth);
    m_invite->setFocus();
    fill();

    using Hub = FriendUISignalSender;
    const Hub *hub = Hub::instance();
    const auto refill = [this](const QString &changed) {
        if (changed == m_jid)
            fill();
    };
    connect(hub, &Hub::signal_FriendVcardInfo, this, refill);
    connect(hub, &Hub::signal_UpdateFrdHead, this, refill);
    connect(hub, &Hub::signal_notifyUpdateChannelHead, this, refill);
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this, &CPembaTeamInfo::fill);
    connect(hub, &Hub::signal_logout, this, &QDialog::reject);
}

QLayout *CPembaTeamInfo::makeHeader()
{
    m_avatar = new QLabel(this);
    m_avatar->setObjectName(QStringLiteral("labelAvatar"));
    m_avatar->setFixedSize(AvatarSize, AvatarSize);
    m_name = new ElidedLabel(this);
    m_name->setObjectName(QStringLiteral("labelName"));
    m_name->setFont(skinFont(16));
    m_welcome = new QLabel(this);
    m_welcome->setObjectName(QStringLiteral("welcomeuseim"));
    m_welcome->setTextFormat(Qt::PlainText);
    m_welcome->setWordWrap(true);
    m_welcome->setFont(skinFont(13));
    m_welcome->setForegroundRole(QPalette::PlaceholderText);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addStretch(1);
    texts->addWidget(m_name);
    texts->addWidget(m_welcome);
    texts->addStretch(1);
    auto *header = new QHBoxLayout;
    header->setSpacing(14);
    header->addWidget(m_avatar);
    header->addLayout(texts, 1);
    return header;
}

QLayout *CPembaTeamInfo::makeCode()
{
    auto *code = new QToolButton(this);
    code->setObjectName(QStringLiteral("btnCode"));
    code->setAutoRaise(true);
    code->setCursor(Qt::PointingHandCursor);
    code->setFocusPolicy(Qt::TabFocus);
    code->setIconSize(QSize(CodeSize, CodeSize));
    QIcon icon;
    for (const qreal ratio : {1.0, 2.0})
        icon.addPixmap(loadPicture(codePicture(), CodeSize, ratio));
    code->setIcon(icon);
    connect(code, &QAbstractButton::clicked, this, &CPembaTeamInfo::showCode);
    m_code = code;
    m_caption = new QLabel(this);
    m_caption->setObjectName(QStringLiteral("clickToLookup"));
    m_caption->setTextFormat(Qt::PlainText);
    m_caption->setFont(skinFont(12));
    m_caption->setForegroundRole(QPalette::PlaceholderText);
    auto *layout = new QVBoxLayout;
    layout->setSpacing(6);
    layout->addWidget(m_code, 0, Qt::AlignHCenter);
    layout->addWidget(m_caption, 0, Qt::AlignHCenter);
    return layout;
}

QLayout *CPembaTeamInfo::makeButtons()
{
    m_invite = new SkinButton(SkinButton::Primary, QString(), this);
    m_invite->setObjectName(QStringLiteral("invitechat"));
    connect(m_invite, &QPushButton::clicked, this, &CPembaTeamInfo::invite);
    m_close = new SkinButton(SkinButton::Outline, QString(), this);
    m_close->setObjectName(QStringLiteral("close"));
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    setTabOrder(m_invite, m_close);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch(1);
    buttons->addWidget(m_invite);
    buttons->addWidget(m_close);
    return buttons;
}

void CPembaTeamInfo::fill()
{
    const CustomerChannels::Channel *channel = CustomerChannels::instance().find(m_jid);
    FriendData account;
    VcardInfo profile;
    const bool isFriend = ctx().friendData(m_jid, &account);
    const bool hasProfile = ctx().vcard(m_jid, &profile);
    account.jid = m_jid;
    QString name = channel ? displayText(channel->data.name) : QString();
    if (name.isEmpty())
        name = isFriend || hasProfile ? contactDisplayName(account, profile)
                                      : QObject::tr("pembateam");
    m_name->setText(name);
    QString picture = channel ? channel->picture : QString();
    if (picture.isEmpty())
        picture = ctx().headPath(m_jid);
    if (picture.isEmpty())
        picture = resourcePath(portrait());
    m_avatar->setPixmap(
        AvatarStore::instance().avatar(picture, m_jid, name, AvatarSize, devicePixelRatioF()));
    m_welcome->setText(QObject::tr("welcomeuseim"));
    m_caption->setText(QObject::tr("clickToLookup"));
    m_code->setAccessibleName(m_caption->text());
    m_invite->setText(QObject::tr("invitechat"));
    m_close->setText(QObject::tr("close"));
}

void CPembaTeamInfo::showCode()
{
    FriendUIEventProcess::showPicture(m_jid, resourcePath(codePicture()));
}

void CPembaTeamInfo::invite()
{
    const QString jid = m_jid;
    const bool isChannel = CustomerChannels::instance().find(jid) != nullptr;
    accept();
    FriendUIEventProcess::openChat(jid, isChannel ? MessageData::Channel : MessageData::Person);
}

void CPembaTeamInfo::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        fill();
}
