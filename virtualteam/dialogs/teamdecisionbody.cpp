#include "virtualteam/dialogs/teamdecisionbody.h"

#include "common/displaytext.h"
#include "controls/avatarstore.h"
#include "controls/elidedlabel.h"
#include "controls/pictures.h"
#include "controls/rowpainter.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/slimscrollbar.h"
#include "controls/valuelabel.h"
#include "http/fileservices.h"
#include "virtualteam/dialogs/cvirtualteammemberlistview.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/fieldframe.h"
#include "virtualteam/dialogs/memberlistmodel.h"
#include "virtualteam/memberpicture.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QPlainTextEdit>

namespace {
constexpr int TeamPictureSize = 48; // device-independent pixels, as all below
constexpr int PortraitSize = 20;
constexpr int MarkSize = 48;
constexpr int FooterHeight = 56;
constexpr int ReasonLines = 4; // to be seen without scrolling
constexpr int RowsToSee = 3;
constexpr int LongestReason = 10000; // characters; the service takes far fewer

QString nameOf(const CVirtualTeamInfo &info)
{
    const QString nick = displayText(info.nickName);
    return nick.isEmpty() ? displayText(info.userId) : nick;
}
} // namespace

TeamDecisionBody::TeamDecisionBody(const char *personKey, QWidget *parent)
    : QWidget(parent), m_personKey(personKey)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(DialogParts::Edge, 8, DialogParts::Edge, 12);
    layout->setSpacing(12);
    layout->addLayout(buildHeader());
    layout->addLayout(buildFields());
    layout->addLayout(buildMembers(), 1);
    layout->addWidget(buildFooter());

    const auto repaintPortrait = [this] { showPicture(); };
    connect(&AvatarStore::instance(), &AvatarStore::pictureReady, this, repaintPortrait);
    connect(&PictureFiles::instance(), &PictureFiles::ready, this, repaintPortrait);
    retranslate();
}

// --- Parts -------------------------------------------------------------------------

QLayout *TeamDecisionBody::buildHeader()
{
    auto *picture = new QLabel(this);
    picture->setFixedSize(TeamPictureSize, TeamPictureSize);
    picture->setPixmap(
        loadPicture(QStringLiteral("Resources/images/FriendDetail/ic_VirtualTeamHead.png"),
                    TeamPictureSize, devicePixelRatioF()));
    m_teamName = new ElidedLabel(this);
    m_teamName->setObjectName(QStringLiteral("teamName"));
    m_teamName->setFont(skinFont(16, QFont::Medium));
    m_personCaption = DialogParts::quietLabel(this);
    m_portrait = new QLabel(this);
    m_portrait->setFixedSize(PortraitSize, PortraitSize);
    m_creator = new ElidedLabel(this);
    m_creator->setObjectName(QStringLiteral("creator"));
    m_creator->setFont(skinFont(13));
    m_creatorCode = new ElidedLabel(this);
    m_creatorCode->setObjectName(QStringLiteral("creatorCode"));
    m_creatorCode->setFont(skinFont(12));
    m_creatorCode->setForegroundRole(QPalette::PlaceholderText);

    auto *person = new QHBoxLayout;
    person->setSpacing(6);
    person->addWidget(m_personCaption);
    person->addWidget(m_portrait);
    person->addWidget(m_creator);
    person->addWidget(m_creatorCode);
    person->addStretch(1);
    auto *texts = new QVBoxLayout;
    texts->setSpacing(4);
    texts->addWidget(m_teamName);
    texts->addLayout(person);
    auto *layout = new QHBoxLayout;
    layout->setSpacing(12);
    layout->addWidget(picture);
    layout->addLayout(texts, 1);
    return layout;
}

ValueLabel *TeamDecisionBody::addField(const char *key, QGridLayout *layout)
{
    QLabel *caption = DialogParts::label(this);
    caption->setForegroundRole(QPalette::PlaceholderText);
    auto *value = new ValueLabel(this);
    value->setFont(skinFont(13));
    value->setObjectName(QLatin1String(key));
    caption->setBuddy(value);
    const int row = layout->rowCount();
    layout->addWidget(caption, row, 0);
    layout->addWidget(value, row, 1);
    m_fields.append({key, caption, value});
    return value;
}

QLayout *TeamDecisionBody::buildFields()
{
    auto *layout = new QGridLayout;
    layout->setHorizontalSpacing(12);
    layout->setVerticalSpacing(6);
    layout->setColumnStretch(1, 1);
    m_company = addField("teamCompany", layout);
    m_department = addField("department", layout);
    m_mobile = addField("mobileNumber", layout);
    m_reasonCaption = DialogParts::label(this);
    m_reasonCaption->setForegroundRole(QPalette::PlaceholderText);
    m_reason = new QPlainTextEdit(this);
    m_reason->setObjectName(QStringLiteral("reason"));
    m_reason->setReadOnly(true);
    m_reason->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_reason->setTabChangesFocus(true);
    m_reason->setFont(skinFont(13));
    m_reason->setFrameShape(QFrame::NoFrame);
    m_reason->document()->setDocumentMargin(0);
    m_reason->setFixedHeight(DialogParts::textHeight(m_reason->font(), ReasonLines));
    m_reason->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    useSlimScrollBar(m_reason);
    followSkin(m_reason);
    const int row = layout->rowCount();
    layout->addWidget(m_reasonCaption, row, 0, Qt::AlignTop);
    layout->addWidget(m_reason, row, 1);
    return layout;
}

