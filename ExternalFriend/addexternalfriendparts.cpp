#include "ExternalFriend/addexternalfriendparts.h"

#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "controls/outsidemark.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/validationedit.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr int PictureSize = 60; // device-independent pixels, as all below
constexpr int MarkSize = 16;

// Numbers only: what a record brings never gets into a style sheet as it is.
QString rgb(const QColor &color)
{
    return QStringLiteral("rgb(%1,%2,%3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

QColor textColor(const SysUIData &skin)
{
    return Skin::color(skin.textColor, Skin::instance().colors().text);
}

QString companySheet()
{
    QString sheet = QStringLiteral("QWidget#companyInfoWidget\n{\n\tborder:1px solid;\n"
                                   "\tborder-color: #eaeaea transparent ;\n}");
    // Lines as light as these would glare on a dark ground.
    if (Skin::instance().isDark())
        sheet += QStringLiteral("QWidget#companyInfoWidget{border-color: %1 transparent;}")
                     .arg(rgb(Skin::instance().colors().border));
    return sheet;
}

QLabel *caption(const char *name, const char *text, QWidget *parent)
{
    auto *label = new QLabel(QString::fromUtf8(text), parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setFont(skinFont(12));
    label->setForegroundRole(QPalette::PlaceholderText);
    followSkin(label); // below a widget with a style sheet nothing inherits a palette
    return label;
}

} // namespace

void dressNameLabel(QWidget *label, const SysUIData &skin)
{
    label->setStyleSheet(QStringLiteral("QLabel#lblName, QLabel#titleLabel"
                                        "{color:%1; font:14px Microsoft Yahei;}")
                             .arg(rgb(textColor(skin))));
}

static void dressTextLabel(QWidget *label, const SysUIData &skin)
{
    label->setStyleSheet(QStringLiteral("QLabel#lblCompany, QLabel#lblRequest"
                                        "{color:%1; font:12px  Microsoft Yahei;}")
                             .arg(rgb(textColor(skin))));
}

// --- The person ------------------------------------------------------------------

ExternalPersonHeader::ExternalPersonHeader(QWidget *parent)
    : QWidget(parent),
      m_picture(new QLabel(this)),
      m_name(new ElidedLabel(this)),
      m_mark(new QLabel(this)),
      m_companyPart(new QWidget(this)),
      m_company(new ElidedLabel(m_companyPart))
{
    m_picture->setObjectName(QStringLiteral("lblPicture"));
    m_picture->setFixedSize(PictureSize, PictureSize);
    m_name->setObjectName(QStringLiteral("lblName"));
    m_mark->setObjectName(QStringLiteral("lblOutside"));
    m_mark->setFixedSize(MarkSize, MarkSize);
    m_companyPart->setObjectName(QStringLiteral("companyInfoWidget"));
    m_companyPart->setAttribute(Qt::WA_StyledBackground);
    m_company->setObjectName(QStringLiteral("lblCompany"));

    auto *companyLayout = new QHBoxLayout(m_companyPart);
    companyLayout->setContentsMargins(0, 8, 0, 8);
    companyLayout->setSpacing(12);
    companyLayout->addWidget(caption("companyCaption", "企    业", m_companyPart));
    companyLayout->addWidget(m_company);
    companyLayout->addStretch(1);
    auto *person = new QHBoxLayout;
    person->setSpacing(8);
    person->addWidget(m_picture);
    person->addSpacing(6);
    person->addWidget(m_name);
    person->addWidget(m_mark);
    person->addStretch(1);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12);
    layout->addLayout(person);
    layout->addWidget(m_companyPart);
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this,
            [this](const QString &file) {
                if (file == m_file)
                    showPicture();
            });
    retranslate();
}

void ExternalPersonHeader::setPerson(const QString &jid, const QString &name,
                                     const QString &company)
{
    m_jid = jid;
    m_name->setText(name);
    m_company->setText(company);
    m_companyPart->setHidden(company.isEmpty());
    showPicture();
}

void ExternalPersonHeader::setPicture(const QString &file)
{
    AvatarStore::instance().refresh(file);
    m_file = file;
    showPicture();
}

void ExternalPersonHeader::showPicture()
{
    const qreal ratio = devicePixelRatioF();
    const QPixmap own = AvatarStore::instance().picture(m_file, PictureSize, ratio);
    m_picture->setPixmap(
        own.isNull()
            ? loadRoundPicture(QStringLiteral("Resources/images/FriendDetail/defaultHead.png"),
                               PictureSize, ratio)
            : own);
}

