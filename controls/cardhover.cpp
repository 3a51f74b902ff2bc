#include "controls/cardhover.h"

#include "plugin/paneactions.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QKeyEvent>

#include <utility>

CardHover &CardHover::instance()
{
    // Never destroyed: lists and card may go after the application's statics.
    static auto *hover = new CardHover;
    return *hover;
}

CardHover::CardHover()
{
    m_clock.start();
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &CardHover::step);
}

// --- Steps -------------------------------------------------------------------------

void CardHover::settle()
{
    m_hasCaughtUp = false;
    const qint64 due = m_states.due();
    if (due < 0)
        m_timer.stop();
    else
        m_timer.start(int(qMax(qint64(0), due - now())));
    const bool filters = m_states.state() != HoverStates::Closed;
    if (filters != std::exchange(m_filters, filters)) {
        if (filters)
            qApp->installEventFilter(this);
        else
            qApp->removeEventFilter(this);
    }
    const QAbstractItemView *list = m_states.shown().isEmpty() ? nullptr : m_shown.list;
    if (list != std::exchange(m_listOfCard, list))
        emit cardChanged();
}

void CardHover::step()
{
    // When everything has stood still for a while, the pointer may be elsewhere by now:
    // what it did is waiting and comes first.
    const qint64 due = m_states.due();
    if (due >= 0 && due <= now() && !std::exchange(m_hasCaughtUp, true)) {
        m_timer.start(0);
        return;
    }
    if (m_states.advance(now())) {
        if (m_states.shown().isEmpty()) {
            if (PaneActions *actions = paneActions())
                actions->hideContactCard(QString());
        } else {
            open();
        }
    }
    settle();
}

// A button that is pressed has ended the rest.
bool CardHover::mayOpen() const
{
    const QAbstractItemView *list = m_rested.list;
    return list && m_rested.row.isValid() && list->isVisible() && list->isActiveWindow() &&
           !QApplication::activePopupWidget() && !QApplication::activeModalWidget();
}

void CardHover::open()
{
    if (!mayOpen()) {
        m_states.close();
        return;
    }
    m_shown = m_rested;
    m_anchor = m_shown.list->window();
    emit cardWanted(m_shown.list, m_shown.row);
}

void CardHover::close()
{
    if (m_states.isHeld())
        return;
    const bool wasShown = !m_states.shown().isEmpty();
    m_states.close();
    settle();
    PaneActions *actions = paneActions();
    if (wasShown && actions)
        actions->hideContactCard(QString());
}

// --- Of the lists --------------------------------------------------------------------

void CardHover::pointerOn(QAbstractItemView *list, const QModelIndex &row, const QString &jid)
{
    if (jid.isEmpty() && m_rested.list != list)
        return; // another list's row by now
    if (m_rested.list != list) {
        m_rested.list = list;
        m_states.setRow(QString(), now()); // of another list, and so left
        connect(list->model(), &QAbstractItemModel::rowsRemoved, this, &CardHover::rowsRemoved,
                Qt::UniqueConnection);
        connect(list->model(), &QAbstractItemModel::modelReset, this, &CardHover::rowsRemoved,
                Qt::UniqueConnection);
    }
    m_rested.row = row;
    if (m_states.row() == jid)
        return;
    m_states.setRow(jid, now());
    settle();
}

void CardHover::cancel(const QAbstractItemView *list)
{
    if (m_states.state() != HoverStates::Closed && (m_rested.list == list || m_shown.list == list))
        close();
}

bool CardHover::isCardOf(const QAbstractItemView *list) const
{
    return !m_states.shown().isEmpty() && m_shown.list == list;
}

void CardHover::rowsRemoved()
{
    if (m_rested.list && !m_rested.row.isValid())
        pointerOn(m_rested.list, QModelIndex(), QString());
    if (m_shown.list && !m_shown.row.isValid() && !m_states.shown().isEmpty())
        close();
}

