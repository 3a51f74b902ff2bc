#include "backend/commandjson.h"

#include <json/reader.h>

#include <algorithm>
#include <memory>

Json::Value objectFrom(const std::string &text)
{
    Json::CharReaderBuilder builder;
    const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
    Json::Value root;
    std::string errors;
    if (!reader->parse(text.data(), text.data() + text.size(), &root, &errors))
        throw BadCommand(errors);
    if (!root.isObject())
        throw BadCommand("not an object");
    return root;
}

void refuseOthers(const Json::Value &root, const std::vector<std::string> &known)
{
    for (const std::string &name : root.getMemberNames()) {
        if (std::find(known.begin(), known.end(), name) == known.end())
            throw BadCommand("unknown member: " + name);
    }
}
