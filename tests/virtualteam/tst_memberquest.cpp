// The way from a hit to a person whose group is not loaded.
#include "tests/support/rows.h"
#include "tests/support/testrunner.h"
#include "tests/virtualteam/teampagefixture.h"
#include "virtualteam/memberquest.h"

#include <QLabel>
#include <QLineEdit>
#include <QWheelEvent>

namespace {
constexpr char Structure[] = "getVirtualTeamGroup";
const QString One = QStringLiteral("1");
const QString Two = QStringLiteral("2");
const QString A = QStringLiteral("a");
} // namespace

class TstMemberQuest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        m_f = std::make_unique<TeamPageFixture>(QStringList{One, Two});
        m_groups = {{rootGroupId(), {QStringLiteral("g"), QStringLiteral("h")}},
                    {QStringLiteral("h"), {QStringLiteral("hh")}},
                    {QStringLiteral("hh"), {QStringLiteral("hhh")}}};
        m_where = QStringLiteral("hh");
        m_heldGroup.clear();
        m_f->setHits(One, {m_f->member(A)});
        m_f->setSpecial([this](const FakeRequest &request, FakeReply *answer) {
            return answerTo(request, answer);
        });
        m_f->load();
        m_tree = m_f->page->tree();
        m_f->box->setFocus();
        m_f->box->setText(A);
        QTRY_COMPARE(m_f->list->model()->rowCount(), 1);
    }
    void cleanup() { m_f.reset(); }

    void findsWhoIsBelow()
    {
        m_heldGroup = QStringLiteral("hh");
        choose();
        QTRY_COMPARE(m_f->server.unanswered(), 1);
        QVERIFY(m_f->visible<QWidget>("noticeText"));
        QCOMPARE(m_tree->currentIndex(), m_f->model->teamIndex(One));
        m_f->server.release();
        QTRY_VERIFY(m_f->model->memberIndex(One, A).isValid());
        QCOMPARE(m_tree->currentIndex(), m_f->model->memberIndex(One, A));
        QVERIFY(m_tree->isExpanded(m_f->model->groupIndex(One, m_where)));
        QVERIFY(!m_tree->isExpanded(m_f->model->groupIndex(One, QStringLiteral("g"))));
        QVERIFY(!m_f->visible<QWidget>("noticeText"));
        // In any order: each has a connection of its own.
        const QStringList groups = asked();
        QCOMPARE(groups.size(), 4);
        QCOMPARE(QSet<QString>(groups.begin(), groups.end()),
                 (QSet<QString>{rootGroupId(), QStringLiteral("g"), QStringLiteral("h"),
                                QStringLiteral("hh")}));
    }

    void stopsForWhoGoesOn_data()
    {
        const Rows<QString> row{"what"};
        for (const char *what : {"key", "click", "wheel", "typing", "closing", "offline"})
            row(what, QLatin1String(what));
    }
    void stopsForWhoGoesOn()
    {
        QFETCH(QString, what);
        m_heldGroup = QStringLiteral("h");
        choose();
        QTRY_COMPARE(m_f->server.unanswered(), 1);
        goOn(what);
        m_f->server.release();
        QTRY_COMPARE(m_f->model->childrenState(One, QStringLiteral("h")), TeamChildren::Loaded);
        QCoreApplication::processEvents();
        QVERIFY(!asked().contains(QStringLiteral("hh")));
        QVERIFY(!m_f->model->memberIndex(One, A).isValid());
        if (what != QLatin1String("offline"))
            QVERIFY(!m_f->visible<QWidget>("noticeText") || what == QLatin1String("typing"));
    }

    // A level that fails is no end; without the person there is the team's row.
    void endsWithoutThePerson_data()
    {
        const Rows<bool> row{"someFail"};
        row("nowhere", false);
        row("a level fails", true);
    }
    void endsWithoutThePerson()
    {
        QFETCH(bool, someFail);
        m_where = QStringLiteral("gone");
        m_failGroup = someFail ? QStringLiteral("g") : QString();
        choose();
        QTRY_VERIFY(asked().contains(QStringLiteral("hhh")));
        QTRY_COMPARE(notice(), QStringLiteral("teamMemberNotFound"));
        QCOMPARE(m_tree->currentIndex(), m_f->model->teamIndex(One));
        QCOMPARE(asked().size(), 5);
        QTest::keyClick(m_tree, Qt::Key_Down); // the user goes on
        QCOMPARE(notice(), QString());
    }

    void endsSomewhere()
    {
        m_where = QStringLiteral("gone");
        QStringList many;
        for (int i = 0; i < MemberQuest::MostLevels + 50; ++i)
            many.append(QStringLiteral("n") + QString::number(i));
        m_groups = {{rootGroupId(), many}};
        choose();
        QTRY_COMPARE(asked().size(), MemberQuest::MostLevels + 1);
        QTRY_COMPARE(notice(), QStringLiteral("teamMemberNotFound"));
        QCOMPARE(asked().size(), MemberQuest::MostLevels + 1);
        QVERIFY(m_f->server.mostUnanswered() <= MemberQuest::AtATime);
    }

    // Who comes from another page by the keyboard goes on in the tree.
    void treeTakesTheFocus()
    {
        m_f->make();
        QStackedWidget pane;
        auto *elsewhere = new QLineEdit;
        pane.addWidget(elsewhere);
        pane.addWidget(m_f->page.release());
        pane.show();
        QVERIFY(QTest::qWaitForWindowActive(&pane));
        elsewhere->setFocus();
        pane.setCurrentIndex(1);
        QVERIFY(m_f->create->hasFocus());
        QTRY_COMPARE(m_f->shown(), QStringLiteral("VirtualTeamListPage"));
        QTRY_VERIFY(pane.findChild<CVirtualTeamTreeView *>()->hasFocus());
    }

    // Where the first click of two hits the list, the second one meets the tree.
    void secondClickMeetsTheTree()
    {
        choose();
        const QPointF pos = m_tree->visualRect(m_f->model->teamIndex(Two)).center();
        QMouseEvent second(QEvent::MouseButtonDblClick, pos, Qt::LeftButton, Qt::LeftButton,
                           Qt::NoModifier);
        QApplication::sendEvent(m_tree->viewport(), &second);
        QTRY_COMPARE(m_tree->currentIndex(), m_f->model->memberIndex(One, A));
        QVERIFY(!m_tree->isExpanded(m_f->model->teamIndex(Two)));
    }

