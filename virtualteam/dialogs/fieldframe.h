// The frame around a field or list of a form, in the look of the search box; it takes
// the colour of the theme while what is in it has the focus.
#pragma once

#include <QWidget>

class FieldFrame : public QWidget
{
    Q_OBJECT

public:
    // Takes the field, which gets no frame of its own.
    FieldFrame(QWidget *field, QWidget *parent);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget *m_field;
};
