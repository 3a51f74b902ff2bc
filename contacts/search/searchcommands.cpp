#include "contacts/search/searchcommands.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "contacts/search/searchindex.h"
#include "plugin/frienduieventprocess.h"
#include "plugin/paneactions.h"

namespace {

bool isOwn(const SearchEntry &entry)
{
    return entry.kind == SearchEntry::Person && entry.id == ctx().ownJid();
}

bool isOtherPerson(const SearchEntry &entry)
{
    return entry.kind == SearchEntry::Person && !isOwn(entry);
}

} // namespace

bool SearchCommands::opensPage(const SearchEntry &entry)
{
    return entry.kind == SearchEntry::Group || entry.kind == SearchEntry::Department ||
           entry.kind == SearchEntry::Team;
}

void SearchCommands::open(const SearchEntry &entry)
{
    PaneActions *actions = paneActions();
    switch (entry.kind) {
    case SearchEntry::Person:
        if (mayOpenChat(entry))
            FriendUIEventProcess::openChat(entry.id, MessageData::Person);
        else
            viewDetail(entry);
        return;
    case SearchEntry::Room:
        FriendUIEventProcess::openChat(entry.id, MessageData::Room);
        return;
    case SearchEntry::Channel:
        FriendUIEventProcess::openChat(entry.id, MessageData::Channel);
        return;
    case SearchEntry::ServiceNumber:
        if (actions)
            actions->openServiceNumber(entry.id);
        return;
    case SearchEntry::Group:
    case SearchEntry::Department:
    case SearchEntry::Team:
        locate(entry);
        return;
    }
}

void SearchCommands::locate(const SearchEntry &entry)
{
    PaneActions *actions = paneActions();
    if (!actions)
        return;
    switch (entry.kind) {
    case SearchEntry::Person:
        if (entry.isContact)
            actions->locateContact(entry.id);
        else
            locateInOrganisation(entry);
        return;
    case SearchEntry::Room:
        actions->locateRoom(entry.id);
        return;
    case SearchEntry::Group:
        actions->locateGroup(entry.id);
        return;
    case SearchEntry::Department:
        actions->locateInOrganisation(entry.id, true);
        return;
    case SearchEntry::Team:
        actions->locateTeam(entry.id);
        return;
    case SearchEntry::ServiceNumber:
        actions->openServiceNumber(entry.id);
        return;
    case SearchEntry::Channel:
        actions->locateChannel(entry.id);
        return;
    }
}

void SearchCommands::locateInOrganisation(const SearchEntry &person)
{
    if (PaneActions *actions = paneActions())
        actions->locateInOrganisation(jidUser(person.id), false);
}

void SearchCommands::viewDetail(const SearchEntry &entry)
{
    PaneActions *actions = paneActions();
    if (!actions)
        return;
    if (entry.kind == SearchEntry::ServiceNumber)
        actions->openServiceNumber(entry.id);
    else if (isOwn(entry))
        actions->openOwnDetail();
    else if (entry.kind == SearchEntry::Person)
        actions->openContactDetail(entry.id);
}

void SearchCommands::writeMail(const SearchEntry &person)
{
    FriendUIEventProcess::writeMail({person.id});
}

void SearchCommands::addContact(const SearchEntry &person)
{
    if (PaneActions *actions = paneActions())
        actions->addContact(person.id);
}

bool SearchCommands::mayOpenChat(const SearchEntry &entry)
{
    return isOtherPerson(entry) && ctx().hasRight(ApplicationContext::Chat);
}

bool SearchCommands::mayLocate(const SearchEntry &entry)
{
    if (entry.kind == SearchEntry::Person)
        return entry.isContact;
    // A number stands in no list that could show it.
    return entry.kind != SearchEntry::ServiceNumber;
}

bool SearchCommands::mayLocateInOrganisation(const SearchEntry &entry)
{
    return entry.kind == SearchEntry::Person && ctx().hasRight(ApplicationContext::Org) &&
           !isExternal(entry.id);
}

bool SearchCommands::mayViewDetail(const SearchEntry &entry)
{
    const PaneActions *actions = paneActions();
    return entry.kind == SearchEntry::ServiceNumber ||
           (entry.kind == SearchEntry::Person && actions && actions->canOpenContactDetail());
}

bool SearchCommands::mayWriteMail(const SearchEntry &entry)
{
    return isOtherPerson(entry) && ctx().hasRight(ApplicationContext::Mail);
}

bool SearchCommands::mayAddContact(const SearchEntry &entry)
{
    const PaneActions *actions = paneActions();
    return isOtherPerson(entry) && !entry.isContact && !entry.hasLeft && isOnline() && actions &&
           ctx().hasRight(ApplicationContext::AddContact) && actions->mayAddContact(entry.id);
}