QLayout *TeamDecisionBody::buildMembers()
{
    m_membersCaption = DialogParts::label(this);
    m_memberCount = DialogParts::quietLabel(this);
    m_members = new CVirtualTeamMemberListView(this);
    m_members->setMinimumHeight(RowsToSee * RowPainter::RowHeight);
    auto *layout = new QGridLayout;
    layout->setVerticalSpacing(6);
    layout->addWidget(m_membersCaption, 0, 0);
    layout->addWidget(m_memberCount, 0, 1, Qt::AlignRight);
    layout->addWidget(new FieldFrame(m_members, this), 1, 0, 1, 2);
    layout->setRowStretch(1, 1);
    return layout;
}

QWidget *TeamDecisionBody::buildFooter()
{
    auto *footer = new QWidget(this);
    // So that nothing moves when the mark comes into the place of the buttons.
    footer->setFixedHeight(FooterHeight);
    m_agree = new SkinButton(SkinButton::Primary, QString(), footer);
    m_agree->setObjectName(QStringLiteral("agree"));
    m_refuse = new SkinButton(SkinButton::Outline, QString(), footer);
    m_refuse->setObjectName(QStringLiteral("refuse"));
    m_mark = new QLabel(footer);
    m_mark->setObjectName(QStringLiteral("mark"));
    m_mark->setFixedSize(MarkSize, MarkSize);
    m_markText = DialogParts::label(footer);
    m_markText->setObjectName(QStringLiteral("markText"));
    auto *layout = new QHBoxLayout(footer);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addStretch(1);
    for (QWidget *part : {static_cast<QWidget *>(m_mark), static_cast<QWidget *>(m_markText),
                          static_cast<QWidget *>(m_agree), static_cast<QWidget *>(m_refuse)})
        layout->addWidget(part);
    layout->addStretch(1);
    for (SkinButton *button : {m_agree, m_refuse}) {
        button->setMinimumWidth(DialogParts::ButtonWidth);
        connect(button, &QPushButton::clicked, this, [this, button] {
            m_pressed = button;
            emit decided(button == m_agree);
        });
    }
    return footer;
}

// --- Content -----------------------------------------------------------------------

void TeamDecisionBody::setInfo(const CVirtualTeamInfo &info)
{
    m_info = info;
    m_teamName->setText(displayText(info.vtName));
    m_creator->setText(nameOf(info));
    m_creatorCode->setText(displayText(info.creatorEmployeeCode));
    m_company->setValue(info.companyName);
    m_department->setValue(info.orgName);
    m_mobile->setValue(info.mobile);
    for (const Field &field : qAsConst(m_fields)) {
        field.caption->setHidden(field.value->value().isEmpty());
        field.value->setHidden(field.value->value().isEmpty());
    }
    m_reason->setPlainText(info.reason.left(LongestReason));
    m_members->members()->setMembers(info.members);
    m_memberCount->setText(QString::number(m_members->members()->rowCount()));
    showPicture();
    if (info.audited && isOpen())
        m_outcome = Decided;
    showOutcome();
}

void TeamDecisionBody::showPicture()
{
    if (m_info.userId.isEmpty())
        return;
    const QString file = memberPicture(m_info.userId, m_info.photoName);
    m_portrait->setPixmap(AvatarStore::instance().avatar(
        file, makeJid(m_info.userId), nameOf(m_info), PortraitSize, devicePixelRatioF()));
}

void TeamDecisionBody::setOutcome(Outcome outcome)
{
    m_outcome = outcome;
    showOutcome();
}

void TeamDecisionBody::setDeciding(bool deciding)
{
    m_deciding = deciding;
    showOutcome();
    if (!deciding && m_pressed)
        m_pressed->setFocus(); // which went elsewhere when it was disabled
}

void TeamDecisionBody::showOutcome()
{
    m_agree->setVisible(isOpen());
    m_refuse->setVisible(isOpen());
    m_agree->setEnabled(!m_deciding);
    m_refuse->setEnabled(!m_deciding);
    const bool isKnown = m_outcome == Agreed || m_outcome == Refused;
    m_mark->setVisible(isKnown);
    m_markText->setVisible(!isOpen());
    if (isKnown) {
        const char *picture = m_outcome == Agreed ? "Resources/images/FriendDetail/ic_agreed.png"
                                                  : "Resources/images/FriendDetail/ic_refused.png";
        m_mark->setPixmap(loadPicture(QLatin1String(picture), MarkSize, devicePixelRatioF()));
    }
    m_markText->setText(m_outcome == Agreed    ? QObject::tr("teamAgreed")
                        : m_outcome == Refused ? QObject::tr("teamRefused")
                        : m_outcome == Gone    ? QObject::tr("teamRequestGone")
                                               : QObject::tr("teamDecided"));
    m_mark->setAccessibleName(m_markText->text());
}

void TeamDecisionBody::retranslate()
{
    for (const Field &field : qAsConst(m_fields)) {
        field.caption->setText(QObject::tr(field.key));
        field.value->setAccessibleName(field.caption->text());
    }
    m_personCaption->setText(QObject::tr(m_personKey));
    m_reasonCaption->setText(QObject::tr("teamReason"));
    m_reason->setAccessibleName(m_reasonCaption->text());
    m_membersCaption->setText(QObject::tr("invitedMembers"));
    m_members->setAccessibleName(m_membersCaption->text());
    m_agree->setText(QObject::tr("agree"));
    m_refuse->setText(QObject::tr("refuse"));
    showOutcome();
}

void TeamDecisionBody::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
