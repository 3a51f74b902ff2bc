// What the user is told, and when.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teamservice.h"
#include "virtualteam/httpvirtualteamoperation.h"
#include "virtualteam/teammessages.h"

#include <QAbstractButton>
#include <QApplication>

class TstTeamMessages : public QObject
{
    Q_OBJECT

private slots:
    // A code means something only with a failure, and only those that are known.
    void meanings_data()
    {
        const Rows<QString, QByteArray> row{"told", "wanted"};
        using namespace TeamMessages;
        row("created", created(true, 0), "virtualTeamCreateSuccess");
        row("pending", created(true, CHttpVirtualTeamOperation::PendingCode),
            "virtualTeamCreateSuccessAndWait");
        row("not created", created(false, CHttpVirtualTeamOperation::PendingCode),
            "virtualTeamCreateFail");
        row("deletion: network", deletionFailed(0), "删除失败，请重试。");
        row("search: 64 bits", memberSearchFailed(4294977298), "checkAccount"); // 10002 in 32
    }

    void meanings()
    {
        QFETCH(QByteArray, wanted);
        QTEST(QString::fromUtf8(wanted), "told");
    }

    void offline()
    {
        TeamService service;
        QVERIFY(TeamMessages::mayRequest(nullptr));
        service.setOnline(false);
        QVERIFY(!TeamMessages::mayRequest(nullptr, "isOfflinePleaseLogin"));
        QCOMPARE(TipBox::lastText(), QStringLiteral("isOfflinePleaseLogin"));
    }

    void box()
    {
        TipBox::setNextAnswers(TipBox::ShowBox);
        TeamMessages::tell(nullptr, QStringLiteral("<b>x</b>"));
        const auto *box = qobject_cast<TipBox *>(QApplication::activeModalWidget());
        QVERIFY(box);
        QCOMPARE(box->windowTitle(), QStringLiteral("tip"));
        QCOMPARE(box->buttons().size(), 1);
        QCOMPARE(box->buttons().first()->text(), QString::fromUtf8("确定"));
        delete box;
    }

    // A name makes one line, whatever is in it.
    void about()
    {
        const QString question = QStringLiteral("Sure?");
        QCOMPARE(TeamMessages::about(question, QStringLiteral("<b>a\nb")),
                 QStringLiteral("Sure?\n<b>a b"));
        for (const char *none : {"", " \n"})
            QCOMPARE(TeamMessages::about(question, QString::fromLatin1(none)), question);
    }
};

FRIENDUI_TEST(TstTeamMessages)
#include "tst_teammessages.moc"
