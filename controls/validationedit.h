// The field for the text that goes with a contact request: plain text of one line, as
// long as ValidationText allows. Enter is the dialog's.
#pragma once

#include "controls/signtextedit.h"

class ValidationEdit : public SignTextEdit
{
    Q_OBJECT

public:
    explicit ValidationEdit(QWidget *parent = nullptr);

    QString validation() const; // line ends as blanks

    // For whoever hears textChanged(): cuts once what is too much of it, which changes
    // the text again. False when it is short enough.
    bool cutExcess();

signals:
    void confirmed();

protected:
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;
};
