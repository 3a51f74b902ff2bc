#include "backend/routes/teamcall.h"

#include "backend/context.h"

#include <limits>

namespace {
constexpr qint64 LargestId = std::numeric_limits<qint64>::max();

std::string pathOf(const std::string &name)
{
    return "/center/vt/" + name + ".do";
}

RuleCall::Work asCaller(const Call &call, BackEndContext &context, const TeamHandler &handler)
{
    return [&](Transaction &transaction) {
        Teams teams(transaction, context.people, call.caller.uid);
        return handler(call, teams);
    };
}
} // namespace

void addTeamReading(Services *services, BackEndContext &context, const std::string &name,
                    const TeamHandler &handler)
{
    services->post(pathOf(name), Services::LoggedIn, [&context, handler](const Call &call) {
        return RuleCall::reading(context, asCaller(call, context, handler));
    });
}

void addTeamChange(Services *services, BackEndContext &context, const std::string &name,
                   const TeamHandler &handler)
{
    addTeamChangeAt(services, context, pathOf(name), handler);
}

void addTeamChangeAt(Services *services, BackEndContext &context, const std::string &path,
                     const TeamHandler &handler)
{
    services->post(path, Services::LoggedIn, [&context, handler](const Call &call) {
        return RuleCall::change(context, asCaller(call, context, handler));
    });
}

qint64 TeamField::team(const Call &call)
{
    return call.form.number("vtId", 1, LargestId);
}

qint64 TeamField::group(const Call &call, const char *name)
{
    if (!call.form.has(name))
        throw IllegalField(name);
    return call.form.text(name).isEmpty() ? 0 : call.form.number(name, 0, LargestId);
}

QStringList TeamField::people(const Call &call, bool mayBeEmpty)
{
    constexpr char name[] = "members";
    if (!call.form.has(name))
        throw IllegalField(name);
    const QString text = call.form.text(name);
    if (text.isEmpty() && mayBeEmpty)
        return {};
    QStringList uids = text.split(QLatin1Char(','));
    if (uids.size() > TeamLimit::Ids || uids.contains(QString()))
        throw IllegalField(name);
    uids.removeDuplicates();
    return uids;
}
