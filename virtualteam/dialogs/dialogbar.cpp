#include "virtualteam/dialogs/dialogbar.h"

#include "common/displaytext.h"
#include "controls/elidedlabel.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "virtualteam/dialogs/dialogparts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {
constexpr int Gap = 8; // device-independent pixels, as all below
constexpr int Margin = 12;
} // namespace

DialogBar::DialogBar(QWidget *parent)
    : QWidget(parent),
      m_note(new ElidedLabel(this)),
      m_sure(new SkinButton(SkinButton::Primary, QString(), this)),
      m_cancel(new SkinButton(SkinButton::Outline, QString(), this))
{
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setFont(skinFont(12));
    m_note->setForegroundRole(QPalette::PlaceholderText);
    m_note->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_sure->setObjectName(QStringLiteral("btnSure"));
    m_sure->setDefault(true);
    m_cancel->setObjectName(QStringLiteral("btnCancel"));
    for (SkinButton *button : {m_sure, m_cancel})
        button->setMinimumWidth(DialogParts::ButtonWidth);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
    connect(m_sure, &QPushButton::clicked, this, &DialogBar::sure);
    connect(m_cancel, &QPushButton::clicked, this, &DialogBar::cancelled);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(DialogParts::Edge, Margin, DialogParts::Edge, Margin);
    layout->setSpacing(Gap);
    layout->addWidget(m_note, 1);
    layout->addWidget(m_sure);
    layout->addWidget(m_cancel);
    showState();
}

void DialogBar::setNote(const QString &text)
{
    m_text = ::displayText(text);
    showState();
}

void DialogBar::setSureEnabled(bool enabled)
{
    m_sureEnabled = enabled;
    showState();
}

void DialogBar::setBusy(bool busy)
{
    if (m_busy == busy)
        return;
    m_busy = busy;
    showState();
    // The focus went on to the next button, or nowhere, when "sure" was disabled.
    const QWidget *focus = window()->focusWidget();
    if (!busy && m_sure->isEnabled() && (!focus || focus == m_cancel))
        m_sure->setFocus();
}

void DialogBar::showState()
{
    m_note->setText(m_busy ? QObject::tr("teamWorking") : m_text);
    m_sure->setText(QObject::tr("sure"));
    m_cancel->setText(QObject::tr("cancel"));
    m_sure->setEnabled(m_sureEnabled && !m_busy);
}

void DialogBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showState();
    QWidget::changeEvent(event);
}

void DialogBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(Skin::instance().colors().border);
    painter.drawLine(0, 0, width(), 0);
}
