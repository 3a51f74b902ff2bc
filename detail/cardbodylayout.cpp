// How the card's widgets are made and laid out.
#include "controls/loadingoverlay.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/valuelabel.h"
#include "detail/cardbody.h"
#include "detail/detailrows.h"
#include "detail/headbutton.h"
#include "detail/nameedit.h"
#include "detail/personpicture.h"
#include "http/fileservices.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {
constexpr int Margin = 20; // device-independent pixels, as all below
constexpr int BodyWidth = 400;
constexpr int IconSide = 16;
constexpr int LineHeight = 30; // of the signature and of the reload line

QString glyph(const char *name)
{
    return QStringLiteral("Resources/images/icon/glyph_%1.png").arg(QLatin1String(name));
}

QLabel *iconLabel(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setFixedSize(IconSide, IconSide);
    label->hide();
    return label;
}

QWidget *line(QWidget *parent)
{
    auto *rule = new QFrame(parent);
    rule->setFrameShape(QFrame::HLine);
    rule->setFrameShadow(QFrame::Plain);
    rule->setForegroundRole(QPalette::Mid);
    rule->setFixedHeight(1);
    return rule;
}
} // namespace

CardBody::CardBody(QWidget *parent) : QWidget(parent)
{
    // Behind everything else, not around it: what lies below a widget with a style
    // sheet is styled, too, and slow to make.
    m_background = new QWidget(this);
    m_background->setObjectName(QStringLiteral("widget_5"));
    setFixedWidth(BodyWidth);
    m_patience.setSingleShot(true);
    m_patience.setInterval(DefaultReplyTimeLimit);
    connect(&m_patience, &QTimer::timeout, this, &CardBody::showFailure);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this,
            [this](const QString &name, const QString &file) {
                if (name == pictureName(m_profile))
                    takePicture(m_jid, file);
            });

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Margin, 16, Margin, Margin);
    layout->setSpacing(0);
    layout->addWidget(makeHeader());
    layout->addSpacing(10);
    layout->addWidget(makeSignatureLine());
    layout->addSpacing(10);
    layout->addWidget(line(this));
    layout->addSpacing(10);
    layout->addWidget(makeHeading());
    layout->addSpacing(4);
    m_rows = new DetailRows(this);
    connect(m_rows, &DetailRows::remarkClicked, this, &CardBody::remarkClicked);
    connect(m_rows, &DetailRows::leaderClicked, this, &CardBody::leaderClicked);
    m_loading = new LoadingOverlay(m_rows);
    layout->addWidget(m_rows);
    layout->addSpacing(16);
    layout->addWidget(makeButtons());
    layout->addStretch(1);
    retranslate();
    setJid(QString());
}

QWidget *CardBody::makeHeader()
{
    auto *header = new QWidget(this);
    m_head = new HeadButton(header);
    connect(m_head, &QAbstractButton::clicked, this, &CardBody::pictureClicked);
    m_name = new NameEdit(header);
    m_name->setObjectName(QStringLiteral("name"));
    m_sex = iconLabel("sex", header);
    m_cooperateIcon = iconLabel("lblCooperateIcon", header);
    m_outsideIcon = iconLabel("lblOutsideIcon", header);
    m_admin = new QLabel(header);
    m_admin->setObjectName(QStringLiteral("lblAdmin"));
    m_admin->setTextFormat(Qt::PlainText);
    m_admin->setFont(skinFont(11));
    m_admin->hide();
    m_account = new ValueLabel(header);
    m_account->setObjectName(QStringLiteral("lblAccount"));
    m_account->setFont(skinFont(12));
    m_account->setQuiet(true);
    m_presenceText = new QLabel(header);
    m_presenceText->setObjectName(QStringLiteral("lblPresence"));
    m_presenceText->setTextFormat(Qt::PlainText);
    m_presenceText->setFont(skinFont(12));
    m_presenceText->setForegroundRole(QPalette::PlaceholderText);
    m_topic = new SkinButton(SkinButton::Flat, glyph("topic"), header);
    m_topic->setObjectName(QStringLiteral("topicBtn"));
    connect(m_topic, &QPushButton::clicked, this, &CardBody::topicClicked);
    m_position = new SkinButton(SkinButton::Flat, glyph("locate"), header);
    m_position->setObjectName(QStringLiteral("btnPosition"));
    connect(m_position, &QPushButton::clicked, this, &CardBody::positionClicked);

    auto *nameLine = new QHBoxLayout;
    nameLine->setSpacing(6);
    for (QWidget *part :
         {static_cast<QWidget *>(m_name), static_cast<QWidget *>(m_sex),
          static_cast<QWidget *>(m_cooperateIcon), static_cast<QWidget *>(m_outsideIcon)})
        nameLine->addWidget(part, 0, Qt::AlignVCenter);
    nameLine->addStretch(1);
    // Where it takes no room from the name.
    auto *presenceLine = new QHBoxLayout;
    presenceLine->setSpacing(8);
    presenceLine->addWidget(m_presenceText, 0, Qt::AlignVCenter);
    presenceLine->addWidget(m_admin, 0, Qt::AlignVCenter);
    presenceLine->addStretch(1);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(2);
    texts->addStretch(1);
    texts->addLayout(nameLine);
    texts->addWidget(m_account);
    texts->addLayout(presenceLine);
    texts->addStretch(1);

    auto *layout = new QHBoxLayout(header);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(4);
    layout->addWidget(m_head);
    layout->addSpacing(10);
    layout->addLayout(texts, 1);
    layout->addWidget(m_topic, 0, Qt::AlignTop);
    layout->addWidget(m_position, 0, Qt::AlignTop);
    return header;
}

