// What the page of external contacts looks like.
#include "controls/elidedlabel.h"
#include "tests/external/externalpagefixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QAbstractButton>
#include <QLabel>

namespace {

void addPeople(ExternalPageFixture *external)
{
    struct Person
    {
        const char *user, *name, *company, *sign;
    };
    const Person people[] = {
        {"w1", "王小明", "北方精密仪器有限公司", "在路上"},
        {"w2", "Maria Fernanda de la Cruz y Montoya", "A company with a very long name indeed Ltd.",
         "Out of office until Monday"},
        {"w3", "赵倩", "", ""},
    };
    QList<FriendData> contacts;
    for (const Person &person : people) {
        FriendData contact =
            makeExternal(QString::fromLatin1(person.user), QString::fromUtf8(person.name));
        contact.sign = QString::fromUtf8(person.sign);
        VcardInfo profile;
        profile.companyName = QString::fromUtf8(person.company);
        external->host.context.profiles.insert(contact.jid, profile);
        contacts.append(contact);
    }
    FakeHost::send(4115, contacts);
    FakeHost::send(4117, QMap<QString, PresenceData>{{contacts.at(0).jid, makePresence(1)},
                                                     {contacts.at(1).jid, makePresence(2)}});
}

} // namespace

class TstExternalLook : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { setSkin("light"); }

    void looks_data() { addLooks({1.0, 2.0}); }

    // To look at; that nothing is cut is checked below.
    void looks()
    {
        QFETCH(QString, skin);
        QFETCH(QString, language);
        QFETCH(qreal, ratio);
        setSkin(skin);
        const Language spoken(language);
        const QString tag = QStringLiteral("%1-%2-%3x").arg(skin, language).arg(ratio);
        const auto keep = [&](const ExternalPageFixture &external, const char *name) {
            ExternalPageFixture::settle();
            keepPicture(pictureOf(external.page.get(), ratio),
                        QStringLiteral("external-%1-%2").arg(QLatin1String(name), tag));
        };
        ExternalPageFixture full;
        addPeople(&full);
        full.view->expandAll();
        keep(full, "full");
        full.button("btnRefresh")->click();
        keep(full, "busy");
        full.page->resize(200, 400);
        keep(full, "narrow");
        for (const QAbstractButton *button : {full.button("btnAdd"), full.button("btnRefresh")})
            QVERIFY(full.page->rect().contains(button->geometry()));

        ExternalPageFixture nothing(ExternalPageFixture::Nothing);
        keep(nothing, "loading");
        emit nothing.view->signal_loadGroupTimeOut();
        keep(nothing, "failed");
        FakeHost::send(4119, QList<GroupData>(), false);
        keep(nothing, "empty");
        const QAbstractButton *link = nothing.button("linkAddFriend");
        nothing.page->resize(200, 400);
        keep(nothing, "empty-narrow");
        QTRY_VERIFY(nothing.page->rect().contains(
            QRect(link->mapTo(nothing.page.get(), QPoint()), link->size())));
        FakeHost::send(4118, QStringLiteral("e1"), QStringLiteral("Clients"), true, false);
        keep(nothing, "no-people");
    }

    void languageIsLive()
    {
        ExternalPageFixture external(ExternalPageFixture::Nothing);
        FakeHost::send(4119, QList<GroupData>(), false);
        const Language english(QStringLiteral("en"));
        QCoreApplication::processEvents();
        const auto labels = external.page->findChildren<QLabel *>();
        QVERIFY(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
            return label->isVisible() &&
                   label->text() == QLatin1String("No external contacts yet. Add the first one");
        }));
        QCOMPARE(external.button("btnRefresh")->toolTip(), QStringLiteral("Refresh"));
        QCOMPARE(external.page->findChild<ElidedLabel *>()->text(), QString::fromUtf8("个人好友"));
    }
};

FRIENDUI_TEST(TstExternalLook)
#include "tst_externallook.moc"
