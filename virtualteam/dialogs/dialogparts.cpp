#include "virtualteam/dialogs/dialogparts.h"

#include "controls/rowpainter.h"
#include "controls/skin.h"

#include <QAbstractItemView>
#include <QLabel>

QLabel *DialogParts::label(QWidget *parent)
{
    auto *made = new QLabel(parent);
    made->setTextFormat(Qt::PlainText);
    made->setFont(skinFont(13));
    return made;
}

QLabel *DialogParts::quietLabel(QWidget *parent)
{
    QLabel *made = label(parent);
    made->setFont(skinFont(12));
    made->setForegroundRole(QPalette::PlaceholderText);
    return made;
}

void DialogParts::frame(QAbstractItemView *list, int rows)
{
    list->setFrameShape(QFrame::StyledPanel);
    list->setMinimumHeight(rows * RowPainter::RowHeight + 2 * list->frameWidth());
}
