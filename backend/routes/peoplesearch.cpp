// Searching people and departments of the company.
#include "backend/call.h"
#include "backend/context.h"
#include "backend/orgtree.h"
#include "backend/peopleindex.h"
#include "backend/routes/routes.h"

#include <memory>

namespace {
constexpr qint64 LargestPage = 500;
constexpr qint64 LastPage = 100000;

struct Page
{
    qint64 first, size;

    bool contains(qint64 position) const { return position >= first && position < first + size; }
};

void writePresence(JsonText *json, const SampleCompany::Reach &reach)
{
    const auto entry = [json](const char *show, const char *platform, const char *resource) {
        json->open('{').member("available", "true").member("show", show);
        json->member("platform", platform).member("resource", resource).close('}');
    };
    json->open("presenceList", '[');
    if (reach.pc > 0)
        entry(OrgTree::show(reach.pc), "pc", "pc");
    if (reach.mobile > 0)
        entry("available", reach.mobile == 1 ? "android" : "ios", "mobile");
    json->close(']');
}

void writeUser(JsonText *json, const User &user, const People &people)
{
    const std::optional<User> leader = people.find(user.leaderUid);
    json->open('{').member("companyCode", user.companyCode).member("userId", user.uid);
    json->member("employeeCode", user.employeeCode).member("photoName", user.photoName);
    json->member("nickName", user.nickName).member("duty", user.duty);
    json->member("companyName", user.companyName).member("orgName", user.orgName);
    json->member("mobile", user.mobile).member("otherPhone", user.otherPhone);
    json->member("email", user.email).member("orgId", user.orgId);
    json->member("leaderId", user.leaderUid);
    json->member("leaderName", leader ? leader->name : QString());
    writePresence(json, user.reach);
    json->close('}');
}

// Returns how many match; those of the page are written.
qint64 writeDepartments(JsonText *json, const OrgTree &tree, const QString &piece, const Page &page)
{
    qint64 count = 0;
    for (int i = 0; i < tree.count(); ++i) {
        if (!tree.at(i).name.contains(piece, Qt::CaseInsensitive))
            continue;
        if (page.contains(count++)) {
            json->open('{').member("orgId", tree.at(i).id).member("orgName", tree.at(i).name);
            json->member("parentOrgId", tree.at(i).parentId);
            json->member("fullName", tree.fullName(i)).close('}');
        }
    }
    return count;
}

Reply search(const Call &call, const People &people, const PeopleIndex &index, const OrgTree &tree)
{
    const std::optional<User> caller = people.find(call.caller.uid);
    if (!caller || !caller->mayReadOrganisation)
        return Reply::ofStatus(403);
    const QString piece = call.form.text("searchText").trimmed();
    const bool containOrg = call.form.flag("containOrg");
    const qint64 size = call.form.number("pageSize", 1, LargestPage);
    const Page page{(call.form.number("pageNo", 1, LastPage) - 1) * size, size};

    const std::vector<int> found = index.find(piece);
    std::string text;
    JsonText json(&text);
    json.open('{').member("code", ReplyCode::Done).open("data", '{').open("userList", '[');
    for (qint64 i = page.first; i < page.first + size && i < qint64(found.size()); ++i)
        writeUser(&json, index.user(found.at(size_t(i))), people);
    json.close(']').open("orgList", '[');
    const qint64 departments =
        containOrg && !piece.isEmpty() ? writeDepartments(&json, tree, piece, page) : 0;
    json.close(']').member("count", departments).member("userCount", qint64(found.size()));
    json.close('}').close('}');
    return Reply::text(std::move(text));
}

} // namespace

void addPeopleSearch(Services *services, BackEndContext &context,
                     const std::shared_ptr<const PeopleIndex> &index)
{
    const auto tree = std::make_shared<const OrgTree>(context.people);
    services->post("/center/org/fuzzySearchOrg.do", Services::Organisation,
                   [&context, index, tree](const Call &call) {
                       return search(call, context.people, *index, *tree);
                   });
}
