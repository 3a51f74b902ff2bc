#include "detail/detailrows.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "controls/valuelabel.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {
constexpr int CaptionWidth = 52; // device-independent pixels, as all below
constexpr int RowHeight = 26;

struct RowKind
{
    const char *widget;
    const char *caption;
    const char *value;
    const char *text; // the caption, the same in every language
    const char *key;  // what it means, in the user's language
};
const RowKind kinds[] = {
    {"remarkWidget", "Remark_Lab", "Remark", "备   注", QT_TRANSLATE_NOOP("QObject", "remark")},
    {"departmentWidget", "Department_Lab", "Department", "部   门",
     QT_TRANSLATE_NOOP("QObject", "department")},
    {"positionWidget", "Position_Lab", "Position", "职   位",
     QT_TRANSLATE_NOOP("QObject", "position")},
    {"leaderWidget", "leader_Lab", "leaderName", "负责人", QT_TRANSLATE_NOOP("QObject", "leader")},
    {"mobileWidget", "mobileEmp_lab", "mobileEmp", "手机号",
     QT_TRANSLATE_NOOP("QObject", "mobileNumber")},
    {"otherPhoneWidget", "otherPhone_lab", "otherPhone", "个人号",
     QT_TRANSLATE_NOOP("QObject", "personalNumber")},
    {"phoneWidget", "phoneEmp_lab", "phoneEmp", "分   机",
     QT_TRANSLATE_NOOP("QObject", "extensionNumber")},
    {"emailWidget", "Email_Lab", "Email", "邮   箱", QT_TRANSLATE_NOOP("QObject", "emailAddress")},
    {"locationWidget", "Location_Lab", "Location", "位   置",
     QT_TRANSLATE_NOOP("QObject", "location")},
};

QString leaderNameOf(const VcardInfo &profile)
{
    if (!profile.leaderName.isEmpty() || profile.leaderId.isEmpty())
        return profile.leaderName;
    FriendData contact;
    contact.jid = makeJid(profile.leaderId);
    ctx().friendData(contact.jid, &contact);
    return contactDisplayName(contact);
}
} // namespace

DetailRows::DetailRows(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(2);
    for (int i = 0; i < int(std::size(kinds)); ++i)
        addRow(i);

    connect(value("leaderName"), &ValueLabel::activated, this,
            [this] { emit leaderClicked(m_leaderJid); });
    retranslate();
}

void DetailRows::addRow(int index)
{
    const RowKind &kind = kinds[index];
    auto *row = new QWidget(this);
    row->setObjectName(QLatin1String(kind.widget));
    row->setFixedHeight(RowHeight);
    auto *caption = new QLabel(QString::fromUtf8(kind.text), row);
    caption->setObjectName(QLatin1String(kind.caption));
    QPalette captionColor;
    captionColor.setColor(QPalette::WindowText, QColor(143, 143, 143));
    caption->setPalette(captionColor);
    caption->setTextFormat(Qt::PlainText);
    caption->setFont(skinFont(12));
    caption->setFixedWidth(CaptionWidth);
    auto *value = new ValueLabel(row);
    value->setObjectName(QLatin1String(kind.value));
    value->setFont(skinFont(13));
    value->setTextWhenEmpty(QStringLiteral("---"));
    caption->setBuddy(value);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(8);
    layout->addWidget(caption);
    layout->addWidget(value, 1);
    this->layout()->addWidget(row);
    m_rows.append({caption, value, kind.key});
    // Made at once, so that Tab comes to it after the remark.
    if (value->objectName() == QLatin1String("Remark"))
        addRemarkButton(value, layout);
}

void DetailRows::addRemarkButton(ValueLabel *remark, QHBoxLayout *layout)
{
    m_setName =
        new SkinButton(SkinButton::Flat, QStringLiteral("Resources/images/icon/glyph_edit.png"),
                       remark->parentWidget());
    m_setName->setObjectName(QStringLiteral("btnSetName"));
    m_setName->setFixedSize(24, 24);
    connect(m_setName, &QPushButton::clicked, this, &DetailRows::remarkClicked);
    // Beside the text, not at the far end of the row.
    remark->setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
    layout->addWidget(m_setName);
    layout->addStretch();
}

ValueLabel *DetailRows::value(const char *name) const
{
    for (const Row &row : m_rows) {
        if (row.value->objectName() == QLatin1String(name))
            return row.value;
    }
    return nullptr;
}

void DetailRows::setValue(const char *name, const QString &text, bool complete)
{
    ValueLabel *label = value(name);
    label->setTextWhenEmpty(complete ? QStringLiteral("---") : QString(QChar(0x2026)));
    label->setValue(text.trimmed());
}

void DetailRows::fill(const VcardInfo &profile, bool complete)
{
    setValue("Department", profile.orgName, complete);
    setValue("Position", profile.duty, complete);
    setValue("leaderName", leaderNameOf(profile), complete);
    setValue("mobileEmp", profile.mobile, complete);
    setValue("otherPhone", profile.personalMobile, complete);
    setValue("phoneEmp", profile.otherPhone, complete);
    setValue("Email", profile.email, complete);
    setValue("Location", profile.locality, complete);
    m_leaderJid = makeJid(profile.leaderId);
    retranslate();
}

void DetailRows::showRemark(bool show)
{
    value("Remark")->parentWidget()->setVisible(show);
}

void DetailRows::setRemark(const QString &remark)
{
    setValue("Remark", remark, true);
    retranslate();
}

void DetailRows::setRemarkEditable(bool isContact, bool connected)
{
    m_setName->setVisible(isContact);
    m_setName->setEnabled(connected);
}

void DetailRows::retranslate()
{
    for (const Row &row : m_rows) {
        const QString meaning = QObject::tr(row.key);
        row.caption->setToolTip(meaning);
        row.value->setAccessibleName(QStringLiteral("%1: %2").arg(meaning, row.value->text()));
    }
    m_setName->setToolTip(QObject::tr("changeRemark"));
    m_setName->setAccessibleName(QObject::tr("changeRemark"));
    value("leaderName")->setLink(!m_leaderJid.isEmpty(), QObject::tr("clickToLookup"));
}

void DetailRows::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
