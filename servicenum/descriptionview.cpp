#include "servicenum/descriptionview.h"

#include "common/displaytext.h"
#include "controls/skin.h"
#include "controls/skinmenu.h"
#include "controls/slimscrollbar.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTextDocument>
#include <QtMath>

namespace {
constexpr int TextPixels = 13;
constexpr int TextMargin = 4;
} // namespace

DescriptionView::DescriptionView(int maximumHeight, QWidget *parent)
    : QTextEdit(parent), m_maximumHeight(maximumHeight)
{
    setReadOnly(true);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setFrameShape(NoFrame);
    setFont(skinFont(TextPixels));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    setUndoRedoEnabled(false);
    document()->setDocumentMargin(TextMargin);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    useSlimScrollBar(this);
    followSkin(this);
}

void DescriptionView::setDescription(const QString &text)
{
    const QString shown = paragraphText(text);
    // A text that is the same keeps what is selected in it.
    if (shown != toPlainText())
        setPlainText(shown);
    setVisible(!shown.isEmpty());
    fitHeight();
}

// For the width that it has; the layout asks again after a change of it.
QSize DescriptionView::sizeHint() const
{
    const int needed = qCeil(document()->size().height());
    return QSize(fontMetrics().averageCharWidth() * 20, qMin(needed, m_maximumHeight));
}

void DescriptionView::fitHeight()
{
    if (height() != sizeHint().height())
        updateGeometry();
}

void DescriptionView::resizeEvent(QResizeEvent *event)
{
    QTextEdit::resizeEvent(event);
    fitHeight();
}

void DescriptionView::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    auto *menu = new SkinMenu(QStringLiteral("descriptionMenu"), this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    connect(menu->addKey("copy"), &QAction::triggered, this, [this] {
        if (!textCursor().hasSelection())
            selectAll();
        copy();
    });
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    menu->popup(byKey ? mapToGlobal(QPoint(0, height())) : event->globalPos());
}

// The window's own keys stay the window's.
void DescriptionView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape)
        event->ignore();
    else
        QTextEdit::keyPressEvent(event);
}

void DescriptionView::focusInEvent(QFocusEvent *event)
{
    QTextEdit::focusInEvent(event);
    viewport()->update();
}

void DescriptionView::focusOutEvent(QFocusEvent *event)
{
    QTextEdit::focusOutEvent(event);
    viewport()->update();
}

void DescriptionView::paintEvent(QPaintEvent *event)
{
    QTextEdit::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(viewport());
    painter.setPen(Skin::instance().colors().theme);
    painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
}
