#include "virtualteam/noteampage.h"

#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {
constexpr int PictureSize = 120; // device-independent pixels
constexpr int TitlePixels = 15;
constexpr int TextPixels = 13;
constexpr int SideMargin = 24;

QString picturePath()
{
    return QStringLiteral("Resources/images/FriendDetail/ic_VirtualTeam.png");
}
} // namespace

NoTeamPage::NoTeamPage(QWidget *parent)
    : QWidget(parent),
      m_title(addLine(TitlePixels)),
      m_explanation(addLine(TextPixels)),
      m_hint(addLine(TextPixels)),
      m_create(new SkinButton(SkinButton::Primary, QString(), this))
{
    setObjectName(QStringLiteral("noVirtualTeamPage"));
    m_title->setObjectName(QStringLiteral("noVirtualTeamTip"));
    m_explanation->setObjectName(QStringLiteral("noVirtualTeamTip2"));
    m_hint->setObjectName(QStringLiteral("noVirtualTeamTip3"));
    for (QLabel *label : {m_explanation, m_hint})
        label->setForegroundRole(QPalette::PlaceholderText);
    m_create->setObjectName(QStringLiteral("addVirtualTeamButton"));
    auto *picture = new QLabel(this);
    picture->setAlignment(Qt::AlignCenter);
    picture->setPixmap(loadPicture(picturePath(), PictureSize, devicePixelRatioF()));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(SideMargin, SideMargin, SideMargin, SideMargin);
    layout->setSpacing(8);
    layout->addStretch(2);
    layout->addWidget(picture);
    layout->addSpacing(4);
    layout->addWidget(m_title);
    layout->addWidget(m_explanation);
    layout->addWidget(m_hint);
    layout->addSpacing(8);
    layout->addWidget(m_create, 0, Qt::AlignCenter);
    layout->addStretch(3);
    connect(m_create, &QPushButton::clicked, this, &NoTeamPage::createClicked);
    retranslate();
}

QLabel *NoTeamPage::addLine(int pixels)
{
    auto *label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setFont(skinFont(pixels));
    // By itself: below a widget with a style sheet nothing inherits a palette.
    followSkin(label);
    return label;
}

void NoTeamPage::retranslate()
{
    m_title->setText(QObject::tr("noVirtualTeamTip"));
    m_explanation->setText(QObject::tr("noVirtualTeamTip2"));
    m_hint->setText(QObject::tr("noVirtualTeamTip3"));
    m_create->setText(QObject::tr("create"));
}

void NoTeamPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