void ExternalPersonHeader::dress(const SysUIData &skin)
{
    dressNameLabel(m_name, skin);
    dressTextLabel(m_company, skin);
    m_companyPart->setStyleSheet(companySheet());
    m_mark->setPixmap(outsideMark(MarkSize, devicePixelRatioF()));
}

void ExternalPersonHeader::retranslate()
{
    m_mark->setToolTip(outsideText());
    m_mark->setAccessibleName(outsideText());
}

// --- The validation text ---------------------------------------------------------

ExternalValidation::ExternalValidation(QWidget *parent)
    : QWidget(parent),
      m_length(caption("validationLength", "", this)),
      m_edit(new ValidationEdit(this)),
      m_request(new QLabel(this))
{
    QLabel *title = caption("validationCaption", "验证信息", this);
    m_edit->setPlaceholderText(QString::fromUtf8("请输入好友验证信息"));
    m_edit->setAccessibleName(title->text());
    m_edit->setAccessibleDescription(m_edit->placeholderText());
    m_request->setObjectName(QStringLiteral("lblRequest"));
    m_request->setTextFormat(Qt::PlainText);
    m_request->setWordWrap(true);
    m_request->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_request->setAccessibleName(title->text());

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(6);
    layout->addWidget(title, 0, 0);
    layout->addWidget(m_length, 0, 1, Qt::AlignRight);
    layout->addWidget(m_edit, 1, 0, 1, 2);
    layout->addWidget(m_request, 2, 0, 1, 2);
}

void ExternalValidation::show(Shown shown, const QString &request)
{
    m_request->setText(request);
    m_length->setVisible(shown == ToType);
    m_edit->setVisible(shown == ToType);
    m_request->setVisible(shown == ToRead);
    setVisible(shown != Nothing);
}

void ExternalValidation::setEditable(bool editable)
{
    m_edit->setReadOnly(!editable);
}

void ExternalValidation::showLength(int used, int limit)
{
    m_length->setText(QStringLiteral("%1/%2").arg(used).arg(limit));
}

void ExternalValidation::dress(const SysUIData &skin)
{
    dressTextLabel(m_request, skin);
}

// --- The buttons -----------------------------------------------------------------

ExternalButtons::ExternalButtons(QWidget *parent)
    : QWidget(parent),
      m_mail(make(Mail, "btnMail", SkinButton::Flat, "Resources/images/icon/glyph_mail.png")),
      m_chat(make(Chat, "btnChat", SkinButton::Outline, "Resources/images/icon/glyph_chat.png")),
      m_blacklist(make(Blacklist, "btnBlackList", SkinButton::Outline)),
      m_send(make(Send, "btnSend", SkinButton::Primary)),
      m_accept(make(Accept, "btnConfirm", SkinButton::Primary)),
      m_close(make(Close, "btnDone", SkinButton::Outline))
{
    m_blacklist->setText(QString::fromUtf8("加入黑名单"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(m_mail);
    layout->addWidget(m_chat);
    layout->addStretch(1);
    for (SkinButton *button : {m_blacklist, m_send, m_accept, m_close})
        layout->addWidget(button);
    retranslate();
}

SkinButton *ExternalButtons::make(Button button, const char *name, int kind, const char *glyph)
{
    auto *made = new SkinButton(SkinButton::Kind(kind),
                                glyph ? QString::fromLatin1(glyph) : QString(), this);
    made->setObjectName(QLatin1String(name));
    connect(made, &QPushButton::clicked, this, [this, button] { emit clicked(button); });
    return made;
}

void ExternalButtons::show(Buttons buttons)
{
    m_mail->setVisible(buttons.testFlag(Mail));
    m_chat->setVisible(buttons.testFlag(Chat));
    m_blacklist->setVisible(buttons.testFlag(Blacklist));
    m_send->setVisible(buttons.testFlag(Send));
    m_accept->setVisible(buttons.testFlag(Accept));
    m_close->setVisible(buttons.testFlag(Close));
}

void ExternalButtons::setRequestsEnabled(bool enabled)
{
    for (SkinButton *button : {m_blacklist, m_send, m_accept})
        button->setEnabled(enabled);
}

void ExternalButtons::retranslate()
{
    m_mail->setToolTip(QObject::tr("sendemail"));
    m_mail->setAccessibleName(QObject::tr("sendemail"));
    m_chat->setText(QObject::tr("openChat"));
    m_send->setText(QObject::tr("sendOutsideRequest"));
    m_accept->setText(QObject::tr("outfrdaccept"));
    m_close->setText(QObject::tr("close"));
}

void ExternalButtons::takeFocus()
{
    for (SkinButton *button : {m_accept, m_send, m_chat, m_close}) {
        if (!button->isVisibleTo(this))
            continue;
        button->setFocus();
        return;
    }
}
