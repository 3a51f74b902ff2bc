// A dialog without the system's frame: a title bar of its own to drag it by, a close
// button, the skin's colours. It is shown, never executed, and deletes itself when it
// is closed, however that happens.
#pragma once

#include <QDialog>
#include <QPointer>

class QLabel;
class QPushButton;
class QVBoxLayout;
class SkinButton;

class BaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit BaseDialog(QWidget *parent = nullptr);

    // A translation key; the title follows the language. Fixed texts go to
    // setWindowTitle().
    void setTitleKey(const char *key);

    // Shows the dialog, restored and in front, inside the screen. When it is closed
    // the focus goes back to where it was.
    void present();

    void done(int result) override; // emits closed(), once

signals:
    // Closed by whatever way; the dialog is deleted after this.
    void closed();

protected:
    QWidget *titleBar() const { return m_titleBar; }         // "titleWidget"
    QLabel *titleLabel() const { return m_title; }           // "label_title"
    QPushButton *closeButton() const;                        // "btnClose"
    QVBoxLayout *bodyLayout() const { return m_bodyLayout; } // below the title bar

    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void place();
    void putCloseButtonLast();
    void retranslate();
    void tellClosed();

    const char *m_titleKey = nullptr;
    QWidget *m_titleBar;
    QLabel *m_title;
    SkinButton *m_close;
    QVBoxLayout *m_bodyLayout;
    QPoint m_grab; // where the title bar is held
    QPointer<QWidget> m_focusBefore;
    bool m_closed = false;
};
