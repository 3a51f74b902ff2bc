#include "controls/mydrag.h"

#include <QMimeData>
#include <QPointer>
#include <QWidget>

MyDrag::MyDrag(QWidget *source) : QDrag(source)
{
    auto *marker = new QMimeData;
    marker->setData(QStringLiteral("application/x-friendui-contacts"), QByteArray("1"));
    setMimeData(marker);
}

void MyDrag::setTarget(const QString &groupId)
{
    m_taken = true;
    m_target = groupId;
}

void MyDrag::run()
{
    // The view, and this with it, may be destroyed while the drag runs.
    const QPointer<MyDrag> alive(this);
    exec(Qt::MoveAction);
    if (!alive)
        return;
    emit signal_dropEnd(m_taken, m_target);
}

bool MyDrag::isFrom(const QDropEvent *event, const QWidget *viewport)
{
    return event->source() && viewport && event->source() == viewport->parentWidget();
}
