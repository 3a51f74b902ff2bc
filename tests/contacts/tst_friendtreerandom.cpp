// Random operations on the model, compared with a plain reference after each.
#include "common/builtingroups.h"
#include "contacts/friendtreemodel.h"
#include "tests/contacts/contactmaker.h"
#include "tests/support/fakecontext.h"
#include "tests/support/testrunner.h"

#include <QAbstractItemModelTester>

#include <algorithm>
#include <random>

namespace {

QString ownJid()
{
    return QStringLiteral("u0@corp.example");
}

// What the tree should show, kept the simplest way.
struct Reference
{
    QMap<QString, FriendData> contacts; // groupId: where the contact stands
    QMap<QString, QString> groups;      // id, name
    QMap<QString, PresenceData> presence;
    bool hide = false;

    QString key(const QString &jid) const
    {
        const FriendData &contact = contacts[jid];
        return FriendTreeSort::contactKey(
            FriendTreeSort::block(contact, presence.value(jid), jid == ownJid()),
            contact.remark.isEmpty() ? contact.nickName : contact.remark);
    }
    QStringList members(const QString &groupId) const
    {
        QStringList jids;
        for (const FriendData &contact : contacts) {
            if (contact.groupId == groupId)
                jids.append(contact.jid);
        }
        return jids;
    }
    QStringList shown(const QString &groupId) const
    {
        QStringList jids;
        const QStringList all = members(groupId);
        for (const QString &jid : all) {
            if (!hide || jid == ownJid() || presence.value(jid).isOnline())
                jids.append(jid);
        }
        std::sort(jids.begin(), jids.end(), [this](const QString &a, const QString &b) {
            const int order = key(a).compare(key(b), Qt::CaseInsensitive);
            return order != 0 ? order < 0 : a < b;
        });
        return jids;
    }
    int online(const QString &groupId) const
    {
        const QStringList all = members(groupId);
        return int(std::count_if(all.begin(), all.end(), [this](const QString &jid) {
            return presence.value(jid).isOnline();
        }));
    }
    QStringList groupOrder() const
    {
        QStringList ids = groups.keys();
        std::sort(ids.begin(), ids.end(), [this](const QString &a, const QString &b) {
            return std::make_pair(FriendTreeSort::groupKey(groups[a]), a) <
                   std::make_pair(FriendTreeSort::groupKey(groups[b]), b);
        });
        return ids;
    }
};

} // namespace

class TstFriendTreeRandom : public QObject
{
    Q_OBJECT

private slots:
    void agreesWithTheReference_data()
    {
        const Rows<uint, int> row{"seed", "people"};
        for (const uint seed : {1u, 20u, 300u, 4000u})
            QTest::addRow("seed %u", seed) << seed << 60;
        row("large batches", 50000u, 300);
    }

    void agreesWithTheReference()
    {
        QFETCH(uint, seed);
        QFETCH(int, people);
        FakeContext context;
        const HostContextScope scope(&context);
        m_random.seed(seed);
        m_people = people;
        m_reference = Reference();
        m_frozen = false;
        FriendTreeModel model(ContactRow);
        const QAbstractItemModelTester tester(
            &model, QAbstractItemModelTester::FailureReportingMode::QtTest);
        model.setOwnJid(ownJid());
        for (int i = 0; i < 4; ++i) {
            m_reference.groups.insert(QStringLiteral("g%1").arg(i), QStringLiteral("G%1").arg(i));
            model.mergeGroups({{QStringLiteral("g%1").arg(i), QStringLiteral("G%1").arg(i)}});
        }
        QVector<QPersistentModelIndex> held;
        QStringList heldJids;
        for (int count = 0; count < 60000 / people; ++count) {
            step(&model);
            const QString wrong = difference(model);
            QVERIFY2(wrong.isEmpty(),
                     qPrintable(QStringLiteral("step %1: %2").arg(count).arg(wrong)));
            // Indexes that were taken once lead to the same contact, or nowhere.
            for (int i = 0; i < held.size(); ++i)
                QVERIFY(!held.at(i).isValid() ||
                        held.at(i).data(FriendTreeRole::Id).toString() == heldJids.at(i));
            if (count % 50 == 0) {
                held.clear();
                heldJids.clear();
                for (const QString &jid : m_reference.contacts.keys().mid(0, 10)) {
                    held.append(model.contactIndex(jid));
                    heldJids.append(jid);
                }
            }
        }
    }

private:
    int below(int bound) { return int(m_random() % quint32(bound)); }
    QString someJid() { return QStringLiteral("u%1@corp.example").arg(below(m_people)); }
    QString someGroup() { return QStringLiteral("g%1").arg(below(8)); }

    QString someName()
    {
        static const QStringList names{
            QString::fromUtf8("张伟"),      QString::fromUtf8("王芳"),
            QString::fromUtf8("李娜"),      QString::fromUtf8("上海分公司人力资源部陈"),
            QStringLiteral("anna"),         QString::fromUtf8("上海分公司人力资源部周"),
            QStringLiteral("Zoe"),          QStringLiteral("abcdefghijklmnopq"),
            QStringLiteral("wang_fang"),    QStringLiteral("abcdefghijklmnopQr"),
            QStringLiteral("Abcdefghijklm")};
        return names.at(below(names.size()));
    }

