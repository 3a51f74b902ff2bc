#include "servicenum/addserviceentry.h"

#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QStyleOptionViewItem>

AddServiceEntry::AddServiceEntry(QWidget *parent) : QAbstractButton(parent)
{
    setObjectName(QStringLiteral("addService"));
    setFocusPolicy(Qt::TabFocus);
    setAttribute(Qt::WA_Hover);
    setCursor(Qt::PointingHandCursor);
    setFixedHeight(RowPainter::RowHeight);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
    retranslate();
}

QSize AddServiceEntry::sizeHint() const
{
    return QSize(RowPainter::RowHeight * 4, RowPainter::RowHeight);
}

void AddServiceEntry::retranslate()
{
    setText(QObject::tr("addService"));
    setAccessibleName(text());
    update();
}

void AddServiceEntry::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QAbstractButton::changeEvent(event);
}

void AddServiceEntry::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        QAbstractButton::keyPressEvent(event);
        return;
    }
    event->accept();
    click();
}

void AddServiceEntry::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    QStyleOptionViewItem option;
    option.initFrom(this);
    option.rect = rect();
    option.state.setFlag(QStyle::State_Selected, isDown());
    option.state.setFlag(QStyle::State_MouseOver, underMouse());
    RowPainter row(&painter, option);
    row.background();
    row.avatar(loadPicture(QStringLiteral("Resources/images/icon/addServiceNo.png"),
                           RowPainter::AvatarSize, devicePixelRatioF()),
               false);
    row.texts(text(), QString(), false);
}
