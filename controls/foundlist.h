// The list of what was found for the text in a search box: keys that are about the
// text go to the box.
#pragma once

#include "controls/rowview.h"

class SearchBox;

class FoundList : public RowView
{
    Q_OBJECT

public:
    // As for RowView; the box is not owned and must outlive the list.
    FoundList(SearchBox *box, QAbstractItemModel *model, int nameRole, QWidget *parent = nullptr);

    // Somebody may be about to choose a row: none may move or come in between.
    bool isInUse() const { return m_held || hasFocus(); }

    void keyboardSearch(const QString &typed) override;

signals:
    // Up on the first row: the box has the focus again.
    void leftUpwards();
    void escapePressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void enterFromBox();
    void leaveUpwards();
    void typeInBox(const QString &text);

    SearchBox *m_box;
    bool m_held = false; // see RowView::orderHeld()
};
