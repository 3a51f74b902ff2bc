#include "ExternalFriend/tiplabel.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QAccessible>
#include <QEvent>
#include <QGraphicsOpacityEffect>
#include <QHBoxLayout>
#include <QLabel>
#include <QPropertyAnimation>
#include <QStyle>

namespace {
constexpr int SignSize = 16; // device-independent pixels
constexpr int TextPixels = 12;
constexpr int FadeMs = 250;

const char *signOf(TipLabel::Tone tone)
{
    switch (tone) {
    case TipLabel::Information:
        return "Resources/images/CommonCtrls/qora_dialog_icon_info.png";
    case TipLabel::Success:
        return "Resources/images/CommonCtrls/qora_dialog_icon_success.png";
    case TipLabel::Warning:
        return "Resources/images/CommonCtrls/qora_dialog_icon_fail.png";
    }
    return "";
}
} // namespace

TipLabel::TipLabel(QWidget *parent)
    : QWidget(parent),
      m_sign(new QLabel(this)),
      m_text(new QLabel(this)),
      m_opacity(new QGraphicsOpacityEffect(this)),
      m_fading(new QPropertyAnimation(m_opacity, "opacity", this))
{
    setObjectName(QStringLiteral("TipLabel"));
    m_sign->setObjectName(QStringLiteral("tipSign"));
    m_sign->setFixedSize(SignSize, SignSize);
    m_text->setObjectName(QStringLiteral("tipText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setFont(skinFont(TextPixels));
    followSkin(m_text);
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(6);
    layout->addWidget(m_sign);
    layout->addWidget(m_text, 1);
    setMinimumHeight(qMax(SignSize, m_text->fontMetrics().lineSpacing()));
    QSizePolicy policy = sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    setSizePolicy(policy);

    // Only while it fades: an effect is painted by way of a pixmap.
    m_opacity->setEnabled(false);
    setGraphicsEffect(m_opacity);
    m_fading->setDuration(FadeMs);
    m_fading->setStartValue(1.0);
    m_fading->setEndValue(0.0);
    connect(m_fading, &QPropertyAnimation::finished, this, &TipLabel::clear);
    m_stay.setSingleShot(true);
    connect(&m_stay, &QTimer::timeout, this, &TipLabel::fade);
    hide();
}

QString TipLabel::text() const
{
    return m_fading->state() == QAbstractAnimation::Running ? QString() : m_text->text();
}

void TipLabel::tell(const QString &text, Tone tone, int forMs)
{
    m_fading->stop();
    m_opacity->setEnabled(false);
    m_stay.stop();
    const bool isNews = text != m_text->text();
    m_tone = tone;
    m_text->setText(text);
    setAccessibleName(text);
    showSign();
    setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    if (forMs > 0)
        m_stay.start(forMs);
    if (isNews && QAccessible::isActive()) {
        QAccessibleEvent event(this, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
}

void TipLabel::fade()
{
    // Who wants no moving pictures has told the system.
    if (!isVisible() ||
        style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) == 0) {
        clear();
        return;
    }
    m_opacity->setEnabled(true);
    m_fading->start();
}

void TipLabel::showSign()
{
    m_sign->setPixmap(
        loadPicture(QString::fromLatin1(signOf(m_tone)), SignSize, devicePixelRatioF()));
}

void TipLabel::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::PaletteChange)
        showSign();
    QWidget::changeEvent(event);
}
