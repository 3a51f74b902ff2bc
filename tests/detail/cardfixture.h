// Contact cards on screen, and the host behind them.
#pragma once

#include "controls/valuelabel.h"
#include "controls/inputbox.h"
#include "controls/tipbox.h"
#include "detail/cardbody.h"
#include "detail/cdetailview.h"
#include "detail/cdetailviewmanager.h"
#include "detail/ownprofilewindow.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/fakehost.h"
#include "tests/support/recordingactions.h"

#include <QApplication>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>

// Own jid me@corp.example; the contact anna with a remark and a complete profile that
// only the host knows; nothing is known of stranger@corp.example.
class CardFixture
{
public:
    const QString anna = QStringLiteral("anna@corp.example");
    const QString stranger = QStringLiteral("stranger@corp.example");

    CardFixture()
    {
        TipBox::setNextAnswers(TipBox::Cancel);
        host.context.user = QStringLiteral("me");
        host.context.baseFolder = folder.path();
        FriendData contact;
        contact.jid = anna;
        contact.nickName = QString::fromUtf8("安娜");
        contact.remark = QString::fromUtf8("项目经理");
        host.context.addContact(contact);
    }
    ~CardFixture()
    {
        const QWidgetList windows = QApplication::topLevelWidgets();
        for (QWidget *window : windows) {
            if (qobject_cast<BaseDialog *>(window))
                window->close();
        }
        settle();
        TipBox::setNextAnswers(TipBox::ShowBox);
    }
    CardFixture(const CardFixture &) = delete;
    CardFixture &operator=(const CardFixture &) = delete;

    static void settle()
    {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    CDetailView *open(const QString &jid)
    {
        CDetailViewManager::instance()->openDialogByJid(jid);
        return CDetailViewManager::instance()->openDialog(jid);
    }

    // Each text differs from every other, so that no row can show another's.
    VcardInfo profileOf(const QString &jid) const
    {
        VcardInfo profile;
        profile.jid = jid;
        profile.userName = jid.section(QLatin1Char('@'), 0, 0);
        profile.nickName = QString::fromUtf8("安娜");
        profile.sign = QString::fromUtf8("保持热爱，奔赴山海");
        profile.sex = QString::fromUtf8("女");
        profile.orgName = QString::fromUtf8("产品研发部");
        profile.duty = QString::fromUtf8("高级产品经理");
        profile.mobile = QStringLiteral("13800000001");
        profile.otherPhone = QStringLiteral("8021");
        profile.personalMobile = QStringLiteral("13900000002");
        profile.email = QStringLiteral("anna@mail.example");
        profile.locality = QString::fromUtf8("南京");
        profile.companyName = QString::fromUtf8("示例科技有限公司");
        profile.leaderId = QStringLiteral("boss");
        profile.leaderName = QString::fromUtf8("李明朗");
        return profile;
    }
    void answer(const QString &jid)
    {
        FakeHost::send(Inbound::FullProfileReceived, jid, profileOf(jid));
    }

    static QWidget *part(const QWidget *card, const char *name)
    {
        return card->findChild<QWidget *>(QLatin1String(name));
    }
    static QPushButton *button(const QWidget *card, const char *name)
    {
        return card->findChild<QPushButton *>(QLatin1String(name));
    }
    static ValueLabel *row(const QWidget *card, const char *name)
    {
        return card->findChild<ValueLabel *>(QLatin1String(name));
    }
    static QString text(const QWidget *card, const char *name)
    {
        return part(card, name)->property("text").toString();
    }
    static bool isLoading(const QWidget *card) { return part(card, "widget_loading")->isVisible(); }
    static bool hasFailed(const QWidget *card) { return part(card, "reloadWidget")->isVisible(); }

    QTemporaryDir folder;
    FakeHost host;
    RecordingActions actions;
};
