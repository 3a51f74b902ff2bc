// A line of text that does something when it is clicked, in the colour of links.
#pragma once

#include <QPushButton>

class LinkButton : public QPushButton
{
    Q_OBJECT

public:
    explicit LinkButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent *event) override; // Enter presses it, too
    void paintEvent(QPaintEvent *event) override;
};
