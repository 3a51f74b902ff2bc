#include "detail/avatar/csysheadlabel.h"

#include "controls/pictures.h"
#include "detail/avatar/systempictures.h"

#include <QPainter>

CSysHeadLabel::CSysHeadLabel(const QString &name, QWidget *parent) : QLabel(parent), m_name(name)
{
    // The table around it is what is clicked and has the focus.
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void CSysHeadLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawPixmap((width() - Side) / 2, (height() - Side) / 2,
                       loadRoundPicture(SystemPictures::path(m_name), Side, devicePixelRatioF()));
}
