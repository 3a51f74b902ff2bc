#include "detail/addfriendpages.h"

#include "common/builtingroups.h"
#include "common/displaytext.h"
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "controls/pictures.h"
#include "controls/skin.h"
#include "controls/validationedit.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int PictureSize = 60; // device-independent pixels, as all below
constexpr int SexSize = 16;
constexpr int FormIconSize = 20;
constexpr int OutcomeIconSize = 48;
constexpr int Edge = 20;
constexpr int ButtonWidth = 84;
constexpr int GroupNameWidth = 150;
constexpr int GroupNameRole = Qt::UserRole + 1;
constexpr int LongestRemark = 64; // characters

QLabel *textLabel(const char *name, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setObjectName(QLatin1String(name));
    label->setTextFormat(Qt::PlainText);
    label->setFont(skinFont(13));
    return label;
}

// The style makes a button's colour lighter: white text needs a darker one.
void tintPrimary(QPushButton *primary)
{
    const auto apply = [primary] {
        const Skin &skin = Skin::instance();
        const QColor theme = skin.colors().theme;
        QPalette palette = skin.palette();
        palette.setColor(QPalette::Button, skin.isDark() ? theme : theme.darker(150));
        palette.setColor(QPalette::ButtonText,
                         skin.isDark() ? skin.colors().background : QColor(Qt::white));
        primary->setPalette(palette);
    };
    apply();
    QObject::connect(&Skin::instance(), &Skin::changed, primary, apply);
}

// With a ring, since the picture may end in the window's own colour.
QPixmap roundPicture(const QPixmap &square)
{
    QPixmap round(square.size());
    round.setDevicePixelRatio(square.devicePixelRatio());
    round.fill(Qt::transparent);
    const QRectF area(QPointF(), QSizeF(square.size()) / square.devicePixelRatio());
    QPainter painter(&round);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath circle;
    circle.addEllipse(area);
    painter.setClipPath(circle);
    painter.drawPixmap(0, 0, square);
    painter.setPen(Skin::instance().colors().border);
    painter.drawEllipse(area.adjusted(0.5, 0.5, -0.5, -0.5));
    return round;
}

QPushButton *button(const char *name, const QString &text, QWidget *parent)
{
    auto *made = new QPushButton(text, parent);
    made->setObjectName(QLatin1String(name));
    made->setFont(skinFont(13));
    made->setMinimumWidth(ButtonWidth);
    return made;
}

} // namespace

// --- The person ------------------------------------------------------------------

AddFriendHeader::AddFriendHeader(QWidget *parent)
    : QWidget(parent),
      m_picture(new QLabel(this)),
      m_name(new ElidedLabel(this)),
      m_sex(new QLabel(this))
{
    m_picture->setObjectName(QStringLiteral("picture"));
    m_picture->setFixedSize(PictureSize, PictureSize);
    m_name->setObjectName(QStringLiteral("name"));
    m_name->setFont(skinFont(16, QFont::Medium));
    m_sex->setObjectName(QStringLiteral("sex"));
    m_sex->setFixedSize(SexSize, SexSize);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Edge, 8, Edge, 12);
    layout->setSpacing(8);
    layout->addWidget(m_picture);
    layout->addSpacing(6);
    layout->addWidget(m_name);
    layout->addWidget(m_sex);
    layout->addStretch(1);
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this,
            [this](const QString &file) {
                if (file == m_file)
                    showPicture();
            });
}

void AddFriendHeader::setPerson(const QString &jid, const QString &name, const QString &sex)
{
    m_jid = jid;
    m_name->setText(name);
    QString picture;
    if (sex == QString::fromUtf8("男"))
        picture = QStringLiteral("Resources/images/FriendDetail/man.png");
    else if (sex == QString::fromUtf8("女"))
        picture = QStringLiteral("Resources/images/FriendDetail/female.png");
    m_sex->setVisible(!picture.isEmpty());
    m_sex->setAccessibleName(picture.isEmpty() ? QString() : sex);
    if (!picture.isEmpty())
        m_sex->setPixmap(loadPicture(picture, SexSize, devicePixelRatioF()));
    showPicture();
}

void AddFriendHeader::setPicture(const QString &file)
{
    AvatarStore::instance().refresh(file);
    m_file = file;
    showPicture();
}

