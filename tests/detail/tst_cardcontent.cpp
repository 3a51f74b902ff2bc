// What a card shows, from the request to the answer and after.
#include "http/fileservices.h"
#include "tests/detail/cardfixture.h"
#include "tests/support/testrunner.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTextDocument>

#include <memory>

namespace {
const char *const rowNames[] = {"Department", "Position",   "leaderName", "mobileEmp",
                                "phoneEmp",   "otherPhone", "Email",      "Location"};
}

class TstCardContent : public QObject
{
    Q_OBJECT

private slots:
    void init() { m_fixture = std::make_unique<CardFixture>(); }
    void cleanup() { m_fixture.reset(); }

    void fillsEachRow()
    {
        const CDetailView *card = filledCard();
        QVERIFY(!CardFixture::isLoading(card));
        const VcardInfo profile = m_fixture->profileOf(m_fixture->anna);
        const QStringList expected{profile.orgName, profile.duty,       profile.leaderName,
                                   profile.mobile,  profile.otherPhone, profile.personalMobile,
                                   profile.email,   profile.locality};
        for (int i = 0; i < expected.size(); ++i)
            QCOMPARE(CardFixture::text(card, rowNames[i]), expected.at(i));
        QCOMPARE(CardFixture::text(card, "Remark"), QString::fromUtf8("项目经理"));
        QCOMPARE(CardFixture::text(card, "name"), QString::fromUtf8("项目经理"));
        QCOMPARE(CardFixture::text(card, "lblAccount"), QString::fromUtf8("安娜 · anna"));
        QCOMPARE(CardFixture::text(card, "qianming"), profile.sign);
        QVERIFY(CardFixture::part(card, "lblAdmin")->isHidden());
    }

    void emptyProfile()
    {
        CDetailView *card = m_fixture->open(m_fixture->stranger);
        QVERIFY(CardFixture::isLoading(card));
        VcardInfo profile;
        profile.isAdmin = 1;
        FakeHost::send(Inbound::ProfileReceived, m_fixture->stranger, profile);
        QVERIFY(!CardFixture::isLoading(card));
        for (const char *name : rowNames)
            QCOMPARE(CardFixture::text(card, name), QStringLiteral("---"));
        QCOMPARE(CardFixture::text(card, "Remark"), QStringLiteral("---"));
        QCOMPARE(CardFixture::text(card, "name"), QStringLiteral("stranger"));
        // Nobody but a contact has a remark.
        QVERIFY(!CardFixture::part(card, "btnSetName")->isVisible());
        QVERIFY(CardFixture::part(card, "lblAdmin")->isVisible());
        card->grab(); // polishes
        QCOMPARE(CardFixture::part(card, "lblAdmin")->palette().color(QPalette::WindowText),
                 QColor(248, 182, 43));
    }

    void showsWhatIsKnownAtOnce()
    {
        VcardInfo known = m_fixture->profileOf(m_fixture->anna);
        known.mobile.clear();
        m_fixture->host.context.profiles.insert(m_fixture->anna, known);
        CDetailView *card = m_fixture->open(m_fixture->anna);
        QCOMPARE(CardFixture::text(card, "Department"), known.orgName);
        // What is missing may still come: that is no empty value.
        QVERIFY(CardFixture::text(card, "mobileEmp") != QStringLiteral("---"));
        const QWidget *overlay = CardFixture::part(card, "widget_loading");
        QVERIFY(overlay->isVisible());
        const ValueLabel *department = CardFixture::row(card, "Department");
        QVERIFY(!QRect(overlay->mapTo(card, QPoint()), overlay->size())
                     .intersects(QRect(department->mapTo(card, QPoint()), department->size())));
        m_fixture->answer(m_fixture->anna);
        QVERIFY(!overlay->isVisible());
        QCOMPARE(CardFixture::text(card, "mobileEmp"), QStringLiteral("13800000001"));
    }

