// The lower end of a team's dialog: a note, and the buttons "sure" and "cancel".
#pragma once

#include <QWidget>

class ElidedLabel;
class SkinButton;

class DialogBar : public QWidget
{
    Q_OBJECT

public:
    explicit DialogBar(QWidget *parent);

    void setNote(const QString &text); // plain text, whoever wrote it
    void setSureEnabled(bool enabled);
    // While it is so "sure" cannot be pressed and the note says that work is under way.
    void setBusy(bool busy);
    bool isBusy() const { return m_busy; }

signals:
    void sure(); // also by Enter in a field that leaves it to the dialog
    void cancelled();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showState();

    ElidedLabel *m_note;
    SkinButton *m_sure;   // "btnSure"
    SkinButton *m_cancel; // "btnCancel"
    QString m_text;
    bool m_sureEnabled = true;
    bool m_busy = false;
};
