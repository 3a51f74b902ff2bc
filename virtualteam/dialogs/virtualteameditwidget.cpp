#include "virtualteam/dialogs/virtualteameditwidget.h"

#include "controls/tipbox.h"
#include "virtualteam/dialogs/dialogbar.h"
#include "virtualteam/dialogs/dialogparts.h"
#include "virtualteam/dialogs/fieldframe.h"
#include "virtualteam/dialogs/teamnameedit.h"
#include "virtualteam/teamrecords.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {

constexpr int Width = 340; // device-independent pixels

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
      m_length(DialogParts::quietLabel(this)),
      m_bar(new DialogBar(this))
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
    connect(m_bar, &DialogBar::sure, this, &VirtualTeamEditWidget::confirm);
    connect(m_bar, &DialogBar::cancelled, this, &QDialog::reject);
}

void VirtualTeamEditWidget::build()
{
    m_length->setObjectName(QStringLiteral("nameLength"));
    m_line->setPlaceholderText(QString()); // the length stands below, in every language
    auto *body = new QVBoxLayout;
    body->setContentsMargins(DialogParts::Edge, 8, DialogParts::Edge, 12);
    body->setSpacing(6);
    body->addWidget(new FieldFrame(m_line, this));
    body->addWidget(m_length, 0, Qt::AlignRight);
    bodyLayout()->addLayout(body);
    bodyLayout()->addWidget(m_bar);
    setMinimumWidth(Width);
}

void VirtualTeamEditWidget::confirm()
{
    if (isWaiting())
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
    m_bar->setBusy(waiting);
    m_line->setReadOnly(waiting);
    retranslate();
}

bool VirtualTeamEditWidget::isWaiting() const
{
    return m_bar->isBusy();
}

void VirtualTeamEditWidget::showLength()
{
    m_length->setText(QStringLiteral("%1/%2").arg(m_line->text().size()).arg(TeamLimits::Name));
}

void VirtualTeamEditWidget::retranslate()
{
    m_line->setAccessibleName(windowTitle());
    m_line->setAccessibleDescription(isWaiting() ? QObject::tr("teamWorking") : QString());
}

void VirtualTeamEditWidget::changeEvent(QEvent *event)
{
    BaseDialog::changeEvent(event); // the title first
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}