QWidget *CardBody::makeSignatureLine()
{
    m_signatureStack = new QStackedWidget(this);
    m_signatureStack->setObjectName(QStringLiteral("signalStackedWidget"));
    m_signatureStack->setFixedHeight(LineHeight);

    m_signaturePage = new QWidget(m_signatureStack);
    m_signaturePage->setObjectName(QStringLiteral("qianmingWidget"));
    m_signature = new ValueLabel(m_signaturePage);
    m_signature->setObjectName(QStringLiteral("qianming"));
    m_signature->setTextWhenEmpty(QStringLiteral("---"));
    m_signature->setFont(skinFont(13));
    m_signature->setQuiet(true);
    auto *signatureLayout = new QHBoxLayout(m_signaturePage);
    signatureLayout->setContentsMargins(0, 0, 0, 0);
    signatureLayout->addWidget(m_signature);
    m_signatureStack->addWidget(m_signaturePage);

    m_reloadPage = new QWidget(m_signatureStack);
    m_reloadPage->setObjectName(QStringLiteral("reloadWidget"));
    m_reloadPage->setAttribute(Qt::WA_StyledBackground);
    m_reload = new QPushButton(QString::fromUtf8("联系人资料更新失败，点击重试"), m_reloadPage);
    m_reload->setObjectName(QStringLiteral("btnReLoad"));
    m_reload->setIcon(
        loadPicture(glyph("refresh"), IconSide, devicePixelRatioF(), QColor(255, 134, 90)));
    m_reload->setAutoDefault(false);
    m_reload->setCursor(Qt::PointingHandCursor);
    connect(m_reload, &QPushButton::clicked, this, &CardBody::reloadClicked);
    auto *reloadLayout = new QHBoxLayout(m_reloadPage);
    reloadLayout->setContentsMargins(4, 0, 4, 0);
    reloadLayout->addWidget(m_reload, 1);
    m_signatureStack->addWidget(m_reloadPage);
    return m_signatureStack;
}

QWidget *CardBody::makeHeading()
{
    auto *heading = new QWidget(this);
    m_heading = new QLabel(heading);
    m_heading->setObjectName(QStringLiteral("lblEnterprise"));
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setFont(skinFont(13, QFont::DemiBold));
    m_company = new ValueLabel(heading);
    m_company->setObjectName(QStringLiteral("companyName"));
    m_company->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_company->setFont(skinFont(12));
    m_company->setQuiet(true);
    auto *layout = new QHBoxLayout(heading);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addWidget(m_heading);
    layout->addWidget(m_company, 1);
    return heading;
}

QWidget *CardBody::makeButtons()
{
    auto *buttons = new QWidget(this);
    m_sendMail = new SkinButton(SkinButton::Outline, glyph("mail"), buttons);
    m_sendMail->setObjectName(QStringLiteral("btnSendMail"));
    connect(m_sendMail, &QPushButton::clicked, this, &CardBody::mailClicked);
    m_createDialog = new SkinButton(SkinButton::Primary, glyph("chat"), buttons);
    m_createDialog->setObjectName(QStringLiteral("btncreateDialog"));
    connect(m_createDialog, &QPushButton::clicked, this, &CardBody::chatClicked);
    auto *layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addStretch(1);
    layout->addWidget(m_sendMail);
    layout->addWidget(m_createDialog);
    return buttons;
}
