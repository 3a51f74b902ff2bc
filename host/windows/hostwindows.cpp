#include "host/windows/hostwindows.h"

#include "host/chat/chatarea.h"
#include "host/chat/chatpage.h"
#include "host/colleaguesearch.h"
#include "host/filetransfers.h"
#include "host/hostbus.h"
#include "host/hostcontext.h"
#include "host/messagingcore.h"
#include "host/windows/historywindow.h"
#include "host/windows/notices.h"
#include "host/windows/peoplepicker.h"
#include "host/windows/picturewindow.h"
#include "host/windows/requestnote.h"
#include "host/windows/roommanagement.h"
#include "hostapi/eventcodes.h"

#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace {

MessageData::Kind kindOf(qint32 kind)
{
    return kind >= MessageData::Person && kind <= MessageData::Channel ? MessageData::Kind(kind)
                                                                       : MessageData::Person;
}

QString uidOf(const QString &jid)
{
    return jid.section(QLatin1Char('@'), 0, 0);
}

} // namespace

HostWindows::HostWindows(MessagingCore *core, HostContext *context, HostBus *bus, ChatArea *chats,
                         QWidget *parent)
    : QObject(parent),
      m_core(core),
      m_context(context),
      m_bus(bus),
      m_chats(chats),
      m_parent(parent),
      m_notices(new Notices(parent)),
      m_transfers(new FileTransfers(core, this))
{
    connectRequests();
    m_context->setTransfers(m_transfers);
    connect(m_chats, &ChatArea::sendFileWanted, this,
            [this](const QString &jid, int kind) { sendFile({jid}, kind); });
    // Read here, so no longer unread in the plug-in's list.
    connect(m_chats, &ChatArea::conversationRead, m_bus, [bus = m_bus](const MessageData &newest) {
        bus->notify(Inbound::LatestContactChanged, newest.sessionJid, newest.body, newest.time);
    });
}

HostWindows::~HostWindows()
{
    m_context->setTransfers(nullptr);
}

void HostWindows::connectRequests()
{
    connect(m_core, &MessagingCore::contactRequested, this,
            [this](const QString &jid, const QString &text) {
                m_notices->add({Notice::ContactRequest, jid, nameOf(jid), text});
                emit note(tr("%1 asks to become a contact: %2").arg(nameOf(jid), text));
            });
    connect(m_core, &MessagingCore::contactAdded, m_notices,
            [this](const QString &jid) { m_notices->remove(Notice::ContactRequest, jid); });
    connect(m_core, &MessagingCore::requestRefused, this,
            [this](const QString &jid, const QString &reason) {
                emit note(tr("%1 refuses the contact request: %2").arg(nameOf(jid), reason));
            });
    // The plug-in has the window for it, and opens it when told the person's policy.
    connect(m_notices, &Notices::accepted, this, [this](int kind, const QString &jid) {
        if (kind != Notice::ContactRequest)
            return;
        m_toAdd.insert(jid);
        m_core->requestPolicy(jid);
    });
    connect(m_core, &MessagingCore::policyReceived, this,
            [this](const QString &jid, const QString &config, const QString &displayName) {
                if (m_toAdd.remove(jid))
                    m_bus->notify(Inbound::RequestPolicy, jid, config, QString(), displayName,
                                  true);
            });
}

QString HostWindows::nameOf(const QString &jid) const
{
    return ChatPage::nameOf(*m_core, jid).simplified();
}

QStringList HostWindows::peopleLines(const QStringList &jids) const
{
    QStringList lines;
    for (const QString &jid : jids) {
        VcardInfo profile;
        const bool hasMail = m_core->profile(jid, &profile) && !profile.email.isEmpty();
        lines.append(
            QStringLiteral("%1 <%2>").arg(nameOf(jid), hasMail ? profile.email.simplified() : jid));
    }
    return lines;
}

void HostWindows::openChat(const QString &jid, qint32 kind)
{
    if (jid.isEmpty()) {
        emit note(tr("A chat was asked for without a jid."));
        return;
    }
    m_chats->open(jid, kindOf(kind));
    m_chats->activateWindow();
}

void HostWindows::sendFile(const QStringList &jids, qint32 kind)
{
    auto *dialog = new QFileDialog(m_parent, tr("Send a file"), QDir::homePath());
    dialog->setObjectName(QStringLiteral("sendFileDialog"));
    // One that a test can drive, and that does not stop the window.
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFiles);
    dialog->setLabelText(QFileDialog::LookIn, tr("Folder"));
    dialog->setLabelText(QFileDialog::FileName, tr("Name"));
    dialog->setLabelText(QFileDialog::FileType, tr("Kind"));
    dialog->setNameFilter(tr("All files") + QLatin1String(" (*)"));
    dialog->setLabelText(QFileDialog::Accept, tr("Send"));
    dialog->setLabelText(QFileDialog::Reject, tr("Cancel"));
    connect(dialog, &QFileDialog::filesSelected, this,
            [this, jids, kind](const QStringList &files) {
                startTransfers(jids, kindOf(kind), files);
            });
    dialog->open();
}

