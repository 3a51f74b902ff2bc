#include "host/panearea.h"

#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int PaneWidth = 380;

// A plug pulled out of its socket, in one colour.
QPixmap disconnectedPicture(const QColor &colour, qreal ratio)
{
    constexpr int Size = 64;
    QPixmap pixmap(QSize(Size, Size) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, 3.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRoundedRect(QRectF(4, 20, 20, 24), 5, 5);
    painter.drawLine(QPointF(24, 27), QPointF(31, 27));
    painter.drawLine(QPointF(24, 37), QPointF(31, 37));
    painter.drawRoundedRect(QRectF(40, 20, 20, 24), 5, 5);
    painter.drawLine(QPointF(34, 10), QPointF(31, 4));
    painter.drawLine(QPointF(36, 54), QPointF(39, 60));
    return pixmap;
}

} // namespace

PaneArea::PaneArea(QWidget *parent) : QStackedWidget(parent)
{
    setObjectName(QStringLiteral("paneArea"));
    setMinimumWidth(280);
    addWidget(buildErrorPage());
    retranslate();
}

QSize PaneArea::sizeHint() const
{
    return {PaneWidth, 640};
}

QWidget *PaneArea::buildErrorPage()
{
    auto *page = new QWidget(this);
    page->setObjectName(QStringLiteral("paneErrorPage"));
    page->setAutoFillBackground(true);
    page->setBackgroundRole(QPalette::Base);
    m_picture = new QLabel(page);
    m_picture->setAlignment(Qt::AlignCenter);
    paintPicture();
    m_title = new QLabel(page);
    m_text = new QLabel(page);
    m_file = new QLabel(page);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.25);
    large.setBold(true);
    m_title->setFont(large);
    m_file->setForegroundRole(QPalette::PlaceholderText);
    m_retry = new QPushButton(page);
    m_retry->setObjectName(QStringLiteral("paneRetry"));
    m_choose = new QPushButton(page);
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(28, 20, 28, 20);
    layout->setSpacing(12);
    layout->addStretch(2);
    layout->addWidget(m_picture);
    for (QLabel *label : {m_title, m_text, m_file}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignCenter);
        label->setWordWrap(true);
        layout->addWidget(label);
    }
    layout->addSpacing(4);
    layout->addWidget(m_retry, 0, Qt::AlignCenter);
    layout->addWidget(m_choose, 0, Qt::AlignCenter);
    layout->addStretch(3);
    connect(m_retry, &QPushButton::clicked, this, &PaneArea::retryWanted);
    connect(m_choose, &QPushButton::clicked, this, &PaneArea::chooseFile);
    return page;
}

void PaneArea::setPane(QWidget *pane)
{
    m_pane = pane;
    addWidget(pane);
    setCurrentWidget(pane);
}

void PaneArea::setProblem(const QString &file, const QString &problem)
{
    m_text->setText(problem);
    // A path has no blanks to break at; a break may stand behind every slash.
    QString shown = file;
    m_file->setText(shown.replace(QLatin1Char('/'), QStringLiteral("/\u200b")));
    setCurrentIndex(0);
}

void PaneArea::chooseFile()
{
    const QString file = QFileDialog::getOpenFileName(this, m_choose->text(), QString(),
                                                      tr("Plug-in modules (*.so *.dll *.dylib)"));
    if (!file.isEmpty())
        emit fileChosen(file);
}

void PaneArea::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    else if (event->type() == QEvent::PaletteChange)
        paintPicture();
    QStackedWidget::changeEvent(event);
}

void PaneArea::paintPicture()
{
    m_picture->setPixmap(
        disconnectedPicture(palette().color(QPalette::PlaceholderText), devicePixelRatioF()));
}

void PaneArea::retranslate()
{
    m_title->setText(tr("The contacts could not be loaded"));
    m_retry->setText(tr("Try again"));
    m_choose->setText(tr("Choose another module…"));
}
