#include "controls/foundlist.h"

#include "controls/searchbox.h"

#include <QKeyEvent>

FoundList::FoundList(SearchBox *box, QAbstractItemModel *model, int nameRole, QWidget *parent)
    : RowView(model, nameRole, parent), m_box(box)
{
    connect(box, &SearchBox::downPressed, this, &FoundList::enterFromBox);
    connect(this, &RowView::orderHeld, this, [this](bool held) { m_held = held; });
}

void FoundList::enterFromBox()
{
    if (model()->rowCount() == 0)
        return;
    if (!currentIndex().isValid())
        reveal(model()->index(0, 0));
    setFocus(Qt::TabFocusReason);
}

void FoundList::leaveUpwards()
{
    setCurrentIndex(QModelIndex());
    m_box->setFocus(Qt::BacktabFocusReason);
    emit leftUpwards();
}

void FoundList::typeInBox(const QString &text)
{
    m_box->setFocus(Qt::OtherFocusReason);
    m_box->end(false);
    if (text.isEmpty())
        m_box->backspace();
    else
        m_box->insert(text);
}

void FoundList::keyboardSearch(const QString &typed)
{
    typeInBox(typed);
}

void FoundList::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        if (currentIndex().row() <= 0) {
            leaveUpwards();
            return;
        }
        break;
    case Qt::Key_Escape:
        emit escapePressed();
        return;
    case Qt::Key_Backspace:
        typeInBox(QString());
        return;
    case Qt::Key_Space:
        typeInBox(event->text());
        return;
    default:
        break;
    }
    RowView::keyPressEvent(event);
}
