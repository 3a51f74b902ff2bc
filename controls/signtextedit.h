// A field for what the user writes in several lines: plain text only, in the skin's
// colours, with a menu of its own.
#pragma once

#include <QTextEdit>

class SignTextEdit : public QTextEdit
{
    Q_OBJECT

public:
    explicit SignTextEdit(QWidget *parent = nullptr);

    // Takes the text away in one step that can be undone, as clear() cannot.
    void removeAll();

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
};
