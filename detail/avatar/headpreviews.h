// The picture as others will see it: round, in the large and the small size.
#pragma once

#include <QPixmap>
#include <QWidget>

class QLabel;

class HeadPreviews : public QWidget
{
    Q_OBJECT

public:
    static constexpr int LargeSide = 90; // device-independent pixels
    static constexpr int SmallSide = 40;

    explicit HeadPreviews(QWidget *parent = nullptr);

    // `px`: a square of any size.
    void setPicture(const QPixmap &px);

private:
    QLabel *m_middle; // "m_MiddleAvatarLabel"
    QLabel *m_small;  // "m_SmallAvatarLabel"
};
