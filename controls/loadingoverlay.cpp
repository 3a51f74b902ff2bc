#include "controls/loadingoverlay.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMovie>
#include <QPainter>

namespace {
constexpr int MovieSide = 20; // device-independent pixels
constexpr int NoteMargin = 2;

QString movieFile(qreal pixelRatio)
{
    return resourcePath(pixelRatio > 1
                            ? QStringLiteral("Resources/images/SearchFriend/qora_Loading@2x.gif")
                            : QStringLiteral("Resources/images/SearchFriend/qora_Loading.gif"));
}
} // namespace

LoadingOverlay::LoadingOverlay(QWidget *area)
    : QWidget(area),
      m_area(area),
      m_picture(new QLabel(this)),
      m_text(new QLabel(this)),
      m_movie(new QMovie(movieFile(devicePixelRatioF()), QByteArray(), this))
{
    setObjectName(QStringLiteral("widget_loading"));
    hide();
    m_picture->setObjectName(QStringLiteral("label_loading"));
    m_picture->setFixedSize(MovieSide, MovieSide);
    m_text->setTextFormat(Qt::PlainText);
    m_text->setFont(skinFont(12));
    m_text->setForegroundRole(QPalette::PlaceholderText);
    const int pixels = qRound(MovieSide * devicePixelRatioF());
    m_movie->setScaledSize(QSize(pixels, pixels));
    connect(m_movie, &QMovie::frameChanged, this, &LoadingOverlay::showFrame);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(8, 4, 8, 4);
    layout->setSpacing(8);
    layout->addStretch();
    layout->addWidget(m_picture);
    layout->addWidget(m_text);
    layout->addStretch();
    area->installEventFilter(this);
    retranslate();
}

void LoadingOverlay::cover()
{
    m_covers = true;
    present();
}

void LoadingOverlay::note()
{
    m_covers = false;
    present();
}

void LoadingOverlay::present()
{
    // The note is no obstacle to what lies below.
    setAttribute(Qt::WA_TransparentForMouseEvents, !m_covers);
    place();
    show();
    raise();
}

void LoadingOverlay::place()
{
    if (m_covers) {
        setGeometry(m_area->rect());
        return;
    }
    const QSize size = sizeHint();
    setGeometry(m_area->width() - size.width() - NoteMargin, NoteMargin, size.width(),
                size.height());
}

void LoadingOverlay::showFrame()
{
    QPixmap frame = m_movie->currentPixmap();
    frame.setDevicePixelRatio(devicePixelRatioF());
    m_picture->setPixmap(frame);
}

void LoadingOverlay::retranslate()
{
    m_text->setText(QObject::tr("loading"));
    setAccessibleName(m_text->text());
}

void LoadingOverlay::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        retranslate();
        place();
    }
    QWidget::changeEvent(event);
}

bool LoadingOverlay::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_area && event->type() == QEvent::Resize)
        place();
    return QWidget::eventFilter(watched, event);
}

void LoadingOverlay::showEvent(QShowEvent *event)
{
    m_movie->start();
    QWidget::showEvent(event);
}

void LoadingOverlay::hideEvent(QHideEvent *event)
{
    m_movie->stop();
    QWidget::hideEvent(event);
}

void LoadingOverlay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_covers) {
        painter.fillRect(rect(), Skin::instance().colors().background);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Skin::instance().colors().hover);
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
}