void HostWindows::startTransfers(const QStringList &jids, MessageData::Kind kind,
                                 const QStringList &files)
{
    for (const QString &jid : jids) {
        for (const QString &file : files)
            m_transfers->start(jid, kind, file, QFileInfo(file).size());
    }
}

void HostWindows::openHistory(const QString &jid, qint32)
{
    auto *window = new HistoryWindow(*m_core, jid, m_parent);
    window->QWidget::show();
}

void HostWindows::createGroupChat(const QStringList &jids)
{
    QSet<QString> chosen;
    for (const QString &jid : jids)
        chosen.insert(jid);
    auto *picker =
        new PeoplePicker(tr("New group chat"), m_core->contacts(), {chosen, {}}, m_parent);
    picker->addTextField(tr("Subject"));
    connect(picker, &QDialog::accepted, this, [this, picker] {
        QStringList names;
        const QStringList members = picker->chosenJids();
        for (const QString &jid : members.mid(0, 3))
            names.append(nameOf(jid));
        const QString subject = picker->text();
        m_core->createRoom(members, subject.isEmpty() ? names.join(QStringLiteral(", ")) : subject);
    });
    picker->open();
}

void HostWindows::cancelTransfers(const QString &jid)
{
    const int count = m_transfers->cancel(jid);
    emit note(count == 0 ? tr("There is no file transfer with %1 to cancel.").arg(nameOf(jid))
                         : tr("File transfers with %1 cancelled: %2").arg(nameOf(jid)).arg(count));
}

void HostWindows::pinConversation(const QString &jid, bool top)
{
    m_context->setSessionTop(jid, top);
    emit note((top ? tr("The conversation with %1 is pinned.")
                   : tr("The conversation with %1 is no longer pinned."))
                  .arg(nameOf(jid)));
}

void HostWindows::showPicture(const QString &jid, const QString &path)
{
    PictureWindow::show(m_parent, nameOf(jid), path.isEmpty() ? m_context->headPath(jid) : path);
}

void HostWindows::openTopicPage(const QString &pluginId, const QString &jid)
{
    RequestNote::show(m_parent, tr("Topic page"),
                      tr("The plug-in that shows topic pages is not part of this host."),
                      peopleLines({jid}) + QStringList{pluginId});
}

QList<FriendData> HostWindows::colleagues() const
{
    QList<FriendData> people;
    const QList<FriendData> contacts = m_core->contacts();
    for (const FriendData &contact : contacts) {
        if (contact.outside == 0 && contact.onJob != 0)
            people.append(contact);
    }
    return people;
}

void HostWindows::pickColleague(const QString &title, const std::function<void(QString)> &picked)
{
    auto *picker = new PeoplePicker(title, colleagues(), {}, m_parent);
    picker->setSingle();
    picker->searchWith(new ColleagueSearch(m_core->companyCode(), m_core->serverDomain()));
    connect(picker, &QDialog::accepted, this,
            [picker, picked] { picked(uidOf(picker->chosenJids().value(0))); });
    picker->open();
}

void HostWindows::pickTeamMembers(const QString &teamId, qint32 groupId,
                                  const QStringList &presentIds)
{
    QSet<QString> present;
    for (const QString &id : presentIds)
        present.insert(uidOf(id) + QLatin1Char('@') + m_core->serverDomain());
    auto *picker =
        new PeoplePicker(tr("Add people to the team"), colleagues(), {{}, present}, m_parent);
    picker->searchWith(new ColleagueSearch(m_core->companyCode(), m_core->serverDomain()));
    connect(picker, &QDialog::accepted, this, [this, picker, teamId, groupId] {
        QStringList uids;
        const QStringList jids = picker->chosenJids();
        for (const QString &jid : jids)
            uids.append(uidOf(jid));
        m_bus->notify(Inbound::VirtualTeamMembersPicked, teamId, uids, groupId);
    });
    picker->open();
}

void HostWindows::manageRoom(const QString &roomJid)
{
    const auto open = m_parent->findChildren<RoomManagement *>();
    for (RoomManagement *window : open) {
        if (window->roomJid() == roomJid) {
            window->raise();
            window->activateWindow();
            return;
        }
    }
    (new RoomManagement(m_core, roomJid, m_parent))->QWidget::show();
}

void HostWindows::writeMail(const QStringList &jids)
{
    RequestNote::show(m_parent, tr("Write a mail"),
                      tr("This host sends no mail. A client would now open a new mail to:"),
                      peopleLines(jids));
}
