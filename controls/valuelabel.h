// One line of other people's text in a form: cut with an ellipsis where it is too
// long, to be selected and copied by mouse and keyboard, whole in the tool tip.
#pragma once

#include "controls/elidedlabel.h"

class ValueLabel : public ElidedLabel
{
    Q_OBJECT

public:
    explicit ValueLabel(QWidget *parent = nullptr);

    void setQuiet(bool quiet); // in the colour of less important text

    // Always shown as plain text; control characters do not reach the screen or the
    // clipboard. An empty value shows the text for it and cannot be reached.
    void setValue(const QString &value);
    const QString &value() const { return m_value; }
    void setTextWhenEmpty(const QString &text); // "" by default

    // What the value leads to: it then looks like a link, and a click, Enter and
    // Space emit activated(). An empty value never does. The tool tip says what
    // happens, unless it is needed for a text that is cut.
    void setLink(bool link, const QString &toolTip = QString());

    // The value as the clipboard gets it.
    QString copyText() const;

signals:
    void activated();

public slots:
    // The selection, or the whole value when nothing, or all of it, is selected.
    void copy() const;

protected:
    bool event(QEvent *event) override;
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    bool isTooWide() const;
    bool leads() const { return m_link && !m_value.isEmpty(); }
    void refresh();
    void updateToolTip();

    QString m_value;
    QString m_textWhenEmpty;
    QString m_linkToolTip;
    bool m_link = false;
    bool m_quiet = false;
};
