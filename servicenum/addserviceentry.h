// The entry above the list of subscriptions that leads to the search for more.
#pragma once

#include <QAbstractButton>

class AddServiceEntry : public QAbstractButton
{
    Q_OBJECT

public:
    explicit AddServiceEntry(QWidget *parent = nullptr);

    QSize sizeHint() const override;

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Enter presses it, too
    void paintEvent(QPaintEvent *event) override;

private:
    void retranslate();
};
