#include "servicenum/cservicenotable.h"

#include "servicenum/servicemenu.h"
#include "servicenum/servicenumlistdelegate.h"
#include "servicenum/servicenummodel.h"
#include "servicenum/servicenumroles.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <utility>

CServiceNoTable::CServiceNoTable(QWidget *parent) : CServiceNoTable(new ServiceNumModel, parent) {}

CServiceNoTable::CServiceNoTable(ServiceNumModel *model, QWidget *parent)
    : RowView(model, ServiceRole::Name, parent), m_model(model), m_menu(new ServiceMenu(this))
{
    setObjectName(QStringLiteral("CServiceNoTable"));
    model->setParent(this);
    setItemDelegate(new ServiceNumListDelegate(ServiceNumListDelegate::NoButtons, this));
    setSelectionMode(SingleSelection);
    connect(this, &RowView::orderHeld, model, [model](bool held) { model->setOrderFrozen(held); });
    connect(this, &RowView::activatedRow, this, [this](const QModelIndex &row) {
        emit signal_showServiceNumInfo(row.data(ServiceRole::Id).toString());
    });
    // The menu is about a row.
    connect(model, &QAbstractItemModel::rowsRemoved, m_menu, [this] {
        if (!m_model->indexOf(m_menu->number()).isValid())
            m_menu->close();
    });
    connect(model, &QAbstractItemModel::modelReset, m_menu, &QWidget::close);
}

void CServiceNoTable::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    const QPoint position = menuPosition(*event);
    const QModelIndex row = indexAt(position);
    if (!row.isValid())
        return;
    m_menu->setNumber(row.data(ServiceRole::Id).toString());
    popUp(m_menu, position);
}

void CServiceNoTable::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Delete && currentIndex().isValid()) {
        emit signal_unsubscribeServiceNum(currentIndex().data(ServiceRole::Id).toString());
        return;
    }
    RowView::keyPressEvent(event);
}

void CServiceNoTable::mousePressEvent(QMouseEvent *event)
{
    m_pressedRow = event->button() == Qt::LeftButton ? indexAt(event->pos()) : QModelIndex();
    RowView::mousePressEvent(event);
}

void CServiceNoTable::mouseReleaseEvent(QMouseEvent *event)
{
    const QPersistentModelIndex pressed = std::exchange(m_pressedRow, QPersistentModelIndex());
    RowView::mouseReleaseEvent(event);
    if (event->button() == Qt::LeftButton && pressed.isValid() && pressed == indexAt(event->pos()))
        emit signal_showServiceNumInfo(pressed.data(ServiceRole::Id).toString());
}

// The first of the two clicks has opened the number's window.
void CServiceNoTable::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
}
