// What the tests of the embedded core share: a core in a folder of its own, made
// anew for every test, that answers at once and can be restarted.
#pragma once

#include "host/core/embeddedcore.h"

#include <QTemporaryDir>
#include <QTest>

#include <memory>

class CoreFixture : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qRegisterMetaType<QMap<QString, PresenceData>>("QMap<QString,PresenceData>");
    }

    void init()
    {
        m_folder.reset(new QTemporaryDir);
        start();
    }

    void cleanup()
    {
        m_core.reset();
        m_folder.reset();
    }

protected:
    void start()
    {
        m_core.reset();
        EmbeddedCore::Options options;
        options.folder = m_folder->path();
        options.sampleFriends = m_sampleFriends;
        options.user = m_user;
        m_core = std::make_unique<EmbeddedCore>(options);
        m_core->setAnswerDelay(0);
        m_core->setConfirmationDelay(0);
        QString problem;
        QVERIFY2(m_core->open(&problem), qPrintable(problem));
    }

    void restart() { start(); }

    QString groupId(const QString &name) const
    {
        for (const GroupData &group : m_core->groups(true)) {
            if (group.name == name)
                return group.id;
        }
        return {};
    }

    QStringList membersOf(const QString &id) const
    {
        QStringList jids;
        for (const FriendData &contact : m_core->contacts()) {
            if (contact.groupId == id && contact.outside == 0)
                jids.append(contact.jid);
        }
        return jids;
    }

    FriendData record(const QString &jid) const
    {
        FriendData found;
        m_core->contact(jid, &found);
        return found;
    }

    QString stranger(SampleCompany::Policy policy) const
    {
        for (int i = 1; i < m_core->company().people(); ++i) {
            const QString jid = SampleCompany::uid(i) + QStringLiteral("@corp.example");
            FriendData known;
            if (m_core->company().policy(i) == policy && !m_core->contact(jid, &known))
                return jid;
        }
        return {};
    }

    QScopedPointer<QTemporaryDir> m_folder;
    std::unique_ptr<EmbeddedCore> m_core;
    FriendData m_record;
    bool m_sampleFriends = true;
    QString m_user = SampleCompany::uid(0);
};
