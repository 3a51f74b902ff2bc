// Reads the commands of the control port.
#pragma once

#include <json/value.h>

#include <stdexcept>
#include <string>
#include <vector>

// The command cannot be carried out; says why.
class BadCommand : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Throws BadCommand when the text is not one object.
Json::Value objectFrom(const std::string &text);
// Throws BadCommand when the object has a member that is not listed.
void refuseOthers(const Json::Value &root, const std::vector<std::string> &known);
