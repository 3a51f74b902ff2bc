#include "controls/rowview.h"

#include "controls/avatarstore.h"
#include "controls/cardhover.h"
#include "controls/scrollanchor.h"
#include "controls/skin.h"
#include "controls/slimscrollbar.h"
#include "controls/typefinder.h"
#include "plugin/paneactions.h"

#include <QAccessible>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScrollBar>
#include <QToolTip>
#include <QWheelEvent>

#include <utility>

namespace {
// A pointer that rests over the list this long no longer holds up the order.
constexpr int PointerAtRestMs = 30000;
constexpr int ScrollStep = 22; // pixels
} // namespace

RowView::RowView(QAbstractItemModel *model, int nameRole, QWidget *parent)
    : QTreeView(parent),
      m_anchor(new ScrollAnchor(this, model)),
      m_finder(new TypeFinder(this, nameRole))
{
    setModel(model);
    setHeaderHidden(true);
    // The header is never seen, but would look up its section for every change.
    disconnect(model, &QAbstractItemModel::dataChanged, header(), nullptr);
    header()->setStretchLastSection(true);
    setUniformRowHeights(true);
    setIndentation(0);
    setRootIsDecorated(false);
    setExpandsOnDoubleClick(false);
    setEditTriggers(NoEditTriggers);
    setVerticalScrollMode(ScrollPerPixel);
    useSlimScrollBar(this);
    verticalScrollBar()->setSingleStep(ScrollStep);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFrameShape(NoFrame);
    setMouseTracking(true);
    followSkin(this);

    m_pointerAtRest.setSingleShot(true);
    m_pointerAtRest.setInterval(PointerAtRestMs);
    connect(&m_pointerAtRest, &QTimer::timeout, this, &RowView::updateHold);
    connect(m_finder, &TypeFinder::found, this, [this](const QModelIndex &index) {
        reveal(index);
        // Clear of the typed text, which stands over the last rows.
        if (visualRect(index).bottom() > viewport()->height() - 2 * visualRect(index).height())
            scrollTo(index, PositionAtCenter);
    });
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, viewport(),
            QOverload<>::of(&QWidget::update));
    CardHover *hover = &CardHover::instance();
    connect(hover, &CardHover::cardChanged, this, &RowView::updateHold);
    connect(hover, &CardHover::cardWanted, this,
            [this](const QAbstractItemView *list, const QModelIndex &row) {
                if (list == this)
                    showCard(row);
            });
    connect(this, &QTreeView::collapsed, this, [this, hover] { hover->cancel(this); });
}

RowView::~RowView()
{
    CardHover::instance().disconnect(this);
    CardHover::instance().cancel(this);
    releaseMenus();
}

void RowView::releaseMenus()
{
    const auto menus = findChildren<QMenu *>(QString(), Qt::FindDirectChildrenOnly);
    for (QMenu *menu : menus) {
        menu->disconnect(this);
        menu->setParent(nullptr, menu->windowFlags());
        menu->deleteLater();
    }
}

void RowView::reveal(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    // Opening a row may bring others in above this one.
    const QPersistentModelIndex row(index);
    for (QPersistentModelIndex above = index.parent(); above.isValid(); above = above.parent())
        setExpanded(above, true);
    selectionModel()->setCurrentIndex(row, QItemSelectionModel::ClearAndSelect);
    scrollTo(row);
}

void RowView::doItemsLayout()
{
    QTreeView::doItemsLayout();
    m_anchor->restore();
}

void RowView::dataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                          const QVector<int> &roles)
{
    // Who listens to a screen reader hears of each change.
    if (QAccessible::isActive())
        QTreeView::dataChanged(topLeft, bottomRight, roles);
    // The base class would search the row on screen, which takes time in
    // proportion to the rows for each change. One repaint a frame is cheaper.
    viewport()->update();
}

void RowView::keyboardSearch(const QString &search)
{
    m_finder->type(search);
}

void RowView::keyPressEvent(QKeyEvent *event)
{
    if (openDetail(*event) || m_finder->handleKey(event))
        return;
    if ((event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) &&
        currentIndex().isValid()) {
        emit activatedRow(currentIndex());
        return;
    }
    if (event->key() == Qt::Key_Escape && selectionModel()->selectedRows().size() > 1) {
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
        return;
    }
    QTreeView::keyPressEvent(event);
}

void RowView::mousePressEvent(QMouseEvent *event)
{
    m_finder->clear();
    m_pressed = indexAt(event->pos());
    if (!m_pressed->isValid())
        clearSelection();
    QTreeView::mousePressEvent(event);
}

void RowView::mouseDoubleClickEvent(QMouseEvent *event)
{
    const QModelIndex index = indexAt(event->pos());
    if (event->button() != Qt::LeftButton || !index.isValid())
        QTreeView::mouseDoubleClickEvent(event);
    else if (m_pressed && *m_pressed != index)
        mousePressEvent(event); // another row has come under the pointer
    else
        emit activatedRow(index);
}

void RowView::resizeEvent(QResizeEvent *event)
{
    QTreeView::resizeEvent(event);
    m_finder->place();
}

