// Streaming of the host records, with honest and hostile payloads.
#include "hostapi/hostrecords.h"
#include "tests/support/testrunner.h"

namespace {
template <class Record> QByteArray streamed(const Record &record)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << record;
    return bytes;
}

template <class Record> Record restored(const QByteArray &bytes)
{
    QDataStream in(bytes);
    Record record;
    RecordStream::read(in, record);
    return record;
}

FriendData sampleContact()
{
    FriendData contact;
    contact.jid = QStringLiteral("u1@corp.example");
    contact.remark = QString::fromUtf8("小李");
    contact.nickName = QString::fromUtf8("李雷");
    contact.onJob = 0;
    contact.outside = 1;
    return contact;
}
} // namespace

class TstRecords : public QObject
{
    Q_OBJECT

private slots:
    void roundTripKeepsEveryField()
    {
        const FriendData contact = sampleContact();
        QVERIFY(sameFields(restored<FriendData>(streamed(contact)), contact));

        CServiceNumData number;
        number.code = QStringLiteral("s1");
        number.isSub = true;
        number.hasChannel = true;
        number.channel.workgroups = QStringList{QStringLiteral("a"), QStringLiteral("b")};
        number.channel.agentCloseSession = 7;
        QVERIFY(sameFields(restored<CServiceNumData>(streamed(number)).channel, number.channel));

        MucData room;
        room.classify = MucData::PreferredRoom;
        room.forbidden = true;
        QVERIFY(sameFields(restored<MucData>(streamed(room)), room));
    }

    void wireOrderIsThatOfTheMembers()
    {
        QDataStream in(streamed(sampleContact()));
        QString jid, remark, text;
        in >> jid >> remark;
        QCOMPARE(jid, QStringLiteral("u1@corp.example"));
        QCOMPARE(remark, QString::fromUtf8("小李"));
        for (int i = 0; i < 5; ++i)
            in >> text; // group id and name, subscription, nick name, head
        qint32 onJob = -1;
        in >> onJob;
        QCOMPARE(onJob, 0);
    }

    void defaultRecordStreamsEmptyNotNullStrings()
    {
        // ffffffff would be a null string.
        QVERIFY(!streamed(FriendData()).contains(QByteArray::fromHex("ffffffff")));
        QVERIFY(!streamed(CSChannelData()).contains(QByteArray::fromHex("ffffffff")));
    }

    void truncatedRecordLeavesDefaults()
    {
        const QByteArray whole = streamed(sampleContact());
        for (int length = 0; length < whole.size(); ++length) {
            const FriendData contact = restored<FriendData>(whole.left(length));
            QVERIFY(contact.jid.isEmpty() || contact.jid == QLatin1String("u1@corp.example"));
        }
    }

    void hugeContainerCountYieldsAnEmptyContainer_data()
    {
        const Rows<QByteArray> row{"bytes"};
        row("largest", QByteArray::fromHex("7ffffff0"));
        row("one more than there is", QByteArray::fromHex("0000000a") + "123456789");
        row("count cut off", QByteArray::fromHex("0000"));
    }
    void hugeContainerCountYieldsAnEmptyContainer()
    {
        QFETCH(QByteArray, bytes);
        QVERIFY(restored<QList<FriendData>>(bytes).isEmpty());
        QVERIFY(restored<QStringList>(bytes).isEmpty());
        QVERIFY((restored<QMap<QString, PresenceData>>(bytes).isEmpty()));
        // A list inside a record is guarded as well.
        QByteArray channel = streamed(CSChannelData());
        channel.replace(16, 4, bytes.left(4)); // behind the four empty texts
        QVERIFY(restored<CSChannelData>(channel).workgroups.isEmpty());
    }

    void contactsAreEqualByJid()
    {
        FriendData other;
        other.jid = sampleContact().jid;
        QVERIFY(other == sampleContact());
        QVERIFY(!sameFields(other, sampleContact()));
    }
};

FRIENDUI_TEST(TstRecords)
#include "tst_records.moc"
