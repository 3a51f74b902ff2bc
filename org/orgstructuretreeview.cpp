#include "org/orgstructuretreeview.h"

#include "common/displaytext.h"
#include "common/logging.h"
#include "controls/skin.h"
#include "controls/typefinder.h"
#include "http/fileservices.h"
#include "org/orgcommands.h"
#include "org/orgstructuremgr.h"
#include "org/orgstructuretreedelegate.h"
#include "org/orgtreemodel.h"
#include "plugin/frienduisignalsender.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QToolTip>

namespace {
constexpr int FlashMs = 1400;
constexpr int AddIntervalMs = 40;
constexpr int FlashWidth = 2;
} // namespace

OrgStructureTreeView::OrgStructureTreeView(QWidget *parent)
    : RowView(new OrgTreeModel, OrgRole::Name, parent),
      m_model(static_cast<OrgTreeModel *>(model())),
      m_commands(new OrgCommands(this))
{
    setObjectName(QStringLiteral("OrgStructureTreeView"));
    m_model->setParent(this);
    m_model->setRecords(&OrgStructureMgr::instance()->elements());
    setItemDelegate(new OrgStructureTreeDelegate(this));
    setSelectionMode(ExtendedSelection);
    // The watermark lies behind the rows.
    viewport()->setAutoFillBackground(false);
    setAccessibleName(QObject::tr("organizationTree"));

    m_loadTimer.setSingleShot(true);
    m_loadTimer.setInterval(LoadTimeout);
    m_addTimer.setSingleShot(true);
    m_addTimer.setInterval(AddIntervalMs);
    m_flash.setDuration(FlashMs);
    m_flash.setStartValue(1.0);
    m_flash.setEndValue(0.0);
    m_flash.setEasingCurve(QEasingCurve::InQuad);
    buildMenus();
    connectSources();
}

// --- Layout ------------------------------------------------------------------

// Else the arrow keys would start at the top again after a loading or failed row, or
// the last row of a department, has gone.
void OrgStructureTreeView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QModelIndex current = currentIndex();
    const bool isAll = start == 0 && end == m_model->rowCount(parent) - 1;
    if (isAll && parent.isValid() && current.parent() == parent) {
        // A row that loads cannot be selected, though its department was opened from it.
        const QModelIndexList selected = selectionModel()->selectedRows();
        const bool isOnly = selected.isEmpty() || selected == QModelIndexList{current};
        selectionModel()->setCurrentIndex(parent, isOnly ? QItemSelectionModel::ClearAndSelect
                                                         : QItemSelectionModel::NoUpdate);
    }
    RowView::rowsAboutToBeRemoved(parent, start, end);
}

void OrgStructureTreeView::paintEvent(QPaintEvent *event)
{
    RowView::paintEvent(event);
    if (!m_flashed.isValid() || m_flash.state() != QAbstractAnimation::Running)
        return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_flash.currentValue().toReal());
    painter.setPen(QPen(Skin::instance().colors().theme, FlashWidth));
    painter.drawRoundedRect(
        visualRect(m_flashed).adjusted(FlashWidth, FlashWidth, -FlashWidth, -FlashWidth), 4, 4);
}

void OrgStructureTreeView::flash(const QModelIndex &index)
{
    m_flashed = index;
    m_flash.stop();
    m_flash.start();
}

void OrgStructureTreeView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange) {
        setAccessibleName(QObject::tr("organizationTree"));
        viewport()->update();
    }
    RowView::changeEvent(event);
}

// --- Selection and activation ------------------------------------------------

QString OrgStructureTreeView::idOf(const QModelIndex &index) const
{
    return index.data(OrgRole::Id).toString();
}

QStringList OrgStructureTreeView::selectedEmployees() const
{
    QStringList uids;
    const QModelIndexList rows = selectionModel()->selectedRows();
    for (const QModelIndex &row : rows) {
        if (m_model->kind(row) == OrgRowKind::Employee)
            uids.append(idOf(row));
    }
    return uids;
}

