// What the rows of the organisation's tree tell, and what kinds of row there are.
#pragma once

namespace OrgRole {
enum Role
{
    Name = 257,
    Id = 258,
    Photo = 259,
    Status = 260, // a PresenceData::ePcShowType
    Device = 261, // a PresenceData::MobileDevice
    Duty = 263,
    Kind = 280 // an OrgRowKind
};
}

enum class OrgRowKind
{
    Department = 1,
    Employee = 2,
    Loading = 3, // stands alone under its department
    Failed = 4
};

// What is known of a department's children.
enum class OrgChildren
{
    NotAsked,
    Loading,
    Failed,
    Loaded
};
