// The line in which somebody types what to find. Keys that are about the results are
// passed on.
#pragma once

#include <QLineEdit>

class SearchBox : public QLineEdit
{
    Q_OBJECT

public:
    // `placeholderKey`: translation key of what it says while it is empty.
    explicit SearchBox(QWidget *parent = nullptr, const char *placeholderKey = "search…");

signals:
    void downPressed();
    // `locate`: Ctrl+Enter.
    void enterPressed(bool locate);
    void escapePressed();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void dress(); // in the skin's colours
    void retranslate();

    const char *const m_placeholderKey;
    QAction *m_glass;
    QAction *m_clear;
};
