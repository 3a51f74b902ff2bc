#include "controls/valuelabel.h"

#include "common/displaytext.h"
#include "controls/skinmenu.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>

namespace {
constexpr int LongestCopy = 4096; // characters

// A value that is pasted into a terminal or a mail's address line must not bring line
// ends or characters that turn the reading direction.
bool isHarmful(QChar c)
{
    const ushort code = c.unicode();
    return c.category() == QChar::Other_Control || code == QChar::LineSeparator ||
           code == QChar::ParagraphSeparator || (code >= 0x202a && code <= 0x202e) ||
           (code >= 0x2066 && code <= 0x2069);
}
} // namespace

ValueLabel::ValueLabel(QWidget *parent) : ElidedLabel(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    refresh();
}

void ValueLabel::setQuiet(bool quiet)
{
    m_quiet = quiet;
    refresh();
}

void ValueLabel::setValue(const QString &value)
{
    m_value = value;
    refresh();
}

void ValueLabel::setTextWhenEmpty(const QString &text)
{
    m_textWhenEmpty = text;
    refresh();
}

void ValueLabel::setLink(bool link, const QString &toolTip)
{
    m_link = link;
    m_linkToolTip = toolTip;
    refresh();
}

void ValueLabel::refresh()
{
    const QString shown = displayText(m_value);
    setTextInteractionFlags(m_value.isEmpty()
                                ? Qt::NoTextInteraction
                                : Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(m_value.isEmpty() ? Qt::NoFocus : Qt::StrongFocus);
    setText(m_value.isEmpty() ? m_textWhenEmpty : shown);
    setForegroundRole(leads()   ? QPalette::Link
                      : m_quiet ? QPalette::PlaceholderText
                                : QPalette::WindowText);
    if (leads())
        setCursor(Qt::PointingHandCursor);
    else
        unsetCursor();
    updateToolTip();
    updateGeometry();
}

QString ValueLabel::copyText() const
{
    QString text = m_value.left(LongestCopy);
    for (QChar &c : text) {
        if (isHarmful(c))
            c = QLatin1Char(' ');
    }
    return text.simplified();
}

void ValueLabel::copy() const
{
    const bool part = hasSelectedText() && selectedText() != text();
    const QString copied = part ? selectedText() : copyText();
    if (!copied.isEmpty())
        QGuiApplication::clipboard()->setText(copied);
}

bool ValueLabel::isTooWide() const
{
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

void ValueLabel::updateToolTip()
{
    if (m_value.isEmpty())
        setToolTip(QString());
    else
        setToolTip(text() != m_value || isTooWide() ? toolTipText(m_value) : m_linkToolTip);
}

bool ValueLabel::event(QEvent *event)
{
    // Of the whole value, not only of what of it could be shown.
    return event->type() == QEvent::ToolTip ? QLabel::event(event) : ElidedLabel::event(event);
}

void ValueLabel::resizeEvent(QResizeEvent *event)
{
    ElidedLabel::resizeEvent(event);
    updateToolTip();
}

void ValueLabel::changeEvent(QEvent *event)
{
    ElidedLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        updateToolTip();
}

void ValueLabel::paintEvent(QPaintEvent *event)
{
    // A selection shows the text itself, from its beginning.
    if (hasSelectedText() || !isTooWide())
        QLabel::paintEvent(event);
    else
        ElidedLabel::paintEvent(event);
}

void ValueLabel::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (m_value.isEmpty())
        return;
    auto *menu = new SkinMenu(QStringLiteral("valueMenu"), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addKey("copy"), &QAction::triggered, this, &ValueLabel::copy);
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? mapToGlobal(QPoint(0, height())) : event->globalPos());
}

void ValueLabel::focusInEvent(QFocusEvent *event)
{
    ElidedLabel::focusInEvent(event);
    const bool byKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    // As in a line edit: shows where the focus is, and what would be copied.
    if (byKey && !m_value.isEmpty())
        setSelection(0, text().size());
}

void ValueLabel::focusOutEvent(QFocusEvent *event)
{
    ElidedLabel::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason &&
        hasSelectedText())
        setSelection(0, 0);
}

void ValueLabel::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (event->matches(QKeySequence::Copy)) {
        copy();
    } else if (leads() && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space)) {
        event->accept();
        emit activated(); // may be the end of this label
    } else {
        ElidedLabel::keyPressEvent(event);
    }
}

void ValueLabel::mouseReleaseEvent(QMouseEvent *event)
{
    ElidedLabel::mouseReleaseEvent(event);
    if (leads() && event->button() == Qt::LeftButton && !hasSelectedText() &&
        rect().contains(event->pos()))
        emit activated(); // may be the end of this label
}
