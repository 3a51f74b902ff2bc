// How cards look: nothing overlaps, nothing is cut off without a sign.
#include "controls/avatarstore.h"
#include "tests/detail/cardfixture.h"
#include "tests/support/looks.h"
#include "tests/support/testrunner.h"

#include <QPainter>

#include <memory>

class TstCardPictures : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<CardFixture>(); }

    void cleanup()
    {
        setHostSkin("light");
        m_fixture.reset();
    }

    void states_data()
    {
        QTest::addColumn<QByteArray>("state");
        QTest::addColumn<QByteArray>("skin");
        QTest::addColumn<QByteArray>("language");
        for (const char *state :
             {"complete", "long", "empty", "unknown", "known", "failed", "own"}) {
            QTest::addRow("%s, light, zh_CN", state)
                << QByteArray(state) << QByteArray("light") << QByteArray("zh_CN");
            QTest::addRow("%s, dark, en", state)
                << QByteArray(state) << QByteArray("dark") << QByteArray("en");
        }
    }

    void states()
    {
        QFETCH(QByteArray, state);
        QFETCH(QByteArray, skin);
        QFETCH(QByteArray, language);
        const Language installed(QString::fromLatin1(language));
        setHostSkin(skin.constData());
        QWidget *window = nullptr;
        if (state == "own") {
            const QString own = QStringLiteral("me@corp.example");
            m_fixture->host.context.profiles.insert(own, m_fixture->profileOf(own));
            m_fixture->open(own);
            window = CDetailViewManager::instance()->ownProfileWindow();
        } else {
            window = cardIn(state);
        }
        window->setWindowOpacity(1);
        window->grab(); // asks for the picture
        QTRY_VERIFY(!AvatarStore::instance().isBusy());
        keepPicture(window->grab().toImage(),
                    QStringLiteral("card-%1-%2-%3x")
                        .arg(QString::fromLatin1(state), QString::fromLatin1(skin))
                        .arg(window->devicePixelRatioF()));
        verifyLayout(window);
    }

private:
    void setHostSkin(const char *name)
    {
        m_fixture->host.context.skinRecord.skinName = QString::fromLatin1(name);
        FakeHost::send(Inbound::SkinChanged, m_fixture->host.context.skinRecord);
    }

    CDetailView *cardIn(const QByteArray &state)
    {
        FakeContext &context = m_fixture->host.context;
        const QString jid = state == "unknown" ? m_fixture->stranger : m_fixture->anna;
        VcardInfo profile = m_fixture->profileOf(m_fixture->anna);
        if (state == "complete" || state == "failed") {
            context.headPaths.insert(m_fixture->anna, drawnHead());
            context.cooperation.insert(m_fixture->anna, true);
            context.presences[m_fixture->anna].pcShow = PresenceData::Available;
            profile.isAdmin = 1;
        }
        if (state == "known" || state == "failed") {
            VcardInfo known = profile;
            known.mobile.clear();
            known.email.clear();
            context.profiles.insert(m_fixture->anna, known);
        }
        if (state == "long") {
            context.cooperation.insert(m_fixture->anna, false);
            context.contacts[m_fixture->anna].remark = QString(40, QChar(0x5f20));
            for (QString *field : {&profile.sign, &profile.orgName, &profile.duty, &profile.email,
                                   &profile.leaderName, &profile.companyName, &profile.locality})
                *field = QString::fromUtf8("很长的文字与 long text ").repeated(6);
            profile.nickName = QString(50, QLatin1Char('W'));
            profile.isAdmin = 1;
        }
        CDetailView *card = m_fixture->open(jid);
        if (state == "complete" || state == "long")
            FakeHost::send(Inbound::FullProfileReceived, jid, profile);
        if (state == "empty")
            FakeHost::send(Inbound::FullProfileReceived, jid, VcardInfo());
        if (state == "failed")
            FakeHost::send(Inbound::ProfileFailed, jid);
        return card;
    }

    QString drawnHead() const
    {
        const QString file = m_fixture->folder.filePath(QStringLiteral("head.png"));
        QImage head(200, 200, QImage::Format_RGB32);
        head.fill(QColor(96, 150, 200));
        QPainter painter(&head);
        painter.setBrush(QColor(240, 214, 190));
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(60, 40, 80, 90);
        painter.drawEllipse(20, 140, 160, 120);
        painter.end();
        return head.save(file) ? file : QString();
    }

    // Every visible text and button lies inside the window, free of its neighbours.
    static void verifyLayout(const QWidget *window)
    {
        QVector<QPair<QString, QRect>> parts;
        const QList<QWidget *> children = window->findChildren<QWidget *>();
        for (const QWidget *child : children) {
            const bool shown = qobject_cast<const QLabel *>(child) ||
                               qobject_cast<const QPushButton *>(child) ||
                               qobject_cast<const QLineEdit *>(child);
            // The overlay is meant to lie over others.
            if (!shown || !child->isVisible() ||
                child->parentWidget()->objectName() == QLatin1String("widget_loading"))
                continue;
            parts.append(
                {child->objectName(), QRect(child->mapTo(window, QPoint()), child->size())});
        }
        QVERIFY(parts.size() > 15);
        for (int a = 0; a < parts.size(); ++a) {
            QVERIFY2(window->rect().contains(parts.at(a).second), qPrintable(parts.at(a).first));
            for (int b = 0; b < a; ++b)
                QVERIFY2(
                    !parts.at(a).second.intersects(parts.at(b).second),
                    qPrintable(parts.at(a).first + QStringLiteral(" over ") + parts.at(b).first));
        }
    }

    std::unique_ptr<CardFixture> m_fixture;
};

FRIENDUI_TEST(TstCardPictures)
#include "tst_cardpictures.moc"
