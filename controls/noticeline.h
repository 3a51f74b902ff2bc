// One line below a list: what is going on with it, and if there is something to do
// about it, a button.
#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

class NoticeLine : public QWidget
{
    Q_OBJECT

public:
    // Hidden at first.
    explicit NoticeLine(QWidget *parent = nullptr);

    // A translation key, null for nothing to say; with the button "retry" or without.
    void say(const char *key, bool withRetry = false);

signals:
    void retryClicked();

protected:
    void changeEvent(QEvent *event) override;

private:
    void retranslate();

    const char *m_key = nullptr;
    QLabel *m_text;
    QPushButton *m_retry;
};
