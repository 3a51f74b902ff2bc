// The field for the reason of a new team or an invitation, which takes a limited
// number of characters.
#pragma once

#include "controls/signtextedit.h"
#include "virtualteam/teamrecords.h"

class ReasonEdit : public SignTextEdit
{
    Q_OBJECT

public:
    static constexpr int MaximumLength = TeamLimits::Reason; // UTF-16 units

    explicit ReasonEdit(QWidget *parent = nullptr);

    QString reason() const { return toPlainText().trimmed(); }

signals:
    void lengthChanged(int length);

protected:
    bool canInsertFromMimeData(const QMimeData *source) const override;
    void inputMethodEvent(QInputMethodEvent *event) override;
    void insertFromMimeData(const QMimeData *source) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    // For what takes the place of the selection.
    int room() const;
    void cut();
};