private:
    bool answerTo(const FakeRequest &request, FakeReply *answer) const
    {
        if (request.path != TeamService::path(Structure))
            return false;
        const QString group = TeamPageFixture::value(request, "pgId");
        QByteArrayList groups;
        for (const QString &below : m_groups.value(group))
            groups.append(
                QStringLiteral(R"({"groupId":"%1","groupName":"%1"})").arg(below).toUtf8());
        *answer = TeamService::reply("{\"group\":[" + groups.join(',') + "],\"members\":[" +
                                     (group == m_where ? m_f->member(A) : QByteArray()) + "]}");
        if (group == m_failGroup)
            *answer = FakeReply::of(500);
        if (group == m_heldGroup)
            answer->onRelease();
        return true;
    }
    QString notice() const
    {
        const auto *label = m_f->visible<QLabel>("noticeText");
        return label ? label->text() : QString();
    }
    void choose() { m_f->list->choose(m_f->list->model()->index(0, 0)); }
    QStringList asked() const { return m_f->asked(Structure, "pgId"); }
    void goOn(const QString &what)
    {
        const QPoint pos = m_tree->visualRect(m_f->model->teamIndex(One)).center();
        if (what == QLatin1String("key")) {
            QTest::keyClick(m_tree, Qt::Key_Up);
        } else if (what == QLatin1String("click")) {
            QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, pos);
        } else if (what == QLatin1String("wheel")) {
            QWheelEvent wheel(pos, pos, QPoint(), QPoint(0, -120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(m_tree->viewport(), &wheel);
        } else if (what == QLatin1String("typing")) {
            m_f->box->setText(QStringLiteral("b"));
        } else if (what == QLatin1String("closing")) {
            m_tree->collapse(m_f->model->teamIndex(One));
        } else {
            m_f->setOnline(false);
        }
    }

    std::unique_ptr<TeamPageFixture> m_f;
    CVirtualTeamTreeView *m_tree = nullptr;
    QMap<QString, QStringList> m_groups; // below each
    QString m_where, m_heldGroup, m_failGroup;
};

FRIENDUI_TEST(TstMemberQuest)
#include "tst_memberquest.moc"