void RowView::scrollContentsBy(int dx, int dy)
{
    QTreeView::scrollContentsBy(dx, dy);
    m_finder->place();
    CardHover::instance().cancel(this);
    CardHover::instance().pointerOn(this, QModelIndex(), QString());
}

// The base class turns input methods off for rows that are not editable; typing to
// find needs them.
void RowView::focusInEvent(QFocusEvent *event)
{
    QTreeView::focusInEvent(event);
    setAttribute(Qt::WA_InputMethodEnabled);
}

void RowView::currentChanged(const QModelIndex &current, const QModelIndex &previous)
{
    QTreeView::currentChanged(current, previous);
    setAttribute(Qt::WA_InputMethodEnabled);
}

void RowView::focusOutEvent(QFocusEvent *event)
{
    QTreeView::focusOutEvent(event);
    m_finder->clear();
}

// --- The pointer ---------------------------------------------------------------------

QString RowView::cardJid(const QModelIndex &) const
{
    return QString();
}

void RowView::showCard(const QModelIndex &index)
{
    PaneActions *actions = paneActions();
    const QString jid = index.isValid() ? cardJid(index) : QString();
    if (!actions || jid.isEmpty())
        return;
    const QRect row = visualRect(index) & viewport()->rect();
    const bool toTheLeft = isRightToLeft();
    const QPoint edge(toTheLeft ? row.left() : row.right() + 1, row.top());
    const QPoint place = viewport()->mapToGlobal(edge);
    QToolTip::hideText(); // of a row that was passed before
    actions->showContactCard(jid, place.x(), place.y(), row.width(), toTheLeft);
}

void RowView::pointerAt(const QPoint &viewportPosition)
{
    const QModelIndex index = indexAt(viewportPosition);
    CardHover::instance().pointerOn(this, index, index.isValid() ? cardJid(index) : QString());
}

bool RowView::openDetail(const QKeyEvent &event)
{
    if (event.key() != Qt::Key_I || event.modifiers() != Qt::ControlModifier)
        return false;
    PaneActions *actions = paneActions();
    const QModelIndex current = currentIndex();
    const QString jid = current.isValid() ? cardJid(current) : QString();
    if (actions && !jid.isEmpty() && actions->canOpenContactDetail())
        actions->openContactDetail(jid);
    return true;
}

bool RowView::viewportEvent(QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove:
        if (static_cast<QMouseEvent *>(event)->buttons() == Qt::NoButton)
            pointerAt(static_cast<QMouseEvent *>(event)->pos());
        m_pointerAtRest.start();
        updateHold();
        break;
    case QEvent::Enter:
    case QEvent::HoverMove:
        m_pointerAtRest.start();
        updateHold();
        [[fallthrough]];
    case QEvent::HoverEnter:
    case QEvent::HoverLeave:
        // Otherwise a layout that is due happens while the base class holds a reference to
        // the row under the pointer, which goes when a scroll bar's coming or going sends
        // the next of these events.
        executeDelayedItemsLayout();
        break;
    case QEvent::Leave:
        m_pointerAtRest.stop();
        updateHold();
        CardHover::instance().pointerOn(this, QModelIndex(), QString());
        executeDelayedItemsLayout(); // as above
        break;
    case QEvent::Wheel: {
        // The row that comes to be under the pointer is rested on anew.
        const bool result = QTreeView::viewportEvent(event);
        pointerAt(static_cast<QWheelEvent *>(event)->position().toPoint());
        return result;
    }
    case QEvent::ToolTip:
        // The card tells more, and a tip would lie over the row.
        if (CardHover::instance().isCardOf(this))
            return true;
        break;
    case QEvent::Hide:
    case QEvent::DragEnter:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
        CardHover::instance().cancel(this);
        break;
    default:
        break;
    }
    return QTreeView::viewportEvent(event);
}

QPoint RowView::menuPosition(const QContextMenuEvent &event)
{
    if (event.reason() != QContextMenuEvent::Keyboard) {
        // The event of a scroll area comes in the viewport's coordinates.
        const QModelIndex index = indexAt(event.pos());
        if (index.isValid() && !selectionModel()->isSelected(index))
            selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
        return event.pos();
    }
    if (!currentIndex().isValid())
        return QPoint(-1, viewport()->height());
    scrollTo(currentIndex());
    return visualRect(currentIndex()).center();
}

void RowView::popUp(QMenu *menu, const QPoint &viewportPosition)
{
    m_menu = menu;
    // Queued: the order may change only when the chosen action has run.
    const auto queued = Qt::ConnectionType(Qt::QueuedConnection | Qt::UniqueConnection);
    connect(menu, &QMenu::aboutToHide, this, &RowView::updateHold, queued);
    connect(menu, &QObject::destroyed, this, &RowView::updateHold, queued);
    menu->popup(viewport()->mapToGlobal(viewportPosition));
    updateHold();
}

void RowView::updateHold()
{
    const bool menuOpen = m_menu && m_menu->isVisible();
    const bool held = m_pointerAtRest.isActive() || menuOpen || isHolding() ||
                      CardHover::instance().isCardOf(this);
    if (held != std::exchange(m_held, held))
        emit orderHeld(held);
}