    void foreignProfileIsIgnored()
    {
        CDetailView *card = m_fixture->open(m_fixture->anna);
        m_fixture->answer(m_fixture->stranger);
        FakeHost::send(Inbound::ProfileReceived, QString(), m_fixture->profileOf(QString()));
        FakeHost::send(Inbound::ProfileFailed, m_fixture->stranger);
        FakeHost::send(Inbound::ProfileUnchanged, QStringLiteral("stranger"));
        FakeHost::send(Inbound::RemarkChanged, m_fixture->stranger, QStringLiteral("x"));
        QVERIFY(CardFixture::isLoading(card));
        QVERIFY(!CardFixture::hasFailed(card));
        QCOMPARE(CardFixture::text(card, "Remark"), QString::fromUtf8("项目经理"));
        QVERIFY(CardFixture::row(card, "mobileEmp")->value().isEmpty());
    }

    void lateProfile()
    {
        m_fixture->open(m_fixture->anna)->close();
        m_fixture->answer(m_fixture->anna); // the window still waits for its deletion
        CardFixture::settle();
        m_fixture->answer(m_fixture->anna);
        QVERIFY(!CDetailViewManager::instance()->openDialog(m_fixture->anna));
        // An answer after the time limit is welcome all the same.
        CDetailView *card = m_fixture->open(m_fixture->anna);
        FakeHost::send(Inbound::ProfileFailed, m_fixture->anna);
        QVERIFY(CardFixture::hasFailed(card));
        m_fixture->answer(m_fixture->anna);
        QVERIFY(!CardFixture::hasFailed(card));
        QCOMPARE(CardFixture::text(card, "mobileEmp"), QStringLiteral("13800000001"));
    }

    void failsAndAsksAgain_data()
    {
        const Rows<bool> row{"silent"};
        row("the host says so", false);
        row("the host is silent", true);
    }

    void failsAndAsksAgain()
    {
        QFETCH(bool, silent);
        CDetailView *card = m_fixture->open(m_fixture->anna);
        if (silent)
            card->body()->setReplyTimeLimit(1);
        else
            FakeHost::send(Inbound::ProfileFailed, m_fixture->anna);
        QTRY_VERIFY(CardFixture::hasFailed(card));
        QVERIFY(!CardFixture::isLoading(card));
        QVERIFY(card->isVisible());
        QPushButton *reload = CardFixture::button(card, "btnReLoad");
        QCOMPARE(reload->text(), QString::fromUtf8("联系人资料更新失败，点击重试"));
        card->body()->setReplyTimeLimit(CardBody::DefaultReplyTimeLimit);
        const int before = m_fixture->host.count(Outbound::RequestProfile);
        QTest::mouseClick(reload, Qt::LeftButton);
        QCOMPARE(m_fixture->host.count(Outbound::RequestProfile), before + 1);
        QVERIFY(CardFixture::isLoading(card));
        QVERIFY(!CardFixture::hasFailed(card));
        m_fixture->answer(m_fixture->anna);
        QVERIFY(!CardFixture::isLoading(card));
        QVERIFY(!card->body()->isWaiting()); // or the card would fail after all
    }

    void reloadOffline()
    {
        CDetailView *card = m_fixture->open(m_fixture->anna);
        FakeHost::send(Inbound::ProfileFailed, m_fixture->anna);
        FakeHost::send(Inbound::ConnectionChanged, false);
        const int before = m_fixture->host.requests.size();
        CardFixture::button(card, "btnReLoad")->click();
        QCOMPARE(TipBox::lastText(), QStringLiteral("cannotSearchForOtherInfoForSelfOffLine"));
        QCOMPARE(m_fixture->host.requests.size(), before);
        QVERIFY(CardFixture::hasFailed(card));
    }

    void unchangedProfile()
    {
        m_fixture->host.context.profiles.insert(m_fixture->anna,
                                                m_fixture->profileOf(m_fixture->anna));
        for (const QString &name : {QStringLiteral("anna"), m_fixture->anna}) {
            CDetailView *card = m_fixture->open(m_fixture->anna);
            FakeHost::send(Inbound::ProfileUnchanged, name);
            QVERIFY(!CardFixture::isLoading(card));
            QCOMPARE(CardFixture::text(card, "mobileEmp"), QStringLiteral("13800000001"));
            card->close();
            CardFixture::settle();
        }
    }

