// A button in the colours of the skin: a glyph, a text, or both.
#pragma once

#include <QPushButton>

class SkinButton : public QPushButton
{
    Q_OBJECT

public:
    enum Kind
    {
        Flat,    // shows its ground only under the pointer and when pressed
        Outline, // an ordinary choice
        Primary  // the one that most people look for
    };

    // `glyph` is a path below Resources, empty for none.
    SkinButton(Kind kind, const QString &glyph, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override; // Enter presses it, too
    void paintEvent(QPaintEvent *event) override;

private:
    QColor ground() const; // invalid: none
    QColor ink() const;

    Kind m_kind;
    QString m_glyph;
};