void AddFriendHeader::showPicture()
{
    const qreal ratio = devicePixelRatioF();
    if (m_file.isEmpty())
        m_picture->setPixmap(roundPicture(loadPicture(
            QStringLiteral("Resources/images/FriendDetail/defaultHead.png"), PictureSize, ratio)));
    else
        m_picture->setPixmap(
            AvatarStore::instance().avatar(m_file, m_jid, m_name->text(), PictureSize, ratio));
}

// --- The form --------------------------------------------------------------------

AddFriendForm::AddFriendForm(QWidget *parent)
    : QWidget(parent),
      m_icon(new QLabel(this)),
      m_text(textLabel("statusText", this)),
      m_validationPart(buildValidation()),
      m_groups(new QComboBox(this)),
      m_newGroup(button("newGroupButton", QString::fromUtf8("新建分组"), this)),
      m_remark(new QLineEdit(this)),
      m_ok(nullptr)
{
    m_icon->setObjectName(QStringLiteral("statusIcon"));
    m_icon->setFixedSize(FormIconSize, FormIconSize);
    m_text->setWordWrap(true);
    // So that a sentence of two lines moves nothing.
    m_text->setMinimumHeight(2 * m_text->fontMetrics().lineSpacing());
    auto *state = new QHBoxLayout;
    state->setSpacing(8);
    state->addWidget(m_icon);
    state->addWidget(m_text, 1);

    auto *groupCaption = textLabel("groupCaption", this);
    groupCaption->setText(QString::fromUtf8("分  组："));
    groupCaption->setBuddy(m_groups);
    m_groups->setObjectName(QStringLiteral("groupBox"));
    m_groups->setAccessibleName(groupCaption->text());
    m_groups->setFont(skinFont(13));
    m_groups->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_groups->setMinimumContentsLength(8);
    m_groups->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(m_newGroup, &QPushButton::clicked, this, &AddFriendForm::newGroupWanted);
    auto *remarkCaption = textLabel("remarkCaption", this);
    remarkCaption->setText(QString::fromUtf8("备注名："));
    remarkCaption->setBuddy(m_remark);
    m_remark->setObjectName(QStringLiteral("remarkEdit"));
    m_remark->setAccessibleName(remarkCaption->text());
    m_remark->setFont(skinFont(13));
    m_remark->setMaxLength(LongestRemark);
    followSkinAsField(m_remark);

    auto *fields = new QGridLayout;
    fields->setHorizontalSpacing(8);
    fields->setVerticalSpacing(10);
    fields->addWidget(groupCaption, 0, 0);
    fields->addWidget(m_groups, 0, 1);
    fields->addWidget(m_newGroup, 0, 2);
    fields->addWidget(remarkCaption, 1, 0);
    fields->addWidget(m_remark, 1, 1, 1, 2);
    fields->setColumnStretch(1, 1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Edge, 0, Edge, 16);
    layout->setSpacing(12);
    layout->addLayout(state);
    layout->addWidget(m_validationPart);
    layout->addLayout(fields);
    layout->addStretch(1);
    buildButtons(layout);
}

QWidget *AddFriendForm::buildValidation()
{
    auto *part = new QWidget(this);
    auto *caption = textLabel("validationCaption", part);
    caption->setText(QString::fromUtf8("请输入验证信息"));
    m_length = textLabel("validationLength", part);
    m_length->setFont(skinFont(12));
    m_length->setForegroundRole(QPalette::PlaceholderText);
    m_validation = new ValidationEdit(part);
    m_validation->setAccessibleName(caption->text());
    connect(m_validation, &ValidationEdit::confirmed, this, &AddFriendForm::confirmed);

    auto *layout = new QGridLayout(part);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setVerticalSpacing(6);
    layout->addWidget(caption, 0, 0);
    layout->addWidget(m_length, 0, 1, Qt::AlignRight);
    layout->addWidget(m_validation, 1, 0, 1, 2);
    return part;
}

void AddFriendForm::buildButtons(QVBoxLayout *layout)
{
    auto *chat = button("chatButton", QString::fromUtf8("添加并会话"), this);
    m_ok = button("okButton", QString::fromUtf8("确定"), this);
    auto *cancel = button("cancelButton", QString::fromUtf8("取消"), this);
    tintPrimary(m_ok);
    connect(chat, &QPushButton::clicked, this, &AddFriendForm::chatWanted);
    connect(m_ok, &QPushButton::clicked, this, &AddFriendForm::confirmed);
    connect(cancel, &QPushButton::clicked, this, &AddFriendForm::cancelled);
    auto *row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(chat);
    row->addStretch(1);
    row->addWidget(m_ok);
    row->addWidget(cancel);
    layout->addLayout(row);
}

