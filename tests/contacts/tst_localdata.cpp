// What happens to the list of the machine's users when somebody logs in.
#include "common/callusersinfodb.h"
#include "common/clientpaths.h"
#include "contacts/localdata.h"
#include "controls/tipbox.h"
#include "plugin/frienduisignalsender.h"
#include "tests/support/files.h"
#include "tests/support/localuser.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QScopeGuard>

class TstLocalData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { startLocalData(); }

    void whoLogsInIsKept()
    {
        LocalUser user;
        user.host.documents = user.folder.path();
        user.host.company = QStringLiteral("acme");
        logIn(&user.host, "u1", "anna", "1");
        logIn(&user.host, "u2", "ben", "");
        logIn(&user.host, "u3", "cleo", "1"); // the number of u1
        logIn(&user.host, "", "nobody", "");
        QCOMPARE(kept(), QStringList({"u2/acme/ben/", "u3/acme/cleo/1"}));
        // A profile that is not known yet takes nothing away.
        user.host.profiles.clear();
        user.host.user = QStringLiteral("u3");
        emit FriendUISignalSender::instance()->signal_login();
        QCOMPARE(kept(), QStringList({"u2/acme/ben/", "u3/acme/cleo/1"}));
    }

    void damageIsTold()
    {
        LocalUser user;
        user.host.documents = user.folder.path();
        TipBox::setNextAnswers(TipBox::Sure);
        const auto letGo = qScopeGuard([] { TipBox::setNextAnswers(TipBox::ShowBox); });
        QVERIFY(QDir().mkpath(ClientPaths::clientDataFolder()));
        writeFile(ClientPaths::allUsersDatabaseFile(), "no database");
        int told = TipBox::count();
        logIn(&user.host, "u1", "anna", "1");
        QCOMPARE(TipBox::count(), told + 1);
        QCOMPARE(kept().size(), 1);

        QVERIFY(QDir().mkpath(QFileInfo(user.file()).path()));
        writeFile(user.file(), "no database");
        told = TipBox::count();
        QVERIFY(LocalDatabase::instance().isOpen());
        QTRY_COMPARE(TipBox::count(), told + 1);
    }

private:
    static void logIn(FakeContext *host, const char *uid, const char *account, const char *phone)
    {
        host->user = QString::fromLatin1(uid);
        VcardInfo profile;
        profile.userName = QString::fromLatin1(account);
        profile.mobile = QString::fromLatin1(phone);
        host->profiles.insert(host->ownJid(), profile);
        emit FriendUISignalSender::instance()->signal_login();
    }
    static QStringList kept()
    {
        CAllUserInfoDB users;
        QStringList list;
        if (users.open()) {
            for (const UserUidInfo &user : users.all())
                list.append(QStringList{user.uid, user.enterprise, user.account, user.phone}.join(
                    QLatin1Char('/')));
        }
        return list;
    }
};

FRIENDUI_TEST(TstLocalData)
#include "tst_localdata.moc"
