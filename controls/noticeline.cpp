#include "controls/noticeline.h"

#include "controls/skin.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace {
constexpr int TextPixels = 12;
}

NoticeLine::NoticeLine(QWidget *parent)
    : QWidget(parent), m_text(new QLabel(this)), m_retry(new QPushButton(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 4, 12, 4);
    m_text->setObjectName(QStringLiteral("noticeText"));
    m_text->setTextFormat(Qt::PlainText);
    m_text->setWordWrap(true);
    m_text->setFont(skinFont(TextPixels));
    m_text->setForegroundRole(QPalette::PlaceholderText);
    followSkin(m_text);
    m_retry->setObjectName(QStringLiteral("noticeRetry"));
    m_retry->setFont(skinFont(TextPixels));
    followSkin(m_retry);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_retry);
    connect(m_retry, &QPushButton::clicked, this, &NoticeLine::retryClicked);
    retranslate();
    say(nullptr);
}

void NoticeLine::say(const char *key, bool withRetry)
{
    m_key = key;
    m_retry->setVisible(withRetry);
    m_text->setText(key ? QObject::tr(key) : QString());
    setVisible(key != nullptr);
}

void NoticeLine::retranslate()
{
    m_retry->setText(QObject::tr("retry"));
    if (m_key)
        m_text->setText(QObject::tr(m_key));
}

void NoticeLine::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
