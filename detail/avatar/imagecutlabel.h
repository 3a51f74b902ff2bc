// A picture with a square frame in it: what lies in the frame is cut out. The frame is
// moved and resized by the mouse (its edges, the wheel) and by the keyboard: arrows
// move it, Ctrl and arrows resize it, with Shift in larger steps.
#pragma once

#include <QLabel>
#include <QPixmap>

class ImageCutLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ImageCutLabel(QWidget *parent = nullptr);

    // Shows a picture in the bound (device-independent pixels, each one of the picture
    // if it fits) and puts the frame in its middle. A null picture takes all away.
    void setPixmap(const QPixmap &px, const QSize &sizeBound);
    // The same with what is to be seen made already, elsewhere: `shown` is `px` in
    // shownBound() or smaller.
    void setPixmap(const QPixmap &px, const QPixmap &shown, const QSize &sizeBound);
    // The bound in device pixels.
    QSize shownBound(const QSize &sizeBound) const { return sizeBound * devicePixelRatioF(); }

    bool hasPicture() const { return !m_source.isNull(); }

    // What the frame cuts out of the picture, in the picture's own pixels. It shares
    // them: nothing is copied before one of the two is changed. Null without a picture.
    QPixmap getCutPixmap() const;

signals:
    // After every change of the cut.
    void signal_CurrentPixmap(const QPixmap &px);

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    QRect frame() const;   // relative to the label
    QPoint offset() const; // of the picture in the label
    void changeFrame(const QRect &wanted);
    QRect byKey(const QKeyEvent &event) const; // null: not a key of the frame
    void makeFrame();
    void retranslate();

    QPixmap m_source;
    QSize m_shown; // device-independent pixels
    QSize m_bound;
    QLabel *m_labelCut = nullptr; // "_labelCut"
    bool m_pressed = false;
    int m_grip = 0; // what a drag has hold of
    QPoint m_pressedAt;
    QRect m_pressedFrame;
    int m_wheel = 0; // what has been turned of the next step
};
