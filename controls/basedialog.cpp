#include "controls/basedialog.h"

#include "controls/skin.h"
#include "controls/skinbutton.h"

#include <QApplication>
#include <QCloseEvent>
#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>

namespace {
constexpr int TitleHeight = 36; // device-independent pixels, as all below
constexpr int Cascade = 24;     // between a dialog and the one it was opened from
} // namespace

BaseDialog::BaseDialog(QWidget *parent)
    : QDialog(parent, Qt::Dialog | Qt::FramelessWindowHint),
      m_titleBar(new QWidget(this)),
      m_title(new QLabel(m_titleBar)),
      m_close(new SkinButton(SkinButton::Flat,
                             QStringLiteral("Resources/images/icon/glyph_close.png"), m_titleBar)),
      m_bodyLayout(new QVBoxLayout)
{
    setAttribute(Qt::WA_DeleteOnClose);
    // The host ends when its own window is closed, and takes the dialogs along.
    setAttribute(Qt::WA_QuitOnClose, false);
    connect(qApp, &QCoreApplication::aboutToQuit, this, &QDialog::reject);
    setModal(false);
    followSkin(this);

    m_titleBar->setObjectName(QStringLiteral("titleWidget"));
    m_titleBar->setFixedHeight(TitleHeight);
    m_titleBar->installEventFilter(this);
    m_title->setObjectName(QStringLiteral("label_title"));
    m_title->installEventFilter(this);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setFont(skinFont(14));
    followSkin(m_title); // a style sheet keeps the dialog's palette from it
    m_title->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_close->setObjectName(QStringLiteral("btnClose"));
    m_close->setFocusPolicy(Qt::TabFocus);
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
    retranslate();
}

QPushButton *BaseDialog::closeButton() const
{
    return m_close;
}

void BaseDialog::setTitleKey(const char *key)
{
    m_titleKey = key;
    retranslate();
}

void BaseDialog::present()
{
    if (!isVisible()) {
        m_focusBefore = QApplication::focusWidget();
        putCloseButtonLast();
        adjustSize();
        place();
    }
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show();
    raise();
    activateWindow();
}

void BaseDialog::putCloseButtonLast()
{
    QWidget *last = previousInFocusChain();
    while (last != this && (last == m_close || last->focusPolicy() == Qt::NoFocus))
        last = last->previousInFocusChain();
    if (last != this)
        setTabOrder(last, m_close);
}

void BaseDialog::place()
{
    const QWidget *over = QApplication::activeWindow();
    if (parentWidget() && !qobject_cast<const BaseDialog *>(over))
        over = parentWidget()->window();
    const QScreen *on = over ? over->screen() : QGuiApplication::primaryScreen();
    const QRect area = on->availableGeometry();
    QRect frame(QPoint(), size());
    frame.moveCenter(over ? over->geometry().center() : area.center());
    if (qobject_cast<const BaseDialog *>(over))
        frame.translate(Cascade, Cascade);
    frame.moveRight(qMin(frame.right(), area.right()));
    frame.moveBottom(qMin(frame.bottom(), area.bottom()));
    frame.moveLeft(qMax(frame.left(), area.left()));
    frame.moveTop(qMax(frame.top(), area.top()));
    move(frame.topLeft());
}

void BaseDialog::done(int result)
{
    // Whoever hears of the end may delete the dialog at once.
    const QPointer<BaseDialog> alive(this);
    const bool hadFocus = isActiveWindow();
    const QPointer<QWidget> focusBefore = m_focusBefore;
    QDialog::done(result);
    if (hadFocus && focusBefore && focusBefore->isVisible()) {
        focusBefore->activateWindow();
        focusBefore->setFocus(Qt::OtherFocusReason);
    }
    if (alive)
        tellClosed();
}

void BaseDialog::closeEvent(QCloseEvent *event)
{
    const QPointer<BaseDialog> alive(this);
    QDialog::closeEvent(event);
    if (alive && event->isAccepted())
        tellClosed();
}

void BaseDialog::tellClosed()
{
    if (m_closed)
        return;
    m_closed = true;
    emit closed();
}

void BaseDialog::retranslate()
{
    m_close->setToolTip(QObject::tr("close"));
    m_close->setAccessibleName(QObject::tr("close"));
    if (m_titleKey)
        setWindowTitle(QObject::tr(m_titleKey));
}

void BaseDialog::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QDialog::changeEvent(event);
}

bool BaseDialog::eventFilter(QObject *watched, QEvent *event)
{
    // A new style sheet of the bar has given its title an older palette back.
    if (watched == m_title && event->type() == QEvent::StyleChange)
        m_title->setPalette(Skin::instance().palette());
    const bool isPress = event->type() == QEvent::MouseButtonPress;
    if (watched != m_titleBar || (!isPress && event->type() != QEvent::MouseMove))
        return QDialog::eventFilter(watched, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    if (isPress && mouse->button() == Qt::LeftButton) {
        m_grab = mouse->globalPos() - frameGeometry().topLeft();
        return true;
    }
    if (!isPress && mouse->buttons().testFlag(Qt::LeftButton)) {
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
