// The lower end of a dialog in which something is chosen: what is chosen, and the
// buttons "cancel" and "sure".
#pragma once

#include <QPointer>
#include <QWidget>

class ElidedLabel;
class SkinButton;

class ChoiceBar : public QWidget
{
    Q_OBJECT

public:
    explicit ChoiceBar(QWidget *parent);

    void setNote(const QString &text); // plain text, whoever wrote it
    void setSureEnabled(bool enabled);
    // While it is so "sure" cannot be pressed and the note says that work is under way.
    // The focus waits on "cancel" and goes back afterwards, unless the user has moved it.
    void setBusy(bool busy);
    bool isBusy() const { return m_busy; }

signals:
    void sure();
    void cancelled();

protected:
    void changeEvent(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void showState();

    ElidedLabel *m_note;
    SkinButton *m_cancel; // "btnCancel"
    SkinButton *m_sure;   // "btnSure"
    QPointer<QWidget> m_focusBefore;
    QString m_text;
    bool m_sureEnabled = false;
    bool m_busy = false;
};
