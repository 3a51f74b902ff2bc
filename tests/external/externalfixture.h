// The windows about external contacts, with a host that records what is asked of it.
#pragma once

#include "ExternalFriend/addexternalfrdmanager.h"
#include "ExternalFriend/addexternalfriend.h"
#include "ExternalFriend/tiplabel.h"
#include "controls/tipbox.h"
#include "controls/validationedit.h"
#include "tests/support/fakehost.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

// Own jid me@corp.example; eve@other.example cooperates, that is, is no colleague.
class ExternalFixture
{
public:
    ExternalFixture()
    {
        host.context.user = QStringLiteral("me");
        host.context.cooperation.insert(eve(), false);
        manager(); // as the assembly does
        TipBox::setNextAnswers(TipBox::Sure);
        m_boxes = TipBox::count();
    }
    ~ExternalFixture()
    {
        FakeHost::send(Inbound::LoginChanged, false); // closes the windows
        settle();
        TipBox::setNextAnswers(TipBox::ShowBox);
    }

    static QString eve() { return QStringLiteral("eve@other.example"); }
    static AddExternalFrdManager *manager() { return AddExternalFrdManager::instance(); }
    static AddExternalFriend *dialog() { return manager()->dialog(eve()); }

    AddExternalFriend *open()
    {
        manager()->openDialog(eve());
        return dialog();
    }
    static AddExternalFriend *ask(const QString &text, const QString &jid = eve())
    {
        FakeHost::send(Inbound::ContactRequested, jid, text, QString());
        return manager()->dialog(jid);
    }
    static void answer(bool ok, int code, int action)
    {
        manager()->externalContactAnswer(eve(), ok, code, action);
    }
    void makeContact()
    {
        FriendData contact;
        contact.jid = eve();
        contact.outside = 1;
        host.context.addContact(contact);
        FakeHost::send(Inbound::ContactAdded, eve());
    }

    // "Send", "Confirm"...: those that are seen, one that waits in brackets.
    static QString buttons(const AddExternalFriend *window)
    {
        QStringList seen;
        for (const char *name : {"btnMail", "btnChat", "btnBlackList", "btnSend", "btnConfirm"}) {
            const QPushButton *one = button(window, name);
            const QString text = QString::fromLatin1(name).mid(3);
            if (one->isVisibleTo(window))
                seen.append(one->isEnabled() ? text : QLatin1Char('(') + text + QLatin1Char(')'));
        }
        return seen.join(QLatin1Char(' '));
    }
    static QPushButton *button(const AddExternalFriend *window, const char *name)
    {
        return window->findChild<QPushButton *>(QLatin1String(name));
    }
    static void click(const AddExternalFriend *window, const char *name)
    {
        QTest::mouseClick(button(window, name), Qt::LeftButton);
    }
    static QString status(const AddExternalFriend *window)
    {
        return window->findChild<TipLabel *>()->text();
    }
    static QString text(const AddExternalFriend *window, const char *label)
    {
        const auto *found = window->findChild<QLabel *>(QLatin1String(label));
        return found->isVisibleTo(window) ? found->text() : QString();
    }
    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    int boxes() const { return TipBox::count() - m_boxes; }
    void setOffline() { host.context.settings.setConnected(false); }

    FakeHost host;

private:
    int m_boxes = 0;
};
