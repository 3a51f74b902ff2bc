#include "host/levermenu.h"

#include "host/core/embeddedcore.h"
#include "host/core/presencesimulator.h"

#include <QEvent>
#include <QMetaEnum>

namespace {

QMetaEnum operations()
{
    return QMetaEnum::fromType<EmbeddedCore::Operation>();
}

// "Create group" from "CreateGroup": levers are named after the core's functions,
// which a developer looks for in the code, in every language.
QString spaced(const QString &name)
{
    QString text;
    for (const QChar c : name) {
        if (c.isUpper() && !text.isEmpty())
            text += QLatin1Char(' ') + c.toLower();
        else
            text += c;
    }
    return text;
}

} // namespace

LeverMenu::LeverMenu(EmbeddedCore *core, PresenceSimulator *simulator, QWidget *parent)
    : QMenu(parent),
      m_core(core),
      m_simulator(simulator),
      m_failMenu(addMenu(QString())),
      m_silentMenu(addMenu(QString()))
{
    setObjectName(QStringLiteral("leverMenu"));
    build(Failing, m_failMenu);
    build(Silent, m_silentMenu);
    addSeparator();
    m_refuse = addAction(QString());
    m_refuse->setObjectName(QStringLiteral("refuseRequests"));
    m_refuse->setCheckable(true);
    connect(m_refuse, &QAction::toggled, this, [this](bool on) {
        m_core->setRefusal(on ? tr("Sorry, I do not know you.") : QString());
    });
    m_simulate = addAction(QString());
    m_simulate->setObjectName(QStringLiteral("simulatePresence"));
    m_simulate->setCheckable(true);
    m_somebodyWrites = addAction(QString());
    m_somebodyAsks = addAction(QString());
    connect(m_simulate, &QAction::toggled, this, &LeverMenu::setSimulating);
    connect(m_somebodyWrites, &QAction::triggered, m_simulator, &PresenceSimulator::receiveMessage);
    connect(m_somebodyAsks, &QAction::triggered, this, [this] {
        // Somebody of the company who is no contact yet; in a large company
        // everybody is one, and then nobody is left to ask.
        for (int index = m_core->company().people() - 1; index > 0; --index) {
            const QString jid =
                m_core->sample().mate(index).uid + QLatin1Char('@') + SampleCompany::domain();
            FriendData contact;
            if (!m_core->contact(jid, &contact)) {
                m_core->receiveContactRequest(jid, tr("Hello, we met at the fair."));
                return;
            }
        }
    });
    retranslate();
}

QStringList LeverMenu::operationNames()
{
    QStringList names;
    for (int i = 0; i < operations().keyCount(); ++i)
        names.append(QString::fromLatin1(operations().key(i)));
    return names;
}

void LeverMenu::build(Kind kind, QMenu *menu)
{
    QVector<Lever> &levers = kind == Failing ? m_failing : m_silent;
    const auto add = [&](int operation, const QString &text) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        connect(action, &QAction::toggled, this,
                [this, kind, operation](bool on) { pull(kind, operation, on); });
        levers.append({operation, action});
    };
    add(-1, QString());
    menu->addSeparator();
    for (int i = 0; i < operations().keyCount(); ++i) {
        const QString name = QString::fromLatin1(operations().key(i));
        add(operations().value(i), spaced(name));
        menu->actions().constLast()->setObjectName(
            (kind == Failing ? QStringLiteral("fail") : QStringLiteral("silent")) + name);
    }
}

void LeverMenu::pull(Kind kind, int operation, bool on)
{
    const QVector<Lever> &levers = kind == Failing ? m_failing : m_silent;
    if (operation < 0) {
        for (const Lever &lever : levers) {
            if (lever.operation >= 0)
                lever.action->setChecked(on);
        }
        return;
    }
    if (kind == Failing)
        m_core->setFailing(EmbeddedCore::Operation(operation), on);
    else
        m_core->setSilent(EmbeddedCore::Operation(operation), on);
}

void LeverMenu::set(Kind kind, const QString &operation, bool on)
{
    bool known = operation == QLatin1String("all");
    const int value = known ? -1 : operations().keyToValue(operation.toLatin1(), &known);
    if (!known)
        return;
    for (const Lever &lever : kind == Failing ? m_failing : m_silent) {
        if (lever.operation == value)
            lever.action->setChecked(on);
    }
}

void LeverMenu::setFailing(const QString &operation, bool failing)
{
    set(Failing, operation, failing);
}

void LeverMenu::setSilent(const QString &operation, bool silent)
{
    set(Silent, operation, silent);
}

void LeverMenu::setSimulating(bool on)
{
    m_simulate->setChecked(on);
    if (on == m_simulator->isRunning())
        return;
    if (on)
        m_simulator->start();
    else
        m_simulator->stop();
}

void LeverMenu::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QMenu::changeEvent(event);
}

void LeverMenu::retranslate()
{
    setTitle(tr("&Levers"));
    m_failMenu->setTitle(tr("Fail"));
    m_silentMenu->setTitle(tr("Never answer"));
    m_failing.constFirst().action->setText(tr("Everything"));
    m_silent.constFirst().action->setText(tr("Everything"));
    m_refuse->setText(tr("People who are asked refuse"));
    m_simulate->setText(tr("People come, go and answer"));
    m_somebodyWrites->setText(tr("Somebody writes now"));
    m_somebodyAsks->setText(tr("Somebody asks to become a contact"));
}
