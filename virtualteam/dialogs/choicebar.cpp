#include "virtualteam/dialogs/choicebar.h"

#include "common/displaytext.h"
#include "controls/elidedlabel.h"
#include "controls/skin.h"
#include "controls/skinbutton.h"
#include "virtualteam/dialogs/dialogparts.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>

namespace {
constexpr int Edge = 16; // device-independent pixels, as all below
constexpr int Gap = 8;
} // namespace

ChoiceBar::ChoiceBar(QWidget *parent)
    : QWidget(parent),
      m_note(new ElidedLabel(this)),
      m_cancel(new SkinButton(SkinButton::Outline, QString(), this)),
      m_sure(new SkinButton(SkinButton::Primary, QString(), this))
{
    m_note->setObjectName(QStringLiteral("note"));
    m_note->setFont(skinFont(12));
    m_note->setForegroundRole(QPalette::PlaceholderText);
    m_note->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_cancel->setObjectName(QStringLiteral("btnCancel"));
    m_sure->setObjectName(QStringLiteral("btnSure"));
    m_sure->setDefault(true);
    setTabOrder(m_sure, m_cancel);
    for (SkinButton *button : {m_sure, m_cancel})
        button->setMinimumWidth(DialogParts::ButtonWidth);
    connect(&Skin::instance(), &Skin::changed, this, qOverload<>(&QWidget::update));
    connect(m_cancel, &QPushButton::clicked, this, &ChoiceBar::cancelled);
    connect(m_sure, &QPushButton::clicked, this, &ChoiceBar::sure);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Edge, Edge - Gap / 2, Edge, Edge - Gap / 2);
    layout->setSpacing(Gap);
    layout->addWidget(m_note, 1);
    layout->addWidget(m_sure);
    layout->addWidget(m_cancel);
    showState();
}

void ChoiceBar::setNote(const QString &text)
{
    m_text = ::displayText(text);
    showState();
}

void ChoiceBar::setSureEnabled(bool enabled)
{
    m_sureEnabled = enabled;
    showState();
}

void ChoiceBar::setBusy(bool busy)
{
    if (busy == m_busy)
        return;
    QWidget *focused = window()->focusWidget();
    if (busy && focused) {
        m_focusBefore = focused;
        m_cancel->setFocus();
    }
    m_busy = busy;
    showState();
    if (!busy && m_focusBefore && focused == m_cancel)
        m_focusBefore->setFocus();
}

void ChoiceBar::showState()
{
    m_note->setText(m_busy ? QObject::tr("teamWorking") : m_text);
    m_cancel->setText(QObject::tr("cancel"));
    m_sure->setText(QObject::tr("sure"));
    m_sure->setEnabled(m_sureEnabled && !m_busy);
}

void ChoiceBar::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        showState();
    QWidget::changeEvent(event);
}

void ChoiceBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(Skin::instance().colors().border);
    painter.drawLine(0, 0, width(), 0);
}
