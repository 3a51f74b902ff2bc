// A dialog without the system's frame: a title bar of its own to drag it by, a close
// button, the skin's colours. It is shown, never executed, and deletes itself when it
// is closed, however that happens.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QVBoxLayout;

class BaseDialog : public QDialog
{
    Q_OBJECT

public:
    explicit BaseDialog(QWidget *parent = nullptr);

    // A translation key; the title follows the language. Fixed texts go to
    // setWindowTitle().
    void setTitleKey(const char *key);

    // Shows the dialog, restored and in front, inside the screen.
    void present();

    void done(int result) override; // emits closed(), once

signals:
    // Closed by whatever way; the dialog is deleted after this.
    void closed();

protected:
    QWidget *titleBar() const { return m_titleBar; }         // "titleWidget"
    QLabel *titleLabel() const { return m_title; }           // "label_title"
    QPushButton *closeButton() const { return m_close; }     // "btnClose"
    QVBoxLayout *bodyLayout() const { return m_bodyLayout; } // below the title bar

    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const char *m_titleKey = nullptr;
    QWidget *m_titleBar;
    QLabel *m_title;
    QPushButton *m_close;
    QVBoxLayout *m_bodyLayout;
    QPoint m_grab; // where the title bar is held
    bool m_closed = false;
};
