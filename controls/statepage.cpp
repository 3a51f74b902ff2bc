#include "controls/statepage.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QEvent>
#include <QFile>
#include <QLabel>
#include <QMovie>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int PictureSize = 120;
constexpr int ButtonPadding = 40; // of both sides together

// A label would show a frame of twice the size twice as large.
class Animation : public QWidget
{
public:
    Animation(const QString &picture, QWidget *parent) : QWidget(parent)
    {
        QString twice = picture;
        twice.insert(picture.lastIndexOf(QLatin1Char('.')), QStringLiteral("@2x"));
        const QString sharp = resourcePath(twice);
        const bool isSharp = devicePixelRatioF() > 1 && QFile::exists(sharp);
        m_movie = new QMovie(isSharp ? sharp : resourcePath(picture), QByteArray(), this);
        m_movie->jumpToFrame(0);
        setFixedSize(m_movie->frameRect().size() / (isSharp ? 2 : 1));
        connect(m_movie, &QMovie::updated, this, [this] { update(); });
    }
    QMovie *movie() const { return m_movie; }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawPixmap(rect(), m_movie->currentPixmap());
    }

private:
    QMovie *m_movie;
};
} // namespace

StatePage::StatePage(const char *key, const QString &picture, const char *buttonKey,
                     QWidget *parent)
    : QWidget(parent), m_key(key), m_buttonKey(buttonKey), m_text(new QLabel(this))
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 24);
    layout->setSpacing(12);
    layout->addStretch(2);
    if (!picture.isEmpty()) {
        if (picture.endsWith(QLatin1String(".gif"))) {
            auto *animation = new Animation(picture, this);
            m_movie = animation->movie();
            layout->addWidget(animation, 0, Qt::AlignCenter);
        } else {
            auto *image = new QLabel(this);
            image->setAlignment(Qt::AlignCenter);
            image->setPixmap(loadPicture(picture, PictureSize, devicePixelRatioF()));
            layout->addWidget(image);
        }
    }
    m_text->setTextFormat(Qt::PlainText);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setWordWrap(true);
    m_text->setFont(skinFont(13));
    m_text->setForegroundRole(QPalette::PlaceholderText);
    // By itself: below a widget with a style sheet nothing inherits a palette.
    followSkin(m_text);
    layout->addWidget(m_text);
    if (buttonKey) {
        m_button = new QPushButton(this);
        m_button->setObjectName(QLatin1String(buttonKey));
        m_button->setFont(skinFont(13));
        followSkin(m_button);
        layout->addWidget(m_button, 0, Qt::AlignCenter);
        setFocusProxy(m_button);
        connect(m_button, &QPushButton::clicked, this, &StatePage::buttonClicked);
    }
    layout->addStretch(3);
    retranslate();
}

void StatePage::addBelow(QWidget *widget)
{
    auto *column = static_cast<QVBoxLayout *>(layout());
    column->insertWidget(column->count() - 1, widget, 0, Qt::AlignCenter);
}

void StatePage::showEvent(QShowEvent *event)
{
    if (m_movie)
        m_movie->start();
    QWidget::showEvent(event);
}

void StatePage::hideEvent(QHideEvent *event)
{
    if (m_movie)
        m_movie->stop();
    QWidget::hideEvent(event);
}

void StatePage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}

void StatePage::retranslate()
{
    m_text->setText(QObject::tr(m_key));
    if (!m_button)
        return;
    m_button->setText(QObject::tr(m_buttonKey));
    // A style sheet above takes the style's own padding away.
    m_button->setMinimumWidth(m_button->fontMetrics().horizontalAdvance(m_button->text()) +
                              ButtonPadding);
}
