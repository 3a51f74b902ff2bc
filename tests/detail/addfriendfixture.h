// The add-contact flow with a host that records what is asked of it.
#pragma once

#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "controls/validationedit.h"
#include "detail/addfriend.h"
#include "detail/addfriendpages.h"
#include "detail/caddfriendmannger.h"
#include "tests/support/fakehost.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTest>
#include <QTimer>

// Own jid me@corp.example; the groups "" (the default one), g1 "Alpha" and g2 "Beta".
class AddFriendFixture
{
public:
    AddFriendFixture()
    {
        host.context.user = QStringLiteral("me");
        host.context.innerGroups = {{QStringLiteral(""), QString::fromUtf8("我的好友")},
                                    {QStringLiteral("g1"), QStringLiteral("Alpha")},
                                    {QStringLiteral("g2"), QStringLiteral("Beta")}};
        TipBox::setNextAnswers(TipBox::Sure);
        m_boxes = TipBox::count();
    }
    ~AddFriendFixture()
    {
        // The manager is the process's; no window may outlive its test.
        for (const QString &jid : {anna(), bob()})
            delete manager()->dialog(jid);
        FakeHost::send(Inbound::LoginChanged, false);
        TipBox::setNextAnswers(TipBox::ShowBox);
    }

    static QString anna() { return QStringLiteral("anna@corp.example"); }
    static QString bob() { return QStringLiteral("bob@corp.example"); }
    static CAddFriendMannger *manager() { return CAddFriendMannger::instance(); }

    AddFriend *open(const QString &jid = anna())
    {
        manager()->openDialog(jid);
        return manager()->dialog(jid);
    }
    static void policy(const char *config, const QString &jid = anna(),
                       const QString &group = QString(), bool mayOpen = false)
    {
        FakeHost::send(Inbound::RequestPolicy, jid, QString::fromLatin1(config), group, QString(),
                       mayOpen);
    }
    // Anna's window with the form of a person who asks first.
    AddFriend *openForm(const char *config = "NEED_CONFIRM")
    {
        AddFriend *dialog = open();
        policy(config);
        return dialog;
    }

    static QString page(const AddFriend *dialog)
    {
        return dialog->findChild<QStackedWidget *>(QStringLiteral("addFriendPages"))
            ->currentWidget()
            ->objectName();
    }
    static QString text(const AddFriend *dialog, const char *label)
    {
        const auto *found = dialog->findChild<QLabel *>(QLatin1String(label));
        return found && !found->isHidden() ? found->text() : QString();
    }
    static QPushButton *button(const AddFriend *dialog, const char *name)
    {
        return dialog->findChild<QPushButton *>(QLatin1String(name));
    }
    static void click(const AddFriend *dialog, const char *name)
    {
        QTest::mouseClick(button(dialog, name), Qt::LeftButton);
    }
    static bool isShown(const AddFriend *dialog, const char *name)
    {
        return button(dialog, name)->isVisibleTo(dialog);
    }
    static QTimer *timer(const AddFriend *dialog)
    {
        return dialog->findChild<QTimer *>(QStringLiteral("waitTimer"));
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
