// A list or tree in which one row is chosen: that is the selected one. A choice is the
// user's alone: when its row goes no neighbour is chosen for it. Enter is left to the
// dialog.
#pragma once

#include "controls/rowview.h"

class TeamChoiceView : public RowView
{
    Q_OBJECT

public:
    TeamChoiceView(QAbstractItemModel *model, QWidget *parent);

    QModelIndex chosenRow() const; // invalid: none

signals:
    void choiceChanged();

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end) override;
};
