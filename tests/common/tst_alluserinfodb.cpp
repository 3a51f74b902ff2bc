// The database of all users of the machine.
#include "common/callusersinfodb.h"
#include "common/clientpaths.h"
#include "common/platform.h"
#include "tests/support/fakecontext.h"
#include "tests/support/files.h"
#include "tests/support/testrunner.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

class TstAllUserInfoDb : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_folder.reset(new QTemporaryDir);
        m_host.documents = m_folder->path();
        m_scope.reset(new HostContextScope(&m_host));
        m_users.reset(new CAllUserInfoDB);
        QVERIFY(m_users->open());
    }
    void cleanup()
    {
        m_users.reset();
        m_scope.reset();
        m_folder.reset();
    }

    void theFileLiesBelowTheDocumentsAndIsTheOwnersOnly()
    {
        const QFileInfo file(m_folder->filePath(QStringLiteral("VeltraIm/UserInfo.db")));
        QVERIFY(file.isFile());
        QVERIFY(Platform::isOwnerOnly(file.filePath()));
        QCOMPARE(m_host.allUsersDatabase.connectionName(), QStringLiteral("VeltraIMUser"));
        QVERIFY(m_host.allUsersDatabase.isOpen());
        // Again, and by another object: what is there stays.
        QVERIFY(m_users->save("u1", "e", "a", "1"));
        QVERIFY(m_users->open());
        CAllUserInfoDB other;
        QVERIFY(other.open());
        QCOMPARE(uids(&other), QStringList("u1"));
    }

    void emptyValuesLeaveWhatIsStored_data()
    {
        const Rows<QString, QString, QString, QString> row{"enterprise", "account", "phone",
                                                           "stored"};
        row("all", "E", "A", "P", "E,A,P");
        row("none", "", "", "", "e,a,p");
        row("enterprise", "E", "", "", "E,a,p");
        row("account", "", "A", "", "e,A,p");
        row("phone", "", "", "P", "e,a,P");
        row("no enterprise", "", "A", "P", "e,A,P");
        row("no account", "E", "", "P", "E,a,P");
        row("null", QString(), QString(), QString(), "e,a,p");
        row("quotes", "O'Brien", "';DROP TABLE UserUIDInfo;--", "''",
            "O'Brien,';DROP TABLE UserUIDInfo;--,''");
    }
    void emptyValuesLeaveWhatIsStored()
    {
        QFETCH(QString, enterprise);
        QFETCH(QString, account);
        QFETCH(QString, phone);
        QVERIFY(m_users->save("u1", "e", "a", "p"));
        QVERIFY(m_users->save("u1", enterprise, account, phone));
        const QVector<UserUidInfo> all = m_users->all();
        QCOMPARE(all.size(), 1);
        QTEST((QStringList{all[0].enterprise, all[0].account, all[0].phone}.join(",")), "stored");
    }

    void theLastSavedUserIsTheLast()
    {
        for (const char *uid : {"u1", "u2", "u3"})
            QVERIFY(m_users->save(uid, "e", uid, ""));
        // The time has whole seconds.
        QSqlQuery query(m_host.allUsersDatabase);
        QVERIFY(query.exec("UPDATE UserUIDInfo SET CreatedTime = "
                           "datetime('now','localtime','-1 minute')"));
        QVERIFY(m_users->save("u1", "", "", ""));
        QCOMPARE(uids(m_users.data()), QStringList({"u2", "u3", "u1"}));
    }

    void onlyTheOthersWithThatNumberGo_data()
    {
        const Rows<QString, QString, QString> row{"phone", "uid", "left"};
        row("shared", "1", "u1", "u1,u3,o'u");
        row("of nobody", "9", "u1", "u1,u2,u3,o'u");
        row("none", "", "u1", "u1,u2,u3,o'u"); // or everybody without a number would go
        row("null", QString(), "u1", "u1,u2,u3,o'u");
        row("injected number", "x' OR '1'='1", "u1", "u1,u2,u3,o'u");
        row("injected uid", "1", "x' OR '1'='1", "u3,o'u");
        row("quote", "1", "o'u", "u3,o'u");
    }
    void onlyTheOthersWithThatNumberGo()
    {
        QFETCH(QString, phone);
        QFETCH(QString, uid);
        m_users->save("u1", "e", "a", "1");
        m_users->save("u2", "e", "b", "1");
        m_users->save("u3", "e", "c", "");
        m_users->save("o'u", "e", "d", "");
        QVERIFY(m_users->removeOthersWithPhone(phone, uid));
        QTEST(uids(m_users.data()).join(","), "left");
    }

    void usersWithoutAnIdAreRefused()
    {
        QVERIFY(m_users->save("u1", "e", "a", "1"));
        QVERIFY(!m_users->save("", "e", "a", "1"));
        QVERIFY(!m_users->remove(""));
        QVERIFY(m_users->remove("x' OR '1'='1"));
        QCOMPARE(uids(m_users.data()), QStringList("u1"));
        QVERIFY(m_users->remove("u1"));
        QVERIFY(m_users->all().isEmpty());
    }

    void withoutAFileNothingIsDone()
    {
        m_host.documents = m_folder->filePath("plain");
        writeFile(m_host.documents, "a file where the folder should be");
        CAllUserInfoDB users;
        QVERIFY(!users.save("u1", "e", "a", "1")); // not opened
        QVERIFY(!users.open());
        QVERIFY(!users.save("u1", "e", "a", "1"));
        QVERIFY(!users.removeOthersWithPhone("1", "u1"));
        QVERIFY(!users.remove("u1"));
        QVERIFY(users.all().isEmpty());
    }

    void aDamagedFileIsSetAside()
    {
        m_host.documents = m_folder->filePath("other");
        QVERIFY(QDir().mkpath(ClientPaths::clientDataFolder()));
        const QByteArray text = QByteArray("no database").repeated(1000);
        writeFile(ClientPaths::allUsersDatabaseFile(), text);
        CAllUserInfoDB users;
        QVERIFY(users.open());
        QVERIFY(users.save("u1", "e", "a", "1"));
        QCOMPARE(contentOf(users.setAsideAs()), text);
    }

private:
    static QStringList uids(CAllUserInfoDB *users)
    {
        QStringList list;
        for (const UserUidInfo &user : users->all())
            list.append(user.uid);
        return list;
    }

    FakeContext m_host;
    QScopedPointer<QTemporaryDir> m_folder;
    QScopedPointer<HostContextScope> m_scope;
    QScopedPointer<CAllUserInfoDB> m_users;
};

FRIENDUI_TEST(TstAllUserInfoDb)
#include "tst_alluserinfodb.moc"