void OrgStructureTreeView::activate(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    switch (m_model->kind(index)) {
    case OrgRowKind::Department:
        expandItem(index);
        break;
    case OrgRowKind::Employee:
        m_commands->openChat(idOf(index));
        break;
    case OrgRowKind::Failed:
        request(idOf(index.parent()));
        break;
    case OrgRowKind::Loading:
        break;
    }
}

bool OrgStructureTreeView::pressOnPart(const QModelIndex &index, QPoint pos)
{
    using Delegate = OrgStructureTreeDelegate;
    if (!index.isValid())
        return false;
    const QRect row = visualRect(index);
    if (Delegate::hasLocateSign(index) &&
        Delegate::locateArea(row, layoutDirection()).contains(pos)) {
        locateSelf();
        return true;
    }
    if (m_model->kind(index) != OrgRowKind::Department ||
        !Delegate::caretArea(row, Delegate::depth(index), layoutDirection()).contains(pos))
        return false;
    expandItem(index);
    return true;
}

void OrgStructureTreeView::mousePressEvent(QMouseEvent *event)
{
    finder()->clear();
    const QModelIndex index = indexAt(event->pos());
    m_pressTaken = event->button() == Qt::LeftButton && pressOnPart(index, event->pos());
    if (m_pressTaken)
        return;
    RowView::mousePressEvent(event);
}

void OrgStructureTreeView::mouseReleaseEvent(QMouseEvent *event)
{
    // The row under the pointer may be another one by now.
    if (!std::exchange(m_pressTaken, false))
        RowView::mouseReleaseEvent(event);
}

void OrgStructureTreeView::mouseDoubleClickEvent(QMouseEvent *event)
{
    using Delegate = OrgStructureTreeDelegate;
    if (event->button() != Qt::LeftButton) {
        RowView::mouseDoubleClickEvent(event);
        return;
    }
    const QModelIndex index = indexAt(event->pos());
    if (!index.isValid()) {
        LOG_DEBUG("OrgStructureTreeView::mouseDoubleClickEvent(QMouseEvent *event) pCurItem is "
                  "null");
        return;
    }
    const QRect row = visualRect(index);
    const bool onSign = Delegate::hasLocateSign(index) &&
                        Delegate::locateArea(row, layoutDirection()).contains(event->pos());
    const bool onCaret =
        m_model->kind(index) == OrgRowKind::Department &&
        Delegate::caretArea(row, Delegate::depth(index), layoutDirection()).contains(event->pos());
    // The first of the two clicks has done it, also on a row that was to be retried.
    const OrgRowKind kind = m_model->kind(index);
    if (!onSign && !onCaret && (kind == OrgRowKind::Department || kind == OrgRowKind::Employee))
        RowView::mouseDoubleClickEvent(event);
}

void OrgStructureTreeView::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_F5:
        refreshAll();
        return;
    case Qt::Key_Asterisk:
        // The base class would open, and so ask for, everything below at once.
        return;
    default:
        RowView::keyPressEvent(event);
    }
}

// --- Under the pointer ---------------------------------------------------------

bool OrgStructureTreeView::viewportEvent(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto *help = static_cast<QHelpEvent *>(event);
        const QModelIndex index = indexAt(help->pos());
        const QRect sign =
            OrgStructureTreeDelegate::locateArea(visualRect(index), layoutDirection());
        if (OrgStructureTreeDelegate::hasLocateSign(index) && sign.contains(help->pos())) {
            QToolTip::showText(help->globalPos(), toolTipText(QObject::tr("locateToMe")),
                               viewport(), sign);
            return true;
        }
    }
    return RowView::viewportEvent(event);
}

void OrgStructureTreeView::mouseMoveEvent(QMouseEvent *event)
{
    if (!m_pressTaken)
        RowView::mouseMoveEvent(event);
}

QString OrgStructureTreeView::cardJid(const QModelIndex &index) const
{
    return m_model->kind(index) == OrgRowKind::Employee ? makeJid(idOf(index)) : QString();
}
