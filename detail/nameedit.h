// A name that can be selected and copied but not changed; as wide as its text, cut
// with an ellipsis where there is less room.
#pragma once

#include <QLineEdit>

class NameEdit : public QLineEdit
{
    Q_OBJECT

public:
    explicit NameEdit(QWidget *parent = nullptr);

    void setName(const QString &name); // somebody's text; the tool tip has all of it

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
};
