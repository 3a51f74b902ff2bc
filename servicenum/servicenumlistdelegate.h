// Paints the rows of the lists of service numbers: the icon in the shape that no person's
// picture has, with the mark of an official account; name, description, and if the list
// has one a button that subscribes.
#pragma once

#include <QPersistentModelIndex>
#include <QStyledItemDelegate>

class ServiceNumListDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    enum Buttons
    {
        NoButtons,
        SubscribeButtons
    };

    explicit ServiceNumListDelegate(Buttons buttons, QObject *parent = nullptr);

    // Where the button of a row is that is `row` of the viewport; empty without buttons.
    QRect buttonArea(const QRect &row, Qt::LayoutDirection direction) const;
    // What the button of a row says, and what it does as a sentence.
    static QString buttonText(const QModelIndex &index, bool isHot);
    static QString buttonToolTip(const QModelIndex &index);

    // The row whose button is under the pointer, invalid for none.
    void setHot(const QModelIndex &index, bool isPressed);
    QModelIndex hot() const { return m_hot; }

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;

private:
    void drawButton(QPainter *painter, const QRect &area, const QStyleOptionViewItem &option,
                    const QModelIndex &index) const;
    int buttonWidth() const;

    const Buttons m_buttons;
    QPersistentModelIndex m_hot;
    bool m_isPressed = false;
};