    FriendData someContact()
    {
        FriendData contact;
        contact.jid = someJid();
        contact.nickName = someName();
        contact.groupId = someGroup();
        contact.onJob = below(6) ? 1 : 0;
        return contact;
    }

    PresenceData somePresence() { return makePresence(below(3) ? 0 : below(6), below(4) ? 0 : 1); }

    void step(FriendTreeModel *model)
    {
        const QString jid = someJid();
        const QString group = someGroup();
        const bool known = m_reference.contacts.contains(jid);
        const bool groupKnown = m_reference.groups.contains(group);
        switch (below(14)) {
        case 0:
            merge(model, 1);
            break;
        case 1:
            merge(model, below(m_people));
            break;
        case 2:
            QCOMPARE(model->removeContact(jid), known);
            m_reference.contacts.remove(jid);
            // The context, which knows nothing, is asked when the contact comes back.
            if (known)
                m_reference.presence.remove(jid);
            break;
        case 3:
            QCOMPARE(model->moveContact(jid, group), known && groupKnown);
            if (known && groupKnown)
                m_reference.contacts[jid].groupId = group;
            break;
        case 4: {
            const QString remark = below(2) ? someName() : QString();
            QCOMPARE(model->changeContact(jid, [&](FriendData &c) { c.remark = remark; }), known);
            if (known)
                m_reference.contacts[jid].remark = remark;
            break;
        }
        case 5:
        case 6:
        case 7: {
            const PresenceData presence = somePresence();
            model->setPresence({{jid, presence}});
            m_reference.presence[jid] = presence;
            break;
        }
        case 8: {
            QMap<QString, PresenceData> batch;
            for (int i = below(120); i > 0; --i)
                batch.insert(someJid(), somePresence());
            model->setPresence(batch);
            for (auto at = batch.constBegin(); at != batch.constEnd(); ++at)
                m_reference.presence[at.key()] = at.value();
            break;
        }
        case 9:
            m_reference.hide = !m_reference.hide;
            model->setHideOffline(m_reference.hide);
            break;
        case 10:
            m_frozen = !m_frozen;
            model->setOrderFrozen(m_frozen);
            break;
        case 11: {
            const QString name =
                below(4) ? someName() + QString::number(below(3)) : QString::fromUtf8("常用联系人");
            model->mergeGroups({{group, name}});
            m_reference.groups[group] = name;
            // The default group that was made for orphans goes when it is empty.
            if (m_reference.members(QStringLiteral("")).isEmpty())
                m_reference.groups.remove(QStringLiteral(""));
            break;
        }
        case 12:
            if (below(3) || m_reference.groups.size() < 3)
                break;
            QCOMPARE(model->removeGroup(group), groupKnown);
            if (!groupKnown)
                break;
            m_reference.groups.remove(group);
            for (FriendData &contact : m_reference.contacts) {
                if (contact.groupId != group)
                    continue;
                contact.groupId = QStringLiteral("");
                m_reference.groups[QStringLiteral("")] = defaultGroupName();
            }
            break;
        case 13:
            if (below(10) == 0) {
                model->setAllOffline();
                m_reference.presence.clear();
            }
            break;
        }
    }

    void merge(FriendTreeModel *model, int count)
    {
        QList<FriendData> batch;
        for (int i = 0; i < count; ++i) {
            FriendData contact = someContact();
            while (!m_reference.groups.contains(contact.groupId))
                contact.groupId = someGroup();
            batch.append(contact);
            m_reference.contacts.insert(contact.jid, contact);
        }
        model->mergeContacts(batch);
    }

    QString difference(const FriendTreeModel &model) const
    {
        QStringList ids;
        for (int row = 0; row < model.rowCount(); ++row)
            ids.append(model.index(row, 0).data(FriendTreeRole::Id).toString());
        if (ids != m_reference.groupOrder())
            return QStringLiteral("groups ") + ids.join(QLatin1Char(' '));
        for (const QString &id : qAsConst(ids)) {
            const QModelIndex group = model.groupIndex(id);
            QStringList jids;
            for (int row = 0; row < model.rowCount(group); ++row) {
                const QModelIndex index = model.index(row, 0, group);
                const QString jid = index.data(FriendTreeRole::Id).toString();
                if (index.data(FriendTreeRole::SortKey).toString() != m_reference.key(jid))
                    return QStringLiteral("key of ") + jid;
                if (model.contactIndex(jid) != index)
                    return QStringLiteral("index of ") + jid;
                jids.append(jid);
            }
            if (!m_frozen && jids != m_reference.shown(id)) {
                return QStringLiteral("rows of %1: %2 instead of %3")
                    .arg(id, jids.join(QLatin1Char(' ')),
                         m_reference.shown(id).join(QLatin1Char(' ')));
            }
            QStringList members = model.contactsOfGroup(id);
            members.sort();
            if (members != m_reference.members(id))
                return QStringLiteral("members of ") + id;
            if (group.data(FriendTreeRole::OnlineCount).toInt() != m_reference.online(id) ||
                group.data(FriendTreeRole::TotalCount).toInt() != members.size())
                return QStringLiteral("counts of ") + id;
        }
        return QString();
    }

    std::mt19937 m_random;
    int m_people = 60;
    Reference m_reference;
    bool m_frozen = false;
};

FRIENDUI_TEST(TstFriendTreeRandom)
#include "tst_friendtreerandom.moc"
