#include "controls/typefinder.h"

#include "common/textmatch.h"
#include "controls/skin.h"

#include <QKeyEvent>
#include <QLabel>
#include <QTreeView>

namespace {
constexpr int PauseMs = 4000;
constexpr int MaximumLength = 32;
constexpr int Inset = 8;

// The next row of the whole tree, collapsed groups included, round its end.
QModelIndex nextRow(const QAbstractItemModel *model, const QModelIndex &index)
{
    if (!index.isValid())
        return model->index(0, 0);
    if (model->rowCount(index) > 0)
        return model->index(0, 0, index);
    for (QModelIndex at = index; at.isValid(); at = at.parent()) {
        const QModelIndex sibling = at.sibling(at.row() + 1, 0);
        if (sibling.isValid())
            return sibling;
    }
    return model->index(0, 0);
}

QModelIndex lastBelow(const QAbstractItemModel *model, const QModelIndex &index)
{
    const int count = model->rowCount(index);
    return count > 0 ? model->index(count - 1, 0, index) : index;
}

QModelIndex previousRow(const QAbstractItemModel *model, const QModelIndex &index)
{
    if (!index.isValid() || (!index.parent().isValid() && index.row() == 0))
        return lastBelow(model, lastBelow(model, QModelIndex()));
    if (index.row() == 0)
        return index.parent();
    const QModelIndex sibling = index.sibling(index.row() - 1, 0);
    return index.parent().isValid() ? sibling : lastBelow(model, sibling);
}
} // namespace

TypeFinder::TypeFinder(QTreeView *view, int nameRole)
    : QObject(view), m_view(view), m_nameRole(nameRole), m_label(new QLabel(view->viewport()))
{
    m_label->setObjectName(QStringLiteral("typeFinderLabel"));
    m_label->setTextFormat(Qt::PlainText);
    // A child of an item view would inherit the view's roles.
    m_label->setBackgroundRole(QPalette::Window);
    m_label->setForegroundRole(QPalette::WindowText);
    m_label->setAutoFillBackground(true);
    m_label->setContentsMargins(10, 6, 10, 6);
    m_label->setFont(skinFont(13));
    m_label->hide();
    m_pause.setSingleShot(true);
    m_pause.setInterval(PauseMs);
    connect(&m_pause, &QTimer::timeout, this, &TypeFinder::clear);
}

void TypeFinder::type(const QString &text)
{
    if (m_typed.isEmpty() && text.trimmed().isEmpty())
        return;
    m_typed = (m_typed + text).left(MaximumLength);
    go(+1, false);
}

bool TypeFinder::handleKey(QKeyEvent *event)
{
    if (!isActive())
        return false;
    switch (event->key()) {
    case Qt::Key_Escape:
        clear();
        return true;
    case Qt::Key_Backspace:
        m_typed.chop(1);
        if (m_typed.isEmpty())
            clear();
        else
            go(+1, false);
        return true;
    case Qt::Key_Down:
        go(+1, true);
        return true;
    case Qt::Key_Up:
        go(-1, true);
        return true;
    default:
        return false;
    }
}

void TypeFinder::clear()
{
    m_typed.clear();
    m_pause.stop();
    m_label->hide();
}

bool TypeFinder::matches(const QModelIndex &index) const
{
    const QString name = index.data(m_nameRole).toString();
    // A later syllable is left to the search: one letter would match too much.
    const TextPattern pattern(m_typed);
    return !name.isEmpty() && (pattern.isEmpty() || pattern.match(name).kind >= TextMatch::Word);
}

void TypeFinder::go(int direction, bool fromNext)
{
    const QAbstractItemModel *model = m_view->model();
    const auto step = direction > 0 ? nextRow : previousRow;
    const QModelIndex start =
        m_view->currentIndex().isValid() ? m_view->currentIndex() : model->index(0, 0);
    QModelIndex at = fromNext ? step(model, start) : start;
    const QModelIndex end = at;
    bool any = false;
    while (at.isValid()) {
        any = matches(at);
        if (any)
            break;
        at = step(model, at);
        if (at == end)
            break;
    }
    show(any);
    if (any)
        emit found(at);
}

void TypeFinder::show(bool any)
{
    const Skin::Colors &colors = Skin::instance().colors();
    QPalette palette;
    palette.setColor(QPalette::Window, any ? colors.theme : colors.danger);
    palette.setColor(QPalette::WindowText, colors.background);
    m_label->setPalette(palette);
    m_label->setText(any ? m_typed : m_typed + QStringLiteral("  ") + QObject::tr("noMatch"));
    m_pause.start();
    m_label->show();
    place();
}

void TypeFinder::place()
{
    m_label->adjustSize();
    const QSize room = m_view->viewport()->size();
    const QSize size = m_label->size().boundedTo(QSize(room.width() - 2 * Inset, room.height()));
    m_label->setGeometry(QRect(QPoint(Inset, room.height() - size.height() - Inset), size));
    m_label->raise();
}
