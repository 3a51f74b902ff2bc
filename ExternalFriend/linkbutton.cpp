#include "ExternalFriend/linkbutton.h"

#include "controls/skin.h"

#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int TextPixels = 13;
constexpr int SidePadding = 4; // room for the focus frame
constexpr int Radius = 3;
} // namespace

LinkButton::LinkButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
{
    setAutoDefault(false);
    setFlat(true);
    setFont(skinFont(TextPixels));
    setCursor(Qt::PointingHandCursor);
    setAttribute(Qt::WA_Hover);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
}

QSize LinkButton::sizeHint() const
{
    return QSize(fontMetrics().horizontalAdvance(text()) + 2 * SidePadding,
                 fontMetrics().height() + SidePadding);
}

void LinkButton::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QPushButton::keyPressEvent(event);
        return;
    }
    event->accept();
    click(); // may be the end of this button
}

void LinkButton::paintEvent(QPaintEvent *)
{
    const Skin::Colors &colors = Skin::instance().colors();
    QPainter painter(this);
    QFont shown = font();
    shown.setUnderline(underMouse() || hasFocus());
    painter.setFont(shown);
    painter.setPen(isDown() ? colors.text : colors.theme);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
    if (hasFocus()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    }
}
