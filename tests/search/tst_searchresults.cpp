// What a row tells: marks, the second line, namesakes, who has left; whatever the
// texts are.
#include "contacts/search/searchresultmodel.h"

#include "tests/search/searchfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

namespace {

SearchEntry person(const QString &id, const QString &name)
{
    SearchEntry entry;
    entry.id = id;
    entry.name = name;
    entry.account = QStringLiteral("acc.") + id;
    entry.isContact = true;
    return entry;
}

// The marked parts of a text, each in brackets.
QString bracketed(const MarkedText &line)
{
    QString text = line.text;
    for (int i = line.marks.size() - 1; i >= 0; --i) {
        const SearchMark &mark = line.marks.at(i);
        text.insert(mark.first + mark.second, QLatin1Char(']'));
        text.insert(mark.first, QLatin1Char('['));
    }
    return text;
}

} // namespace

class TstSearchResults : public QObject
{
    Q_OBJECT

private slots:
    void whereItWasFound_data()
    {
        const Rows<QString, QString, QString> row{"typed", "name", "second"};
        row("name", "ann", "[Ann]a Lee", "");
        row("two words", "lee ann", "[Ann]a [Lee]", "");
        row("pinyin", "zs", "Anna Lee", "[张三]");
        row("account", "acc", "Anna Lee", "[acc].7");
        row("name and account", "anna acc", "[Anna] Lee", "[acc].7");
        row("code", "k55", "Anna Lee", "[K55]2");
        row("mail", "post", "Anna Lee", "[post]@example.org");
        row("phone", "5678", "Anna Lee", "0049 [56-78]");
    }

    void whereItWasFound()
    {
        QFETCH(QString, typed);
        QFETCH(QString, name);
        QFETCH(QString, second);
        SearchEntry entry = person(QStringLiteral("7"), QString::fromUtf8("张三"));
        entry.remark = QStringLiteral("Anna Lee");
        entry.employeeCode = QStringLiteral("K552");
        entry.mail = QStringLiteral("post@example.org");
        entry.phones = QStringLiteral("123;0049 56-78;9");
        const Model model(typed, {entry});
        QCOMPARE(bracketed(model->shown(0).name), name);
        QCOMPARE(bracketed(model->shown(0).second), second);
    }

    void namesakes()
    {
        SearchEntry first = person(QStringLiteral("1"), QStringLiteral("Ann"));
        SearchEntry second = person(QStringLiteral("2"), QStringLiteral("Ann"));
        second.employeeCode = QStringLiteral("E2");
        Model model(QStringLiteral("ann"), {first});
        QCOMPARE(model.second(0), QString());
        model->append({SearchResults::local(second)});
        QCOMPARE(model.second(0), QStringLiteral("acc.1"));
        QCOMPARE(model.second(1), QStringLiteral("E2"));
    }

    void outsideTheCompany()
    {
        FakeHost host;
        FriendData contact;
        contact.jid = QStringLiteral("1");
        contact.outside = 1;
        host.context.addContact(contact);
        const Model model(QStringLiteral("ann"),
                          {person(contact.jid, QStringLiteral("Ann")),
                           person(QStringLiteral("2"), QStringLiteral("Anna"))});
        for (const int role : {Qt::ToolTipRole, Qt::AccessibleTextRole}) {
            const auto isMarked = [&](int row) {
                return model->index(row).data(role).toString().contains(
                    QStringLiteral("outsidefrd"));
            };
            QVERIFY(isMarked(0) && !isMarked(1));
        }
        QVERIFY(model->shown(0).isOutside && !model->shown(1).isOutside);
    }

    void placeInTheCompany()
    {
        FakeHost host;
        SearchIndex index;
        for (const char *path : {"d1:Works:", "d2:Hall:d1", "d3:Loop:d4", "d4:Back:d3"}) {
            const QStringList parts = QString::fromLatin1(path).split(QLatin1Char(':'));
            SearchEntry department;
            department.kind = SearchEntry::Department;
            department.id = parts.at(0);
            department.name = parts.at(1);
            department.placeId = parts.at(2);
            index.put(department);
        }
        SearchEntry inHall = person(QStringLiteral("1"), QStringLiteral("Ann"));
        inHall.placeId = QStringLiteral("d2");
        SearchEntry inLoop = person(QStringLiteral("2"), QStringLiteral("Anna"));
        inLoop.placeId = QStringLiteral("d3");
        SearchEntry unknown = person(QStringLiteral("3"), QStringLiteral("Annabel"));
        unknown.placeId = QStringLiteral("far");
        VcardInfo profile;
        profile.orgName = QStringLiteral("Office");
        profile.duty = QStringLiteral("Clerk");
        host.context.profiles.insert(unknown.id, profile);
        const Model model(QStringLiteral("ann"), {inHall, inLoop, unknown}, &index);
        QCOMPARE(model.second(0), QStringLiteral("Works / Hall"));
        QCOMPARE(model.second(1), QStringLiteral("Back / Loop"));
        QCOMPARE(model.second(2), QStringLiteral("Office"));
    }