    // The row follows the host's answer, not what was typed.
    void remarkIsEdited()
    {
        CDetailView *card = filledCard();
        QTest::mouseClick(CardFixture::button(card, "btnSetName"), Qt::LeftButton);
        auto *box = card->findChild<InputBox *>();
        QVERIFY(box && box->isVisible());
        QCOMPARE(box->windowTitle(), QStringLiteral("changeRemark"));
        QCOMPARE(box->labelText(), QStringLiteral("remarkColon"));
        QCOMPARE(box->textValue(), QString::fromUtf8("项目经理"));
        box->setTextValue(QStringLiteral(" PM "));
        box->accept();
        const auto [jid, remark] = m_fixture->host.arguments<QString, QString>(Outbound::SetRemark);
        QCOMPARE(jid, m_fixture->anna);
        QCOMPARE(remark, QStringLiteral("PM"));
        QCOMPARE(CardFixture::text(card, "Remark"), QString::fromUtf8("项目经理"));
        FakeHost::send(Inbound::RemarkChanged, m_fixture->anna, QStringLiteral("PM"));
        QCOMPARE(CardFixture::text(card, "Remark"), QStringLiteral("PM"));
        QCOMPARE(CardFixture::text(card, "name"), QStringLiteral("PM"));
        FakeHost::send(Inbound::RemarkChanged, m_fixture->anna, QString());
        QCOMPARE(CardFixture::text(card, "Remark"), QStringLiteral("---"));
        QCOMPARE(CardFixture::text(card, "name"), QString::fromUtf8("安娜"));
    }

    void remarkBox_data()
    {
        const Rows<int, QString, QString> row{"meanwhile", "typed", "told"};
        row("unchanged", 0, QString::fromUtf8(" 项目经理"), "notmodify");
        row("offline", 1, "PM", "notexecuteoperation");
        row("contact deleted", 2, "PM", QString());
        row("card closed", 3, "PM", QString());
    }

    void remarkBox()
    {
        QFETCH(int, meanwhile);
        QFETCH(QString, typed);
        QFETCH(QString, told);
        const QPointer<CDetailView> card = filledCard();
        CardFixture::button(card, "btnSetName")->click();
        const QPointer<InputBox> box = card->findChild<InputBox *>();
        QVERIFY(box);
        box->setTextValue(typed);
        const int boxes = TipBox::count();
        if (meanwhile == 1)
            FakeHost::send(Inbound::ConnectionChanged, false);
        if (meanwhile == 2)
            m_fixture->host.context.contacts.clear();
        if (meanwhile == 3) {
            card->close();
            CardFixture::settle();
        }
        if (box)
            box->accept();
        QCOMPARE(m_fixture->host.count(Outbound::SetRemark), 0);
        QCOMPARE(TipBox::count() - boxes, told.isEmpty() ? 0 : 1);
        if (!told.isEmpty())
            QCOMPARE(TipBox::lastText(), told);
    }

    void hostileFields_data()
    {
        const Rows<QString> row{"text"};
        row("markup", "<b>bold</b><img src=\"/etc/passwd\">");
        row("entities", "a &amp; b &lt;i&gt;");
        row("mnemonic", "R&D &Co");
        row("long", QString(10000, QLatin1Char('w')));
        row("long Chinese", QString(10000, QChar(0x5f20)));
        row("controls", QStringLiteral("a\r\nb\tc\x1b[31md\x07") + QChar(0) + QChar('e'));
        row("bidi", QStringLiteral("gpj.") + QChar(0x202e) + QStringLiteral("exe"));
        row("Hebrew", QString::fromUtf8("שלום 123"));
        row("lone surrogate", QStringLiteral("a") + QChar(0xd800) + QStringLiteral("b"));
        row("style sheet", "a); qproperty-text:\"PWNED\"; x:url(b");
    }

