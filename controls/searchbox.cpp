#include "controls/searchbox.h"

#include "controls/pictures.h"
#include "controls/skin.h"

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QPainter>

namespace {
constexpr int Height = 32; // device-independent pixels, as all below
constexpr int Radius = 6;
constexpr int GlyphSize = 16;
constexpr int TextPixels = 13;
constexpr int MaximumText = 200; // characters; far more than a search looks at

QIcon glyph(const QString &path, const QColor &color)
{
    QIcon icon;
    for (const int ratio : {1, 2, 3})
        icon.addPixmap(loadPicture(path, GlyphSize, ratio, color));
    return icon;
}
} // namespace

SearchBox::SearchBox(QWidget *parent, const char *placeholderKey)
    : QLineEdit(parent),
      m_placeholderKey(placeholderKey),
      m_glass(addAction(QIcon(), LeadingPosition)),
      m_clear(addAction(QIcon(), TrailingPosition))
{
    setObjectName(QStringLiteral("searchBox"));
    setFrame(false);
    setFixedHeight(Height);
    setFont(skinFont(TextPixels));
    setMaxLength(MaximumText);
    m_glass->setEnabled(false);
    m_clear->setObjectName(QStringLiteral("clearSearch"));
    m_clear->setVisible(false);
    connect(m_clear, &QAction::triggered, this, &QLineEdit::clear);
    connect(this, &QLineEdit::textChanged, this,
            [this](const QString &text) { m_clear->setVisible(!text.isEmpty()); });
    connect(&Skin::instance(), &Skin::changed, this, &SearchBox::dress);
    dress();
    retranslate();
}

void SearchBox::dress()
{
    const Skin::Colors &colors = Skin::instance().colors();
    QPalette palette = Skin::instance().palette();
    palette.setColor(QPalette::Base, Qt::transparent); // paintEvent() paints the ground
    setPalette(palette);
    m_glass->setIcon(
        glyph(QStringLiteral("Resources/images/icon/glyph_search.png"), colors.secondary));
    m_clear->setIcon(
        glyph(QStringLiteral("Resources/images/icon/glyph_close.png"), colors.secondary));
}

void SearchBox::retranslate()
{
    setPlaceholderText(QObject::tr(m_placeholderKey));
    setAccessibleName(placeholderText());
    m_clear->setText(QObject::tr("clearSearch"));
    m_clear->setToolTip(QObject::tr("clearSearch"));
}

void SearchBox::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QLineEdit::changeEvent(event);
}

void SearchBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Down:
        emit downPressed();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit enterPressed(event->modifiers().testFlag(Qt::ControlModifier));
        return;
    case Qt::Key_Escape:
        emit escapePressed();
        return;
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void SearchBox::paintEvent(QPaintEvent *event)
{
    const Skin::Colors &colors = Skin::instance().colors();
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(hasFocus() ? colors.theme : colors.border);
        painter.setBrush(colors.background);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), Radius, Radius);
    }
    QLineEdit::paintEvent(event);
}
