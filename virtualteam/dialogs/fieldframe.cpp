#include "virtualteam/dialogs/fieldframe.h"

#include "controls/skin.h"

#include <QEvent>
#include <QFrame>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

namespace {
constexpr int LineHeight = 32; // device-independent pixels, as all below
constexpr int Radius = 6;
constexpr int Inset = 4; // clear of the round corners
} // namespace

FieldFrame::FieldFrame(QWidget *field, QWidget *parent) : QWidget(parent), m_field(field)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(1, Inset, 1, Inset);
    layout->addWidget(field);
    if (auto *line = qobject_cast<QLineEdit *>(field)) {
        line->setFrame(false);
        layout->setContentsMargins(Inset, 1, Inset, 1);
        setFixedHeight(LineHeight);
    }
    if (auto *area = qobject_cast<QFrame *>(field))
        area->setFrameShape(QFrame::NoFrame);
    field->installEventFilter(this);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
}

bool FieldFrame::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut)
        update();
    return QWidget::eventFilter(watched, event);
}

void FieldFrame::paintEvent(QPaintEvent *)
{
    const Skin::Colors &colors = Skin::instance().colors();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(m_field->hasFocus() ? colors.theme : colors.border);
    painter.setBrush(colors.background);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
}