void AddFriendForm::setState(const QString &icon, const QString &text)
{
    m_icon->setPixmap(loadPicture(icon, FormIconSize, devicePixelRatioF()));
    m_text->setText(text);
}

void AddFriendForm::setValidationNeeded(bool needed)
{
    m_validationPart->setVisible(needed);
}

void AddFriendForm::showLength(int used, int limit)
{
    m_length->setText(QStringLiteral("%1/%2").arg(used).arg(limit));
}

void AddFriendForm::addGroup(const GroupData &group)
{
    const QString name = displayText(group.name);
    m_groups->addItem(m_groups->fontMetrics().elidedText(name, Qt::ElideRight, GroupNameWidth),
                      group.id);
    m_groups->setItemData(m_groups->count() - 1, toolTipText(name), Qt::ToolTipRole);
    m_groups->setItemData(m_groups->count() - 1, group.name, GroupNameRole);
}

void AddFriendForm::setGroups(const QList<GroupData> &groups, const GroupData &more)
{
    const QString chosen = groupId();
    m_groups->clear();
    for (const GroupData &group : groups)
        addGroup(group);
    if (groups.isEmpty())
        addGroup({QString(), defaultGroupName()});
    if (!more.id.isEmpty() && m_groups->findData(more.id) < 0)
        addGroup(more);
    chooseGroup(chosen);
}

void AddFriendForm::chooseGroup(const QString &groupId)
{
    const int row = m_groups->findData(groupId);
    if (row >= 0)
        m_groups->setCurrentIndex(row);
}

void AddFriendForm::chooseGroupByName(const QString &name)
{
    const int row = m_groups->findData(name, GroupNameRole);
    if (row >= 0)
        m_groups->setCurrentIndex(row);
}

QString AddFriendForm::groupId() const
{
    return m_groups->currentData().toString();
}

QString AddFriendForm::remark() const
{
    return m_remark->text().trimmed();
}

void AddFriendForm::takeFocus()
{
    m_ok->setDefault(true);
    if (m_validationPart->isVisibleTo(this))
        m_validation->setFocus();
    else
        m_remark->setFocus();
}

// --- The outcome -----------------------------------------------------------------

AddFriendOutcome::AddFriendOutcome(QWidget *parent)
    : QWidget(parent),
      m_icon(new QLabel(this)),
      m_text(textLabel("resultText", this)),
      m_status(textLabel("resultStatus", this)),
      m_action(button("resultButton", QString(), this)),
      m_close(button("resultClose", QString(), this))
{
    m_icon->setObjectName(QStringLiteral("resultIcon"));
    m_icon->setFixedSize(OutcomeIconSize, OutcomeIconSize);
    for (QLabel *label : {m_text, m_status}) {
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignCenter);
    }
    m_text->setFont(skinFont(14));
    m_status->setForegroundRole(QPalette::PlaceholderText);
    tintPrimary(m_action);
    connect(m_action, &QPushButton::clicked, this, &AddFriendOutcome::actionWanted);
    connect(m_close, &QPushButton::clicked, this, &AddFriendOutcome::closeWanted);

    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(8);
    buttons->addStretch(1);
    buttons->addWidget(m_action);
    buttons->addWidget(m_close);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Edge, 0, Edge, 16);
    layout->setSpacing(12);
    layout->addStretch(2);
    layout->addWidget(m_icon, 0, Qt::AlignHCenter);
    layout->addWidget(m_text);
    layout->addWidget(m_status);
    layout->addStretch(3);
    layout->addLayout(buttons);
}

void AddFriendOutcome::show(const QString &icon, const QString &text, const QString &status,
                            const QString &action, const QString &close)
{
    m_icon->setPixmap(loadPicture(icon, OutcomeIconSize, devicePixelRatioF()));
    m_text->setText(text);
    m_status->setText(status);
    m_status->setVisible(!status.isEmpty());
    m_action->setText(action);
    m_action->setVisible(!action.isEmpty());
    m_close->setText(close);
    m_close->setVisible(!close.isEmpty());
}

void AddFriendOutcome::takeFocus()
{
    QPushButton *first = m_action->isVisibleTo(this) ? m_action : m_close;
    first->setDefault(true);
    first->setFocus();
}