    void hostileFields()
    {
        QFETCH(QString, text);
        CDetailView *card = m_fixture->open(m_fixture->anna);
        const QSize size = card->size();
        VcardInfo profile;
        std::apply(
            [&text](auto &...field) {
                const auto set = [&text](auto &value) {
                    if constexpr (std::is_same_v<std::decay_t<decltype(value)>, QString>)
                        value = text;
                };
                (set(field), ...);
            },
            VcardInfo::fieldsOf(profile));
        FakeHost::send(Inbound::ProfileReceived, m_fixture->anna, profile);
        FakeHost::send(Inbound::RemarkChanged, m_fixture->anna, text);
        card->grab();
        QCOMPARE(card->size(), size);
        const QList<QLabel *> labels = card->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (!label->text().isEmpty() && label->pixmap(Qt::ReturnByValue).isNull())
                QVERIFY2(label->textFormat() == Qt::PlainText, qPrintable(label->objectName()));
            QVERIFY(label->text().size() < 700);
            for (const QChar c : label->text()) {
                QVERIFY(c.category() != QChar::Other_Control);
                QVERIFY(c != QChar(0x202e));
            }
            // A tool tip that Qt would take for markup is markup made by us.
            QVERIFY(!Qt::mightBeRichText(label->toolTip()) ||
                    label->toolTip().startsWith(QLatin1String("<qt>")));
        }
        const ValueLabel *email = CardFixture::row(card, "Email");
        QVERIFY(email->width() <= card->width());
        QVERIFY(!email->copyText().contains(QLatin1Char('\n')));
    }

    void valuesAreCopied_data()
    {
        const Rows<int> row{"way"};
        row("Ctrl+C", 0);
        row("menu", 1);
        row("double click and Ctrl+C", 2);
    }

    void valuesAreCopied()
    {
        QFETCH(int, way);
        CDetailView *card = m_fixture->open(m_fixture->anna);
        VcardInfo profile = m_fixture->profileOf(m_fixture->anna);
        // Longer than what is shown of it.
        profile.email = QString(90, QLatin1Char('m')) + QStringLiteral("@mail.example");
        profile.orgName = QString::fromUtf8("研发 一部");
        FakeHost::send(Inbound::ProfileReceived, m_fixture->anna, profile);
        card->activateWindow();
        QTRY_VERIFY(card->isActiveWindow());
        QApplication::clipboard()->clear();
        ValueLabel *email = CardFixture::row(card, "Email");
        ValueLabel *department = CardFixture::row(card, "Department");
        QString expected = profile.email;
        if (way == 0) {
            email->setFocus(Qt::TabFocusReason);
            QVERIFY(email->hasSelectedText());
            QTest::keyClick(email, Qt::Key_C, Qt::ControlModifier);
        } else if (way == 1) {
            QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(4, 4),
                                    email->mapToGlobal(QPoint(4, 4)));
            QCoreApplication::sendEvent(email, &event);
            auto *menu = email->findChild<QMenu *>(QStringLiteral("valueMenu"));
            QVERIFY(menu && menu->isVisible());
            menu->actions().first()->trigger();
            menu->close();
        } else {
            QTest::mouseDClick(department, Qt::LeftButton, Qt::NoModifier, QPoint(4, 8));
            QTest::keyClick(department, Qt::Key_C, Qt::ControlModifier);
            expected = QString::fromUtf8("研发");
        }
        QCOMPARE(QApplication::clipboard()->text(), expected);
        QVERIFY(email->toolTip().contains(profile.email));
        QVERIFY(department->toolTip().isEmpty());
    }

    void cooperation()
    {
        m_fixture->host.context.cooperation.insert(m_fixture->anna, true);
        CDetailView *card = filledCard();
        auto *icon = qobject_cast<QLabel *>(CardFixture::part(card, "lblCooperateIcon"));
        QVERIFY(icon->isVisible());
        const QImage partner = icon->pixmap(Qt::ReturnByValue).toImage();
        FakeHost::send(Inbound::CooperationChanged,
                       QMap<QString, bool>{{m_fixture->stranger, false}});
        QCOMPARE(icon->pixmap(Qt::ReturnByValue).toImage(), partner);
        FakeHost::send(Inbound::CooperationChanged, QMap<QString, bool>{{m_fixture->anna, false}});
        QVERIFY(icon->pixmap(Qt::ReturnByValue).toImage() != partner);
        QVERIFY(!CardFixture::part(m_fixture->open(m_fixture->stranger), "lblCooperateIcon")
                     ->isVisible());
    }

    void presenceInWords()
    {
        CDetailView *card = filledCard();
        QCOMPARE(CardFixture::text(card, "lblPresence"), QStringLiteral("presenceOffline"));
        PresenceData busy;
        busy.pcShow = PresenceData::DoNotDisturb;
        FakeHost::send(Inbound::PresenceChanged,
                       QMap<QString, PresenceData>{{m_fixture->anna, busy}});
        QCOMPARE(CardFixture::text(card, "lblPresence"), QStringLiteral("presenceDnd"));
    }

    void pictureIsReplaced()
    {
        CDetailView *card = filledCard();
        QWidget *head = CardFixture::part(card, "head");
        QTest::mouseClick(head, Qt::LeftButton); // there is nothing to enlarge
        QCOMPARE(m_fixture->host.count(Outbound::ShowPicture), 0);
        const QString file = m_fixture->folder.filePath(QStringLiteral("head.png"));
        QImage red(64, 64, QImage::Format_RGB32);
        red.fill(Qt::red);
        QVERIFY(red.save(file));
        FakeHost::send(Inbound::HeadChanged, m_fixture->stranger, file);
        QVERIFY(card->body()->picture().isEmpty());
        FakeHost::send(Inbound::HeadChanged, m_fixture->anna, file);
        QTRY_COMPARE(head->grab().toImage().pixelColor(32, 12), QColor(Qt::red));
        QTest::mouseClick(head, Qt::LeftButton);
        QCOMPARE(std::get<1>(m_fixture->host.arguments<QString, QString>(Outbound::ShowPicture)),
                 file);
    }

    // The service's name is no path: of "../anna.png" only the base name counts.
    void pictureOfTheService()
    {
        CDetailView *card = filledCard();
        VcardInfo profile = m_fixture->profileOf(m_fixture->anna);
        profile.photoName = QStringLiteral("../anna.png");
        FakeHost::send(Inbound::ProfileReceived, m_fixture->anna, profile);
        const QString file = m_fixture->folder.filePath(QStringLiteral("anna.png"));
        emit PictureFiles::instance().ready(QStringLiteral("bob.png"), file);
        QVERIFY(card->body()->picture().isEmpty());
        emit PictureFiles::instance().ready(QStringLiteral("anna.png"), file);
        QCOMPARE(card->body()->picture(), file);
    }

    void watermark()
    {
        CDetailView *card = filledCard();
        const QWidget *body = CardFixture::part(card, "widget_5");
        QVERIFY(body->styleSheet().startsWith(
            QLatin1String("QWidget#widget_5{background-image: url(")));
        QVERIFY(body->styleSheet() !=
                QStringLiteral("QWidget#widget_5{background-image: url();} "));
        m_fixture->host.context.deniedRights = {ApplicationContext::DetailWatermark};
        m_fixture->open(m_fixture->anna);
        QCOMPARE(body->styleSheet(), QStringLiteral("QWidget#widget_5{background-image: url();} "));
    }

    // Tab reaches everything that can be used, and in the order in which it stands.
    void everythingByKeyboard()
    {
        m_fixture->host.context.headPaths.insert(m_fixture->anna, QStringLiteral("/tmp/anna.png"));
        CDetailView *card = filledCard();
        card->activateWindow();
        QTRY_VERIFY(card->isActiveWindow());
        QStringList reached;
        for (int i = 0; i < 30; ++i) {
            QTRY_VERIFY(QApplication::focusWidget());
            QWidget *at = QApplication::focusWidget();
            if (!reached.isEmpty() && at->objectName() == reached.first())
                break;
            reached.append(at->objectName());
            QTest::keyClick(at, Qt::Key_Tab);
        }
        const QStringList inOrder =
            QStringLiteral("head name lblAccount topicBtn btnPosition qianming companyName Remark "
                           "btnSetName Department Position leaderName mobileEmp otherPhone "
                           "phoneEmp Email Location btnSendMail btncreateDialog btnClose")
                .split(QLatin1Char(' '));
        const int start = inOrder.indexOf(reached.value(0));
        QVERIFY(start >= 0);
        const QString blank = QStringLiteral(" ");
        QCOMPARE(reached.join(blank), (inOrder.mid(start) + inOrder.mid(0, start)).join(blank));
    }

private:
    CDetailView *filledCard()
    {
        CDetailView *card = m_fixture->open(m_fixture->anna);
        m_fixture->answer(m_fixture->anna);
        return card;
    }

    std::unique_ptr<CardFixture> m_fixture;
};

FRIENDUI_TEST(TstCardContent)
#include "tst_cardcontent.moc"
