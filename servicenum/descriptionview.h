// A longer text of somebody else: plain, wrapped, to be selected and copied, as high as
// it needs and scrolled beyond that.
#pragma once

#include <QTextEdit>

class DescriptionView : public QTextEdit
{
    Q_OBJECT

public:
    // Heights in device-independent pixels.
    explicit DescriptionView(int maximumHeight, QWidget *parent = nullptr);

    // Anybody's text; of an empty one nothing is seen, and it cannot be reached.
    void setDescription(const QString &text);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    static constexpr int TextMargin = 4; // on all sides of the text

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    const int m_maximumHeight;
    mutable int m_fittedWidth = -1; // whose height is known
    mutable int m_fittedHeight = 0;
};
