#include "controls/basedialog.h"

#include "controls/skin.h"

#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace {
constexpr int TitleHeight = 36; // device-independent pixels
} // namespace

BaseDialog::BaseDialog(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      m_titleBar(new QWidget(this)),
      m_title(new QLabel(m_titleBar)),
      m_close(new QPushButton(m_titleBar)),
      m_bodyLayout(new QVBoxLayout)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setModal(false);
    followSkin(this);

    m_titleBar->setObjectName(QStringLiteral("titleWidget"));
    m_titleBar->setFixedHeight(TitleHeight);
    m_titleBar->installEventFilter(this);
    m_title->setObjectName(QStringLiteral("label_title"));
    m_title->setTextFormat(Qt::PlainText);
    m_title->setFont(skinFont(14));
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_close->setObjectName(QStringLiteral("btnClose"));
    m_close->setFlat(true);
    m_close->setAutoDefault(false);
    m_close->setFixedSize(28, 28);
    m_close->setText(QString(QChar(0x2715)));
    connect(m_close, &QPushButton::clicked, this, &QDialog::reject);
    connect(this, &QWidget::windowTitleChanged, m_title, &QLabel::setText);

    auto *titleLayout = new QHBoxLayout(m_titleBar);
    titleLayout->setContentsMargins(14, 0, 4, 0);
    titleLayout->addWidget(m_title, 1);
    titleLayout->addWidget(m_close);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, 1, 1, 1);
    layout->setSpacing(0);
    layout->addWidget(m_titleBar);
    layout->addLayout(m_bodyLayout, 1);
}

void BaseDialog::setTitleKey(const char *key)
{
    m_titleKey = key;
    setWindowTitle(QObject::tr(key));
}

void BaseDialog::present()
{
    if (!isVisible()) {
        adjustSize();
        const QWidget *over = parentWidget() ? parentWidget()->window() : nullptr;
        const QScreen *on = over ? over->screen() : QGuiApplication::primaryScreen();
        const QRect area = on->availableGeometry();
        QRect frame(QPoint(), size());
        frame.moveCenter(over ? over->geometry().center() : area.center());
        frame.moveRight(qMin(frame.right(), area.right()));
        frame.moveBottom(qMin(frame.bottom(), area.bottom()));
        frame.moveLeft(qMax(frame.left(), area.left()));
        frame.moveTop(qMax(frame.top(), area.top()));
        move(frame.topLeft());
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void BaseDialog::done(int result)
{
    QDialog::done(result);
    if (m_closed)
        return;
    m_closed = true;
    emit closed();
}

void BaseDialog::closeEvent(QCloseEvent *event)
{
    QDialog::closeEvent(event);
    if (m_closed || !event->isAccepted())
        return;
    m_closed = true;
    emit closed();
}

void BaseDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange && m_titleKey)
        setWindowTitle(QObject::tr(m_titleKey));
    QDialog::changeEvent(event);
}

bool BaseDialog::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_titleBar)
        return QDialog::eventFilter(watched, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (event->type() == QEvent::MouseButtonPress && mouse->button() == Qt::LeftButton) {
        m_grab = mouse->globalPos() - frameGeometry().topLeft();
        return true;
    }
    if (event->type() == QEvent::MouseMove && mouse->buttons().testFlag(Qt::LeftButton)) {
        move(mouse->globalPos() - m_grab);
        return true;
    }
    return QDialog::eventFilter(watched, event);
}

void BaseDialog::paintEvent(QPaintEvent *event)
{
    QDialog::paintEvent(event);
    QPainter painter(this);
    painter.setPen(Skin::instance().colors().border);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
