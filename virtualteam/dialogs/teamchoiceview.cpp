#include "virtualteam/dialogs/teamchoiceview.h"

#include "http/fileservices.h"
#include "virtualteam/companynames.h"
#include "virtualteam/teamroles.h"

#include <QEvent>
#include <QKeyEvent>

TeamChoiceView::TeamChoiceView(QAbstractItemModel *model, QWidget *parent)
    : RowView(model, TeamRowRole::Name, parent)
{
    setSelectionMode(SingleSelection);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &TeamChoiceView::choiceChanged);
    connect(&PictureFiles::instance(), &PictureFiles::ready, viewport(),
            QOverload<>::of(&QWidget::update));
    connect(&CompanyNames::instance(), &CompanyNames::learned, viewport(),
            QOverload<>::of(&QWidget::update));
}

QModelIndex TeamChoiceView::chosenRow() const
{
    return selectionModel()->selectedRows().value(0);
}

void TeamChoiceView::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QModelIndex current = currentIndex();
    if (current.isValid() && current.parent() == parent && current.row() >= start &&
        current.row() <= end)
        selectionModel()->setCurrentIndex(parent, QItemSelectionModel::Clear);
    RowView::rowsAboutToBeRemoved(parent, start, end);
}

void TeamChoiceView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        event->ignore();
    else
        RowView::keyPressEvent(event);
}

void TeamChoiceView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        viewport()->update();
    RowView::changeEvent(event);
}
