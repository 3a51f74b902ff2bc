// The organisation: the children of a department, and the way down to somebody.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/orgtree.h"
#include "backend/routes/routes.h"

#include <memory>

namespace {

bool mayRead(const Call &call, const BackEndContext &context)
{
    const std::optional<User> user = context.people.find(call.caller.uid);
    return user && user->mayReadOrganisation;
}

void writeDepartments(JsonText *json, const OrgTree &tree, const QVector<int> &departments)
{
    for (const int index : departments) {
        json->open('{');
        tree.writeDepartment(json, index);
        json->close('}');
    }
}

Reply searchOrg(const Call &call, const BackEndContext &context, const OrgTree &tree)
{
    if (!mayRead(call, context))
        return Reply::ofStatus(403);
    const QString id = call.form.required("orgId");
    const bool isCompany = id == SampleCompany::companyCode();
    const int department = tree.find(id);
    if (!isCompany && department < 0)
        return Reply::ofStatus(204);
    std::string text;
    JsonText json(&text);
    json.open('{').open("org", '[');
    writeDepartments(&json, tree, isCompany ? tree.topmost() : tree.at(department).children);
    json.close(']').open("emp", '[');
    if (!isCompany)
        tree.writeEmployees(&json, department);
    json.close(']').close('}');
    return Reply::text(std::move(text));
}

// The object of path[level], whose children are those of the department; the one
// that leads further has its own.
void writeLevel(JsonText *json, const OrgTree &tree, const QVector<int> &path, int level)
{
    const int index = path.at(level);
    tree.writeDepartment(json, index);
    json->open("children", '{').open("org", '[');
    for (const int child : tree.at(index).children) {
        json->open('{');
        if (level + 1 < path.size() && path.at(level + 1) == child)
            writeLevel(json, tree, path, level + 1);
        else
            tree.writeDepartment(json, child);
        json->close('}');
    }
    json->close(']').open("emp", '[');
    tree.writeEmployees(json, index);
    json->close(']').close('}');
}

Reply locateOrg(const Call &call, const BackEndContext &context, const OrgTree &tree)
{
    if (!mayRead(call, context))
        return Reply::ofStatus(403);
    const QString id = call.form.required("empId");
    const QString type = call.form.required("type");
    int department = -1;
    if (type == QLatin1String("ORG")) {
        department = tree.find(id);
    } else if (type == QLatin1String("EMP")) {
        const std::optional<User> user = context.people.find(id);
        if (user)
            department = tree.find(user->orgId);
    } else {
        throw IllegalField("type");
    }
    if (department < 0)
        return Reply::ofStatus(204);
    std::string text;
    JsonText json(&text);
    json.open('{').open("location", '{');
    writeLevel(&json, tree, tree.path(department), 0);
    json.close('}').close('}');
    return Reply::text(std::move(text));
}

} // namespace

void addOrganisationServices(Services *services, BackEndContext &context)
{
    const auto tree = std::make_shared<const OrgTree>(context.people);
    services->post("/center/org/searchOrg.do", Services::Organisation,
                   [&context, tree](const Call &call) { return searchOrg(call, context, *tree); });
    services->post("/center/org/locateOrg.do", Services::Organisation,
                   [&context, tree](const Call &call) { return locateOrg(call, context, *tree); });
}
