// What the rows of the team tree and of the lists of members tell, and what kinds of
// row there are.
#pragma once

namespace TeamRowRole {
enum Role
{
    Name = 257,
    Id = 258,       // of the team, the sub-group, or the person
    Photo = 259,    // name at the file service
    Role = 260,     // a TeamRole: the user's in a team, the member's
    Presence = 261, // a PresenceData; invalid for who is no member
    SortKey = 262,
    Duty = 263,
    Company = 264, // its name
    Count = 265,   // members of a team
    Checked = 266, // in lists to choose from
    Kind = 280     // a TeamRowKind
};
}

enum class TeamRowKind
{
    Team = 1,
    Group = 2,
    Member = 3,
    Loading = 4, // stands alone under its team or group
    Failed = 5,
    Empty = 6
};

// What is known of what is below a team or sub-group.
enum class TeamChildren
{
    NotAsked,
    Loading,
    Failed,
    Loaded
};
