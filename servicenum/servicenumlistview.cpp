#include "servicenum/servicenumlistview.h"

#include "common/logging.h"
#include "servicenum/servicemenu.h"
#include "servicenum/servicenumlistdelegate.h"
#include "servicenum/servicenummodel.h"
#include "servicenum/servicenumroles.h"

#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QToolTip>

#include <utility>

ServiceNumListView::ServiceNumListView(SearchBox *box, QWidget *parent)
    : ServiceNumListView(box, new ServiceNumModel, parent)
{
}

ServiceNumListView::ServiceNumListView(SearchBox *box, ServiceNumModel *model, QWidget *parent)
    : FoundList(box, model, ServiceRole::Name, parent),
      m_model(model),
      m_delegate(new ServiceNumListDelegate(ServiceNumListDelegate::SubscribeButtons, this)),
      m_menu(new ServiceMenu(this))
{
    setObjectName(QStringLiteral("ServiceNumListView"));
    model->setParent(this);
    setItemDelegate(m_delegate);
    setSelectionMode(SingleSelection);
    connect(this, &RowView::activatedRow, this, &ServiceNumListView::showInfo);
    connect(model, &QAbstractItemModel::modelReset, m_menu, &QWidget::close);
}

// --- The buttons -------------------------------------------------------------------------

QRect ServiceNumListView::buttonArea(const QModelIndex &index) const
{
    return m_delegate->buttonArea(visualRect(index), layoutDirection());
}

QModelIndex ServiceNumListView::buttonAt(const QPoint &pos) const
{
    const QModelIndex index = indexAt(pos);
    return index.isValid() && buttonArea(index).contains(pos) ? index : QModelIndex();
}

void ServiceNumListView::setHot(const QModelIndex &index, bool isPressed)
{
    m_delegate->setHot(index, isPressed);
    viewport()->setCursor(index.isValid() ? Qt::PointingHandCursor : Qt::ArrowCursor);
    viewport()->update();
}

void ServiceNumListView::pressButton(const QModelIndex &index)
{
    if (index.data(ServiceRole::Busy).toBool())
        return;
    const QString code = index.data(ServiceRole::Id).toString();
    if (index.data(ServiceRole::State).toBool())
        emit signal_unsubscribeServiceNum(code);
    else
        emit signal_subscribeServiceNum(code);
}

void ServiceNumListView::showInfo(const QModelIndex &index)
{
    if (index.isValid())
        emit signal_showServiceNumInfo(index.data(ServiceRole::Id).toString());
    else
        LOG_ERROR("item is null");
}

// --- Keys and menu -----------------------------------------------------------------------

void ServiceNumListView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Space && currentIndex().isValid()) {
        // A key that is held down presses the button once.
        if (!event->isAutoRepeat())
            pressButton(currentIndex());
        return;
    }
    FoundList::keyPressEvent(event);
}

void ServiceNumListView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint position = menuPosition(*event);
    const QModelIndex row = indexAt(position);
    if (!row.isValid())
        return;
    m_menu->setNumber(row.data(ServiceRole::Id).toString());
    popUp(m_menu, position);
}

// --- Mouse -------------------------------------------------------------------------------

void ServiceNumListView::mousePressEvent(QMouseEvent *event)
{
    const bool isLeft = event->button() == Qt::LeftButton;
    m_pressedButton = isLeft ? buttonAt(event->pos()) : QModelIndex();
    m_pressedRow = isLeft && !m_pressedButton.isValid() ? indexAt(event->pos()) : QModelIndex();
    setHot(m_pressedButton, m_pressedButton.isValid());
    FoundList::mousePressEvent(event);
}

// What is emitted is the last thing that is done: a box or the host may follow.
void ServiceNumListView::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex button = std::exchange(m_pressedButton, QPersistentModelIndex());
    const QPersistentModelIndex row = std::exchange(m_pressedRow, QPersistentModelIndex());
    setHot(buttonAt(event->pos()), false);
    FoundList::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton)
        return;
    if (button.isValid() && button == buttonAt(event->pos()))
        pressButton(button);
    else if (row.isValid() && row == indexAt(event->pos()) && !buttonAt(event->pos()).isValid())
        showInfo(row);
}

void ServiceNumListView::mouseMoveEvent(QMouseEvent *event)
{
    FoundList::mouseMoveEvent(event);
    const QModelIndex button = buttonAt(event->pos());
    const bool isPressed = m_pressedButton.isValid() && button == m_pressedButton;
    if (button != m_delegate->hot() || m_pressedButton.isValid())
        setHot(button, isPressed);
}

// The first of the two clicks has done what there was to do.
void ServiceNumListView::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}

bool ServiceNumListView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex button = buttonAt(help->pos());
        if (button.isValid()) {
            QToolTip::showText(help->globalPos(), ServiceNumListDelegate::buttonToolTip(button),
                               viewport(), buttonArea(button));
            return true;
        }
    }
    const bool isLeave = event->type() == QEvent::Leave;
    const bool result = FoundList::viewportEvent(event);
    if (isLeave)
        setHot(QModelIndex(), false);
    return result;
}
