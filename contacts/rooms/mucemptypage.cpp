#include "contacts/rooms/mucemptypage.h"

#include "common/context.h"
#include "controls/pictures.h"
#include "controls/skin.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
constexpr int PictureSize = 120;
constexpr int TextPixels = 13;
constexpr int ExplanationPixels = 12;
constexpr int SideMargin = 16; // leaves the longer explanation its two lines in the pane
constexpr int EndMargin = 24;
constexpr int Padding = 6;

class LinkButton : public QPushButton
{
public:
    LinkButton(const QString &text, QWidget *parent) : QPushButton(text, parent)
    {
        setCursor(Qt::PointingHandCursor);
        setFont(skinFont(TextPixels));
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setAttribute(Qt::WA_Hover);
    }
    QSize sizeHint() const override
    {
        return QSize(fontMetrics().horizontalAdvance(text()) + 2 * Padding,
                     fontMetrics().height() + 2 * Padding);
    }
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            click();
        else
            QPushButton::keyPressEvent(event);
    }
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        const QColor link(39, 134, 228);
        QFont shown = font();
        shown.setUnderline(underMouse());
        painter.setFont(shown);
        painter.setPen(isDown() ? link.darker(120) : link);
        painter.drawText(rect(), Qt::AlignCenter, text());
        if (hasFocus())
            painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
};

QLabel *plainLabel(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    label->setFont(skinFont(TextPixels));
    // By itself: below a widget with a style sheet nothing inherits a palette.
    followSkin(label);
    return label;
}
} // namespace

MucEmptyPage::MucEmptyPage(QWidget *parent)
    : QWidget(parent),
      m_text(plainLabel("labelMucEmpty", this)),
      m_explanation(plainLabel("labelMucExplanation", this)),
      m_link(new LinkButton(QString::fromUtf8("创建讨论组"), this))
{
    setObjectName(QStringLiteral("MucEmptyPage"));
    m_link->setObjectName(QStringLiteral("btnCreateMuc"));
    m_explanation->setFont(skinFont(ExplanationPixels));
    m_explanation->setForegroundRole(QPalette::PlaceholderText);
    auto *picture = new QLabel(this);
    picture->setAlignment(Qt::AlignCenter);
    picture->setPixmap(loadPicture(QStringLiteral("Resources/images/contacts/empty_list.png"),
                                   PictureSize, devicePixelRatioF()));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(SideMargin, EndMargin, SideMargin, EndMargin);
    layout->setSpacing(12);
    layout->addStretch(2);
    layout->addWidget(picture);
    layout->addWidget(m_text);
    layout->addWidget(m_explanation);
    layout->addWidget(m_link, 0, Qt::AlignCenter);
    layout->addStretch(3);
    connect(m_link, &QPushButton::clicked, this, &MucEmptyPage::createClicked);
    retranslate();
}

void MucEmptyPage::setKind(MucModel::Page kind)
{
    m_kind = kind;
    retranslate();
}

void MucEmptyPage::retranslate()
{
    const bool addressBook = m_kind == MucModel::AddressBookPage;
    m_text->setText(addressBook ? QObject::tr("contactGroupMultiDeviceSynchronous")
                                : QObject::tr("showlocalgroup"));
    m_explanation->setText(
        addressBook
            ? QString::fromUtf8("通讯录讨论组支持多终端同步")
            : QString::fromUtf8("本地最近发生过会话且未保存到通讯录的讨论\n组，多端异地不同步"));
}

void MucEmptyPage::showEvent(QShowEvent *event)
{
    m_link->setVisible(ctx().hasRight(ApplicationContext::CreateMuc));
    QWidget::showEvent(event);
}

void MucEmptyPage::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
