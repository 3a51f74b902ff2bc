// The page that stands where a list would be while there is nothing to list:
// loading, empty, failed. A picture, a sentence, and a button as the way on.
#pragma once

#include <QWidget>

class QLabel;
class QMovie;
class QPushButton;

class StatePage : public QWidget
{
    Q_OBJECT

public:
    // `key` is the sentence's translation key; `buttonKey` that of the button,
    // null for none; `picture` a path below Resources, empty for none.
    StatePage(const char *key, const QString &picture, const char *buttonKey,
              QWidget *parent = nullptr);

    // Another way on, below the sentence or the button; the page takes it over.
    void addBelow(QWidget *widget);

signals:
    void buttonClicked();

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void retranslate();

    const char *m_key;
    const char *m_buttonKey;
    QLabel *m_text;
    QPushButton *m_button = nullptr;
    QMovie *m_movie = nullptr; // of an animated picture; runs while it is seen
};
