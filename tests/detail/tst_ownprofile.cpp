// The user's own profile.
#include "tests/detail/cardfixture.h"
#include "tests/support/testrunner.h"

#include <memory>

class TstOwnProfile : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<CardFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void showsAndFollowsTheProfile()
    {
        VcardInfo profile = m_fixture->profileOf(m_own);
        m_fixture->host.context.profiles.insert(m_own, profile);
        const OwnProfileWindow *window = open();
        QCOMPARE(CardFixture::text(window, "name"), profile.nickName);
        QCOMPARE(CardFixture::text(window, "lblAccount"), QStringLiteral("me"));
        QCOMPARE(CardFixture::text(window, "qianming"), profile.sign);
        QCOMPARE(CardFixture::text(window, "Department"), profile.orgName);
        QVERIFY(!CardFixture::part(window, "Remark")->isVisible());
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 0);
        profile.sign = QStringLiteral("<i>new</i>");
        m_fixture->host.context.profiles.insert(m_own, profile);
        FakeHost::send(Inbound::OwnProfileStored);
        QCOMPARE(CardFixture::text(window, "qianming"), profile.sign);
    }

    void asksForAnUnknownProfile()
    {
        const OwnProfileWindow *window = open();
        QCOMPARE(CardFixture::text(window, "name"), QStringLiteral("me"));
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), 1);
        m_fixture->host.context.profiles.insert(m_own, m_fixture->profileOf(m_own));
        m_fixture->answer(m_fixture->stranger);
        QCOMPARE(CardFixture::text(window, "Email"), QStringLiteral("---"));
        m_fixture->answer(m_own);
        QCOMPARE(CardFixture::text(window, "Email"), QStringLiteral("anna@mail.example"));
    }

    void opensTheEditorOfThePicture()
    {
        QTest::mouseClick(CardFixture::button(open(), "btnEditPicture"), Qt::LeftButton);
        const QWidgetList windows = QApplication::topLevelWidgets();
        QVERIFY(std::any_of(windows.begin(), windows.end(), [](const QWidget *window) {
            return window->objectName() == QLatin1String("EditAvatar") && window->isVisible();
        }));
    }

private:
    OwnProfileWindow *open()
    {
        m_fixture->open(m_own);
        return CDetailViewManager::instance()->ownProfileWindow();
    }

    const QString m_own = QStringLiteral("me@corp.example");
    std::unique_ptr<CardFixture> m_fixture;
};

FRIENDUI_TEST(TstOwnProfile)
#include "tst_ownprofile.moc"