// --- Of the card ---------------------------------------------------------------------

void CardHover::cardShown(const QString &jid, QWidget *card)
{
    m_card = card;
    if (m_states.shown() == jid)
        return;
    m_rested = Place();
    m_shown = Place();
    m_anchor = QApplication::activeWindow();
    m_states.open(jid);
    settle();
}

void CardHover::cardHidden()
{
    if (m_states.shown().isEmpty())
        return;
    m_states.close();
    settle();
}

void CardHover::setPointerOnCard(bool onCard)
{
    m_states.setOnCard(onCard, now());
    settle();
}

void CardHover::rowLeft(const QString &jid)
{
    if (m_shown.list || m_states.row() != jid)
        return;
    m_states.setRow(QString(), now());
    settle();
}

// --- What happens elsewhere -------------------------------------------------------------

// What the card has opened has it among its parents.
bool CardHover::belongsToCard(const QObject *object) const
{
    if (!m_card || m_states.shown().isEmpty())
        return false;
    while (object && object != m_card)
        object = object->parent();
    return object;
}

bool CardHover::isAnchor(const QObject *object) const
{
    if (!m_states.shown().isEmpty())
        return object == m_anchor;
    return m_rested.list && object == m_rested.list->window();
}

bool CardHover::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride)
        return takesEscape(event);
    // The most frequent ones, also of objects that are no widgets.
    if (event->type() == QEvent::Timer || event->type() == QEvent::MetaCall ||
        !watched->isWidgetType())
        return false;
    const auto *widget = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::MouseMove:
        // A widget that lies over the rows may keep the move from the list.
        if (m_rested.list && widget != m_rested.list->viewport() && !belongsToCard(widget))
            pointerOn(m_rested.list, QModelIndex(), QString());
        break;
    case QEvent::MouseButtonPress:
        if (!belongsToCard(widget))
            close();
        break;
    case QEvent::Wheel:
        // The list's own: it begins a rest on the row that comes to be under the pointer.
        if (!m_states.shown().isEmpty() && !belongsToCard(widget))
            close();
        break;
    case QEvent::Show:
        windowShown(widget);
        break;
    case QEvent::Hide:
        if (widget->isWindow() && widget != m_card && belongsToCard(widget))
            QMetaObject::invokeMethod(this, &CardHover::updateHold, Qt::QueuedConnection);
        else if (isAnchor(widget))
            close();
        break;
    case QEvent::Close:
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::WindowStateChange:
        if (isAnchor(widget))
            close();
        break;
    case QEvent::WindowDeactivate:
        // A box of the card may have become active before it is shown.
        if (isAnchor(widget) && !belongsToCard(QApplication::activeWindow()))
            close();
        break;
    default:
        break;
    }
    return false;
}

// Not for what else would be done with it, such as to leave a search.
bool CardHover::takesEscape(QEvent *event)
{
    auto *key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_Escape || key->modifiers() != Qt::NoModifier || m_states.isHeld() ||
        m_states.shown().isEmpty())
        return false;
    event->accept();
    if (event->type() == QEvent::KeyPress)
        close();
    return true;
}

void CardHover::windowShown(const QWidget *window)
{
    if (!window->isWindow() || window == m_card || window->windowType() == Qt::ToolTip)
        return;
    if (belongsToCard(window))
        updateHold();
    else if (window->windowType() == Qt::Popup || window->isModal())
        close();
}

void CardHover::updateHold()
{
    bool held = false;
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (const QWidget *window : windows) {
        held = held || (window->isVisible() && window != m_card &&
                        window->windowType() != Qt::ToolTip && belongsToCard(window));
    }
    if (held == m_states.isHeld())
        return;
    // A window over the card keeps it from hearing of the pointer.
    if (!held && m_card)
        m_states.setOnCard(m_card->geometry().contains(QCursor::pos()), now());
    m_states.setHeld(held, now());
    settle();
}