    void whoHasLeftAndWhatIsNobody()
    {
        const Language language(QStringLiteral("en"));
        SearchEntry left = person(QStringLiteral("1"), QStringLiteral("Ann"));
        left.hasLeft = true;
        SearchEntry room = person(QStringLiteral("2"), QStringLiteral("Ann and Bob"));
        room.kind = SearchEntry::Room;
        const Model model(QStringLiteral("ann"), {left, room});
        QCOMPARE(model.second(0), QStringLiteral("Has left"));
        QCOMPARE(model.second(1), QStringLiteral("Group chat"));
    }

    // What the service tells of one with a row completes the row.
    void newsOfAKnownOne()
    {
        FakeHost host;
        SearchEntry colleague = person(QStringLiteral("anna@corp.example"), QStringLiteral("Ann"));
        colleague.isContact = false;
        Model model(QStringLiteral("ann"), {colleague});
        QVERIFY(!model->shown(0).hasPresence);
        SearchUserData user = PeopleService::user(QStringLiteral("anna"), QStringLiteral("Ann"));
        user.orgName = QStringLiteral("Hall");
        user.nStatus = PresenceData::Away;
        model->append({SearchResults::person(user)});
        QCOMPARE(model->rowCount(), 1);
        QCOMPARE(int(model->shown(0).presence.pcShow), int(PresenceData::Away));
        QCOMPARE(model.second(0), QStringLiteral("Hall"));
    }

    void hostileTexts_data()
    {
        const Rows<QString> row{"text"};
        row("markup", "ann<img src=/etc/passwd><b>x</b>");
        row("long", QStringLiteral("ann").repeated(4000));
        row("marks", QStringLiteral("ann") + QString(5000, QChar(0x301)));
        row("lone surrogate", QStringLiteral("ann") + QString(QChar(0xd83d)));
        row("lines", "ann\n\n\nb\tc");
        row("turned", QStringLiteral("ann") + QString(QChar(0x202e)) + QStringLiteral("gpj.exe"));
        row("right to left", QStringLiteral("ann ") + QString::fromUtf8("שלום"));
    }

    void hostileTexts()
    {
        QFETCH(QString, text);
        FakeHost host;
        SearchFixture f;
        f.make();
        SearchEntry entry = person(QStringLiteral("x"), text);
        entry.mail = text;
        entry.phones = text;
        entry.employeeCode = text;
        f.sources->index().put(entry);
        f.sources->index().put(person(QStringLiteral("y"), text));
        f.box->setText(QStringLiteral("ann"));
        QCOMPARE(f.page->model()->rowCount(), 3);
        for (int row = 0; row < 3; ++row) {
            const SearchResultModel::Shown &shown = f.page->model()->shown(row);
            QVERIFY(shown.name.text.size() < 400);
            for (const MarkedText &line : {shown.name, shown.second}) {
                for (const SearchMark &mark : line.marks)
                    QVERIFY(mark.first >= 0 && mark.first + mark.second <= line.text.size());
            }
            const QString tip = f.page->model()->index(row).data(Qt::ToolTipRole).toString();
            QVERIFY(!tip.contains(QStringLiteral("<img")));
        }
        keepPicture(f.page->grab().toImage(),
                    QStringLiteral("search-") + QString::fromLatin1(QTest::currentDataTag()));
    }

private:
    // A model that shows these entries as what was found for a text.
    class Model
    {
    public:
        Model(const QString &typed, const QVector<SearchEntry> &entries,
              const SearchIndex *index = nullptr)
            : m_model(index ? index : &m_none),
              m_tester(&m_model, QAbstractItemModelTester::FailureReportingMode::QtTest)
        {
            QVector<SearchResult> results;
            for (const SearchEntry &entry : entries)
                results.append(SearchResults::local(entry));
            m_model.setResults(typed, results);
        }
        SearchResultModel *operator->() { return &m_model; }
        const SearchResultModel *operator->() const { return &m_model; }
        QString second(int row) const
        {
            return m_model.index(row).data(SearchRole::Second).toString();
        }

    private:
        SearchIndex m_none;
        SearchResultModel m_model;
        QAbstractItemModelTester m_tester;
    };
};

FRIENDUI_TEST(TstSearchResults)
#include "tst_searchresults.moc"
