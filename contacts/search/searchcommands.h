// What can be done with something that was found, by its kind. A request of the host
// may take the pane away: each function is the last thing its caller does.
#pragma once

struct SearchEntry;

namespace SearchCommands {

// Whether opening or locating leads to another page of the pane rather than out of it.
bool opensPage(const SearchEntry &entry);

void open(const SearchEntry &entry);
// Shows its row: a contact's in the friend tree, other people's in the organisation.
void locate(const SearchEntry &entry);
void locateInOrganisation(const SearchEntry &person);
void viewDetail(const SearchEntry &entry);
void writeMail(const SearchEntry &person);
void addContact(const SearchEntry &person);

// Whether the menu offers it.
bool mayOpenChat(const SearchEntry &entry);
bool mayLocate(const SearchEntry &entry);
bool mayLocateInOrganisation(const SearchEntry &entry);
bool mayViewDetail(const SearchEntry &entry);
bool mayWriteMail(const SearchEntry &entry);
bool mayAddContact(const SearchEntry &entry);

} // namespace SearchCommands
