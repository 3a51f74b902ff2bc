// How the companies of team members get their names where services tell codes alone.
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teampagefixture.h"
#include "virtualteam/companynames.h"
#include "virtualteam/httpvirtualteamoperation.h"

#include <QSignalSpy>

namespace {
constexpr char Detail[] = "getVirtualTeamMemberDetail";
const QString One = QStringLiteral("1");
} // namespace

class TstCompanyNames : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_f = std::make_unique<TeamPageFixture>(QStringList{One});
        m_f->setSpecial([](const FakeRequest &request, FakeReply *answer) {
            if (request.path != TeamService::path(Detail))
                return false;
            const QString user = TeamPageFixture::value(request, "member");
            *answer = TeamService::reply("{\"companyName\":\"Company of " + user.toUtf8() + "\"}");
            if (user.startsWith(QLatin1Char('x')))
                *answer = FakeReply::of(500);
            answer->onRelease();
            return true;
        });
    }
    void cleanup() { m_f.reset(); }

    // Nothing stands in the row before, and one answer serves all.
    void aNameIsAskedForOnce()
    {
        m_f->setMembers(One, {of("a", "C2"), of("b", "C2"), of("c", "C1"), of("d", "")});
        open();
        QTRY_COMPARE(m_f->server.unanswered(), 1);
        QCOMPARE(company("a"), QString());
        m_f->server.release();
        QTRY_COMPARE(company("b"), QStringLiteral("Company of a"));
        QCOMPARE(company("c"), QString());
        m_f->page->slot_refreshVirtualTeam();
        QTRY_COMPARE(m_f->levels(), 2);
        QTRY_COMPARE(m_f->server.unanswered(), 0);
        QCOMPARE(m_f->count(Detail), 1);
    }

    void fewAtATimeAndNoFailureTwice()
    {
        QByteArrayList members;
        for (int i = 0; i < 3 * CompanyNames::AtATime; ++i)
            members.append(of("x" + QByteArray::number(i), "F" + QByteArray::number(i)));
        m_f->setMembers(One, members);
        open();
        QTRY_COMPARE(m_f->server.unanswered(), CompanyNames::AtATime);
        for (int told = 0; told < members.size(); told += CompanyNames::AtATime) {
            QTRY_COMPARE(m_f->count(Detail), told + CompanyNames::AtATime);
            m_f->server.release();
        }
        QTRY_COMPARE(m_f->server.unanswered(), 0);
        m_f->page->slot_refreshVirtualTeam();
        QTRY_COMPARE(m_f->levels(), 2);
        QCoreApplication::processEvents();
        QCOMPARE(m_f->count(Detail), members.size());
    }

    // What was told with somebody found is known in the tree; not to the next user.
    void learnsFromOtherAnswers()
    {
        m_f->setHits(One,
                     {m_f->member(QStringLiteral("h"),
                                  QStringLiteral(R"(,"companyCode":"C2","companyName":"B")"))});
        auto *search = new CHttpVirtualTeamOperation(m_f->page.get());
        QSignalSpy found(search, &CHttpVirtualTeamOperation::signal_GetFuzzySearchFinish);
        search->fuzzySearchVirtualTeamMember(One, QStringLiteral("h"));
        QVERIFY(found.wait(TestPatience));
        m_f->setMembers(One, {of("a", "C2")});
        open();
        QCOMPARE(company("a"), QStringLiteral("B"));
        QCOMPARE(m_f->count(Detail), 0);
        emit m_f->hub()->signal_login();
        QCOMPARE(company("a"), QStringLiteral("B"));
        m_f->host.context.user = QStringLiteral("u2");
        emit m_f->hub()->signal_login();
        CVirtualTeamMemberInfo member;
        member.companyCode = QStringLiteral("C2");
        QCOMPARE(CompanyNames::instance().of(member), QString());
    }

private:
    static QByteArray of(const QByteArray &user, const QByteArray &company)
    {
        return TeamPageFixture::member(
            QString::fromLatin1(user),
            QStringLiteral(R"(,"companyCode":"%1")").arg(QString::fromLatin1(company)));
    }
    void open()
    {
        m_f->load();
        m_f->page->tree()->expandTeam(One);
        QTRY_COMPARE(m_f->model->childrenState(One, rootGroupId()), TeamChildren::Loaded);
    }
    QString company(const char *user) const
    {
        return m_f->model->memberIndex(One, QLatin1String(user))
            .data(TeamRowRole::Company)
            .toString();
    }

    std::unique_ptr<TeamPageFixture> m_f;
};

FRIENDUI_TEST(TstCompanyNames)
#include "tst_companynames.moc"
