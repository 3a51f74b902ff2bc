#include "detail/avatar/sysavatartable.h"

#include "controls/pictures.h"
#include "controls/skin.h"
#include "detail/avatar/csysheadlabel.h"
#include "detail/avatar/sysavatardelegate.h"
#include "detail/avatar/systempictures.h"

#include <QHeaderView>
#include <QKeyEvent>

SysAvatarTable::SysAvatarTable(QWidget *parent) : QTableWidget(0, Columns, parent)
{
    setObjectName(QStringLiteral("sysAvatarTable"));
    followSkin(this);
    setItemDelegate(new SysAvatarDelegate(this));
    setFrameShape(QFrame::NoFrame);
    setShowGrid(false);
    setSelectionMode(QAbstractItemView::NoSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    setTabKeyNavigation(false); // Tab leads on in the dialog
    setMouseTracking(true);     // for the mark under the pointer
    horizontalHeader()->hide();
    horizontalHeader()->setMinimumSectionSize(CellSide);
    horizontalHeader()->setDefaultSectionSize(CellSide);
    verticalHeader()->hide();
    verticalHeader()->setMinimumSectionSize(CellSide);
    verticalHeader()->setDefaultSectionSize(CellSide);
    connect(this, &QAbstractItemView::clicked, this, &SysAvatarTable::choose);
    setAccessibleName(QString::fromUtf8("系统头像"));
}

void SysAvatarTable::setNames(const QStringList &names)
{
    clearContents();
    setRowCount((names.size() + Columns - 1) / Columns);
    for (int i = 0; i < rowCount() * Columns; ++i) {
        auto *item = new QTableWidgetItem;
        setItem(i / Columns, i % Columns, item);
        if (i >= names.size()) {
            item->setFlags(Qt::NoItemFlags);
            continue;
        }
        item->setData(SysAvatarDelegate::NameRole, names.at(i));
        item->setData(Qt::AccessibleTextRole, accessibleName() + QStringLiteral(" %1").arg(i + 1));
        setCellWidget(i / Columns, i % Columns, new CSysHeadLabel(names.at(i), this));
    }
    if (!names.isEmpty())
        setCurrentCell(0, 0);
}

void SysAvatarTable::setChosen(const QString &name)
{
    for (int i = 0; i < rowCount() * Columns; ++i) {
        QTableWidgetItem *one = item(i / Columns, i % Columns);
        const bool isChosen =
            !name.isEmpty() && one->data(SysAvatarDelegate::NameRole).toString() == name;
        one->setData(SysAvatarDelegate::ChosenRole, isChosen);
        if (isChosen)
            setCurrentItem(one);
    }
}

QString SysAvatarTable::nameAt(const QModelIndex &index) const
{
    return index.data(SysAvatarDelegate::NameRole).toString();
}

void SysAvatarTable::choose(const QModelIndex &index)
{
    const QString name = nameAt(index);
    if (name.isEmpty())
        return;
    setChosen(name);
    const QString path = SystemPictures::path(name);
    emit sysAvatar_clicked(path, QPixmap(resourcePath(path)));
}

void SysAvatarTable::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(currentIndex());
        break;
    default:
        QTableWidget::keyPressEvent(event);
    }
}

void SysAvatarTable::focusInEvent(QFocusEvent *event)
{
    QTableWidget::focusInEvent(event);
    viewport()->update();
}

void SysAvatarTable::focusOutEvent(QFocusEvent *event)
{
    QTableWidget::focusOutEvent(event);
    viewport()->update();
}
