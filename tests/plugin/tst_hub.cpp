// The signal hub: shorter signal forms, registered types, records.
#include "plugin/frienduisignalsender.h"
#include "tests/support/testrunner.h"

#include <QDataStream>
#include <QMetaMethod>

namespace {
using Hub = FriendUISignalSender;

// Old-style slots with the arguments of the shorter forms.
class ShortReceiver : public QObject
{
    Q_OBJECT

public:
    QStringList calls;

public slots:
    void three(const QString &jid, const QString &config, const QString &group)
    {
        calls.append(QStringLiteral("3 %1 %2 %3").arg(jid, config, group));
    }
    void four(const QString &, const QString &, const QString &, const QString &name)
    {
        calls.append(QStringLiteral("4 %1").arg(name));
    }
    void groups(QList<GroupData> &list)
    {
        calls.append(QStringLiteral("%1 groups").arg(list.size()));
    }
};
} // namespace

class TstHub : public QObject
{
    Q_OBJECT

private slots:
    void fullEmissionReachesTheShorterForms()
    {
        ShortReceiver receiver;
        QVERIFY(QObject::connect(Hub::instance(),
                                 SIGNAL(signal_configreceived(QString, QString, QString)),
                                 &receiver, SLOT(three(QString, QString, QString))));
        QVERIFY(QObject::connect(Hub::instance(),
                                 SIGNAL(signal_configreceived(QString, QString, QString, QString)),
                                 &receiver, SLOT(four(QString, QString, QString, QString))));
        QVERIFY(QObject::connect(Hub::instance(), SIGNAL(signal_addAllGroup(QList<GroupData> &)),
                                 &receiver, SLOT(groups(QList<GroupData> &))));
        emit Hub::instance()->signal_configreceived(QStringLiteral("j"), QStringLiteral("c"),
                                                    QStringLiteral("g"), QStringLiteral("n"), true);
        QList<GroupData> groups{GroupData()};
        emit Hub::instance()->signal_addAllGroup(groups, false);
        QCOMPARE(receiver.calls, (QStringList{QStringLiteral("3 j c g"), QStringLiteral("4 n"),
                                              QStringLiteral("1 groups")}));
    }

    void signalsWithShorterForms()
    {
        for (const char *signature :
             {"signal_requestAddFriend(QString,QString)",
              "signal_moveitem(bool,QString,QString,QString)", "signal_hidealloff(bool)"})
            QVERIFY2(Hub::staticMetaObject.indexOfSignal(signature) >= 0, signature);
    }

    void everySignalArgumentCanTravel()
    {
        Hub::instance();
        const QMetaObject &meta = Hub::staticMetaObject;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            for (QByteArray type : meta.method(i).parameterTypes()) {
                type.replace('&', "");
                QVERIFY2(QMetaType::type(type) != QMetaType::UnknownType, type);
            }
        }
    }

    void namedTypesAreRegistered_data()
    {
        const Rows<QByteArray> row{"name"};
        const QByteArray names =
            "FriendData;QList<FriendData>;DBFriendData;ChatSummaryData;CSChannelData;"
            "DBApplicationData;DBServiceData;SessionData;SessionSettingData;LocalFileData;"
            "DingMsgData;FavoriteData;CstSrvQukRplyData;AgentData;QList<AgentData>;"
            "HttpResponseData;VcardInfo;GroupData;QList<GroupData>;CRosterInfoData;"
            "PresenceData::ePcShowType;MucData;MucTopicInfoData;MucMemberData;"
            "QList<MucMemberData>;QList<CServiceNumData>;MessageData";
        for (const QByteArray &name : names.split(';'))
            row(name.constData(), name);
    }
    void namedTypesAreRegistered()
    {
        QFETCH(QByteArray, name);
        const int type = QMetaType::type(name);
        QVERIFY(type != QMetaType::UnknownType);
        Hub::registerMetaTypes(); // again: changes nothing
        QCOMPARE(QMetaType::type(name), type);
        QVERIFY(QVariant(type, nullptr).isValid());
    }

    void recordsCrossQueuedConnections()
    {
        QSignalSpy spy(Hub::instance(), &Hub::signal_updateFriendPresence);
        QMap<QString, PresenceData> seen;
        QObject receiver;
        connect(
            Hub::instance(), &Hub::signal_updateFriendPresence, &receiver,
            [&seen](const QMap<QString, PresenceData> &presence) { seen = presence; },
            Qt::QueuedConnection);
        PresenceData away;
        away.pcShow = PresenceData::Away;
        emit Hub::instance()->signal_updateFriendPresence({{QStringLiteral("j"), away}});
        QVERIFY(seen.isEmpty());
        QTRY_COMPARE(seen.value(QStringLiteral("j")), away);
        QCOMPARE((spy.first().first().value<QMap<QString, PresenceData>>()), seen);
    }

    void latestContactRecordOnTheWire()
    {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        out << DBFriendData();
        // Seven empty texts (not null ones), 1, three texts, 0, a text, 16 bits of
        // 0, a text, 0, a text, 0.
        const QByteArray none(4, '\0');
        const QByteArray expected = none.repeated(7) + QByteArray::fromHex("00000001") +
                                    none.repeated(3) + none + none + QByteArray(2, '\0') + none +
                                    none + none + none;
        QCOMPARE(bytes.toHex(), expected.toHex());
    }
};

FRIENDUI_TEST(TstHub)
#include "tst_hub.moc"
