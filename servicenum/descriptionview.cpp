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

#include <memory>
#include <utility>

namespace {
constexpr int TextPixels = 13;
constexpr int UsualWidth = 240;
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
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
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
    m_fittedWidth = -1;
    updateGeometry();
}

int DescriptionView::heightForWidth(int width) const
{
    if (width != std::exchange(m_fittedWidth, width)) {
        const std::unique_ptr<QTextDocument> copy(document()->clone());
        copy->setTextWidth(width);
        m_fittedHeight = qMin(qCeil(copy->size().height()), m_maximumHeight);
    }
    return m_fittedHeight;
}

QSize DescriptionView::sizeHint() const
{
    return QSize(UsualWidth, heightForWidth(qMax(UsualWidth, width())));
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
