#include "virtualteam/dialogs/virtualteameditwidget.h"

#include "controls/skinbutton.h"
#include "controls/tipbox.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/fieldframe.h"
#include "virtualteam/dialogs/teamnameedit.h"
#include "virtualteam/teamrecords.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int Width = 340; // device-independent pixels, as all below
constexpr int ButtonWidth = 84;

struct ModeTexts
{
    const char *title;
    const char *refusesEmpty; // null: it may be empty
};

ModeTexts textsOf(VirtualTeamEditWidget::Mode mode)
{
    switch (mode) {
    case VirtualTeamEditWidget::AddGroup:
        return {"addTeamGroupName", "teamnotempty"};
    case VirtualTeamEditWidget::RenameGroup:
        return {"modifyTeamGroupName", "teamnotempty"};
    case VirtualTeamEditWidget::NickName:
        return {"editNickName", nullptr};
    case VirtualTeamEditWidget::Post:
        return {"virtemModPostName", nullptr};
    case VirtualTeamEditWidget::TeamName:
        return {"virtemModGrpName", "teamNameNotempty"};
    }
    return {"", nullptr};
}

} // namespace

VirtualTeamEditWidget::VirtualTeamEditWidget(Mode mode, const QString &preset, QWidget *parent)
    : BaseDialog(parent),
      m_mode(mode),
      m_line(new TeamNameEdit(this)),
      m_state(DialogParts::quietLabel(this)),
      m_length(DialogParts::quietLabel(this)),
      m_sure(new SkinButton(SkinButton::Primary, QString(), this)),
      m_cancel(new SkinButton(SkinButton::Outline, QString(), this))
{
    setObjectName(QStringLiteral("VirtualTeamEditWidget"));
    setTitleKey(textsOf(mode).title);
    build();
    m_line->setText(preset);
    m_preset = m_line->name();
    m_line->selectAll(); // typing replaces what is there
    m_line->setFocus();
    retranslate();
    showLength();
    connect(m_line, &QLineEdit::textChanged, this, &VirtualTeamEditWidget::showLength);
    connect(m_line, &QLineEdit::returnPressed, this, &VirtualTeamEditWidget::confirm);
    connect(m_sure, &QPushButton::clicked, this, &VirtualTeamEditWidget::confirm);
    connect(m_cancel, &QPushButton::clicked, this, &QDialog::reject);
}

void VirtualTeamEditWidget::build()
{
    m_state->setObjectName(QStringLiteral("label_state"));
    m_length->setObjectName(QStringLiteral("label_length"));
    m_line->setPlaceholderText(QString()); // the length stands below, in every language
    m_sure->setObjectName(QStringLiteral("sureButton"));
    m_cancel->setObjectName(QStringLiteral("cancelButton"));
    for (SkinButton *button : {m_sure, m_cancel})
        button->setMinimumWidth(ButtonWidth);

    auto *notes = new QHBoxLayout;
    notes->addWidget(m_state, 1);
    notes->addWidget(m_length);
    auto *buttons = new QHBoxLayout;
    buttons->setSpacing(10);
    buttons->addStretch(1);
    buttons->addWidget(m_sure);
    buttons->addWidget(m_cancel);
    auto *body = new QVBoxLayout;
    body->setContentsMargins(DialogParts::Edge, 8, DialogParts::Edge, DialogParts::Edge);
    body->setSpacing(6);
    body->addWidget(new FieldFrame(m_line, this));
    body->addLayout(notes);
    body->addSpacing(10);
    body->addLayout(buttons);
    bodyLayout()->addLayout(body);
    setMinimumWidth(Width);
}

void VirtualTeamEditWidget::confirm()
{
    if (m_waiting)
        return;
    const QString text = m_line->name();
    const char *refusal = textsOf(m_mode).refusesEmpty;
    if (text.isEmpty() && refusal) {
        TipBox::tell(this, QObject::tr(refusal));
        return;
    }
    setWaiting(true);
    emit signal_sure(text); // whoever hears it may destroy this
}

void VirtualTeamEditWidget::finish(bool ok)
{
    setWaiting(false);
    if (ok)
        accept();
    else
        m_line->setFocus();
}

void VirtualTeamEditWidget::setWaiting(bool waiting)
{
    m_waiting = waiting;
    m_sure->setEnabled(!waiting);
    m_line->setReadOnly(waiting);
    retranslate();
}

void VirtualTeamEditWidget::showLength()
{
    m_length->setText(QStringLiteral("%1/%2").arg(m_line->text().size()).arg(TeamLimits::Name));
}

void VirtualTeamEditWidget::retranslate()
{
    m_sure->setText(QObject::tr("sure"));
    m_cancel->setText(QObject::tr("cancel"));
    m_state->setText(m_waiting ? QObject::tr("teamSaving") : QString());
    m_line->setAccessibleName(windowTitle());
    m_line->setAccessibleDescription(m_state->text());
}

void VirtualTeamEditWidget::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event); // the title first
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
