#include "detail/headbutton.h"

#include "controls/avatarstore.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QEvent>
#include <QPainter>

namespace {
constexpr int MarkSide = 18; // device-independent pixels
}

HeadButton::HeadButton(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(QStringLiteral("head"));
    setFixedSize(Side, Side);
    setPicture(QString());
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this,
            [this](const QString &file) {
                if (file == m_file)
                    update();
            });
}

void HeadButton::setPerson(const QString &jid, const QString &name)
{
    m_jid = jid;
    m_name = name;
    setAccessibleName(name);
    update();
}

void HeadButton::setPicture(const QString &file)
{
    m_file = file;
    const bool clickable = !file.isEmpty();
    setFocusPolicy(clickable ? Qt::StrongFocus : Qt::NoFocus);
    setAttribute(Qt::WA_TransparentForMouseEvents, !clickable);
    setCursor(clickable ? Qt::PointingHandCursor : Qt::ArrowCursor);
    retranslate();
    update();
}

void HeadButton::setPresence(const PresenceData &presence)
{
    m_presence = presence;
    update();
}

void HeadButton::retranslate()
{
    setToolTip(m_file.isEmpty() ? QString() : QObject::tr("clickToLookup"));
}

void HeadButton::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QAbstractButton::changeEvent(event);
}

void HeadButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawPixmap(
        0, 0, AvatarStore::instance().avatar(m_file, m_jid, m_name, Side, devicePixelRatioF()));
    if (hasFocus()) {
        painter.setPen(QPen(Skin::instance().colors().theme, 2));
        painter.drawEllipse(QRectF(rect()).adjusted(1, 1, -1, -1));
    }
    RowPainter::drawPresence(&painter, QRectF(Side - MarkSide, Side - MarkSide, MarkSide, MarkSide),
                             m_presence);
}
