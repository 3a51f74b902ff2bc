// A team of 5,000 members in 200 sub-groups: the opening of its levels, a refresh after
// one change, and the presence of all at once.
#include "bench/support/baremodel.h"
#include "bench/support/ratio.h"
#include "common/displaytext.h"
#include "http/jsonreader.h"
#include "tests/support/fakecontext.h"
#include "virtualteam/cvirtualteamtreeview.h"
#include "virtualteam/teamrecordreader.h"
#include "virtualteam/teamtreemodel.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <json/reader.h>

#include <memory>
#include <vector>

namespace {

constexpr int Groups = 200;
constexpr int GroupSize = 25;
constexpr int Members = Groups * GroupSize;
const QString team = QStringLiteral("1001");

QString groupId(int group)
{
    return QString::number(5000 + group);
}

// In the order of no list.
QString userId(int number)
{
    return QStringLiteral("u%1").arg(number * 7919LL % 1000003, 6, 10, QLatin1Char('0'));
}

QJsonObject memberJson(int number)
{
    return {
        {QStringLiteral("userId"), userId(number)},
        {QStringLiteral("nickName"), QString::fromUtf8("成员 %1").arg(number * 31 % Members)},
        {QStringLiteral("photoName"), QString()},
        {QStringLiteral("companyCode"), number % 5 ? QStringLiteral("C1") : QStringLiteral("C2")},
        {QStringLiteral("duty"), QString::fromUtf8("高级工程师")},
        {QStringLiteral("role"), number % 50 ? 0 : 1},
        {QStringLiteral("presence"), QJsonObject{{QStringLiteral("av"), number % 3 == 0},
                                                 {QStringLiteral("show"), QStringLiteral("away")},
                                                 {QStringLiteral("pt"), QStringLiteral("pc")},
                                                 {QStringLiteral("rsc"), QStringLiteral("pc")}}}};
}

QByteArray levelReply(const QJsonArray &groups, const QJsonArray &members)
{
    const QJsonObject data{{QStringLiteral("group"), groups}, {QStringLiteral("members"), members}};
    return QJsonDocument(QJsonObject{{QStringLiteral("code"), 0}, {QStringLiteral("data"), data}})
        .toJson(QJsonDocument::Compact);
}

struct Level
{
    QString groupId;
    QByteArray reply;
};

// The team's own level first.
const std::vector<Level> &levels()
{
    static const auto *all = [] {
        auto *made = new std::vector<Level>;
        QJsonArray groups;
        for (int group = 0; group < Groups; ++group)
            groups.append(
                QJsonObject{{QStringLiteral("groupId"), groupId(group)},
                            {QStringLiteral("groupName"), QStringLiteral("Group %1").arg(group)}});
        made->push_back({rootGroupId(), levelReply(groups, {})});
        for (int group = 0; group < Groups; ++group) {
            QJsonArray members;
            for (int i = 0; i < GroupSize; ++i)
                members.append(memberJson(group * GroupSize + i));
            made->push_back({groupId(group), levelReply({}, members)});
        }
        return made;
    }();
    return *all;
}

struct Records
{
    QString groupId;
    QList<CVirtualTeamSimpleInfo> groups;
    QList<CVirtualTeamMemberInfo> members;
};

// As the operation does it.
Records read(const Level &level)
{
    Json::Value root;
    JsonReader::parse(level.reply, &root);
    const Json::Value &data = root["data"];
    return {level.groupId, TeamRecordReader::groups(data), TeamRecordReader::members(data)};
}

// As the page does it.
void take(TeamTreeModel *model, const Records &records)
{
    model->setLevel(team, records.groupId, records.groups, records.members);
}

void take(TeamTreeModel *model, const Level &level)
{
    take(model, read(level));
}

struct ShownTeam
{
    ShownTeam() : scope(&host)
    {
        host.company = QStringLiteral("C1");
        CVirtualTeamSimpleInfo info;
        info.vtId = team;
        info.vtName = QStringLiteral("Team");
        view.teams()->setTeams({info});
        view.resize(360, 640);
        view.show();
        view.setExpanded(view.teams()->teamIndex(team), true);
        QApplication::processEvents();
    }
    // Each group open, and on screen that it is loading.
    void open()
    {
        take(view.teams(), levels().front());
        for (int group = 0; group < Groups; ++group)
            view.setExpanded(view.teams()->groupIndex(team, groupId(group)), true);
        QApplication::processEvents();
    }
    void fill()
    {
        open();
        for (size_t i = 1; i < levels().size(); ++i)
            take(view.teams(), levels()[i]);
        QApplication::processEvents();
    }

    FakeContext host;
    const HostContextScope scope;
    CVirtualTeamTreeView view;
};

// Lays out what has come; painting costs what a row shows, in any model.
void layOut(QTreeView *view)
{
    view->visualRect(view->model()->index(0, 0));
}

// The levels of the groups one after the other, each laid out.
double openOurs()
{
    ShownTeam shown;
    shown.open();
    return Ratio::cpuPerUnit(Members, [&] {
        for (size_t i = 1; i < levels().size(); ++i) {
            take(shown.view.teams(), levels()[i]);
            layOut(&shown.view);
        }
    });
}

double openBare()
{
    ShownBareModel shown;
    return Ratio::cpuPerUnit(Members, [&] {
        for (size_t i = 1; i < levels().size(); ++i) {
            const QByteArray &reply = levels()[i].reply;
            Json::Value root;
            Json::CharReaderBuilder builder;
            const std::unique_ptr<Json::CharReader> reader(builder.newCharReader());
            reader->parse(reply.constData(), reply.constData() + reply.size(), &root, nullptr);
            for (const Json::Value &entry : root["data"]["members"])
                shown.model.append(QString::fromStdString(entry["nickName"].asString()));
            layOut(&shown.view);
        }
    });
}

// --- Refresh ----------------------------------------------------------------------

std::vector<Records> allRecords()
{
    std::vector<Records> all;
    for (const Level &level : levels())
        all.push_back(read(level));
    return all;
}

// A member of the tenth group has another post.
std::vector<Records> changedRecords()
{
    std::vector<Records> changed = allRecords();
    changed[10].members.first().duty = QString::fromUtf8("总监");
    return changed;
}

double refresh()
{
    ShownTeam shown;
    shown.fill();
    const std::vector<Records> changed = changedRecords();
    return Ratio::cpuPerUnit(Members, [&] {
        for (const Records &records : changed)
            take(shown.view.teams(), records);
        layOut(&shown.view);
    });
}

double firstFill()
{
    ShownTeam shown;
    shown.open();
    const std::vector<Records> all = allRecords();
    return Ratio::cpuPerUnit(Members, [&] {
        for (const Records &records : all)
            take(shown.view.teams(), records);
        layOut(&shown.view);
    });
}

// How often a model tells its views of anything.
class Steps : public QObject
{
public:
    explicit Steps(const QAbstractItemModel *model)
    {
        using Model = QAbstractItemModel;
        const auto count = [this] { ++all; };
        connect(model, &Model::rowsInserted, this, count);
        connect(model, &Model::rowsRemoved, this, count);
        connect(model, &Model::rowsMoved, this, count);
        connect(model, &Model::modelReset, this, count);
        connect(model, &Model::dataChanged, this, count);
        connect(model, &Model::layoutChanged, this, [this] {
            ++all;
            ++layouts;
        });
    }

    int all = 0;
    int layouts = 0;
};

double stepsOfRefresh()
{
    ShownTeam shown;
    shown.fill();
    const Steps steps(shown.view.teams());
    for (const Records &records : changedRecords())
        take(shown.view.teams(), records);
    return steps.all;
}

// --- Presence ---------------------------------------------------------------------

QMap<QString, PresenceData> presenceOfAll(PresenceData::ePcShowType show)
{
    QMap<QString, PresenceData> all;
    for (int i = 0; i < Members; ++i)
        all[userId(i) + QStringLiteral("@corp.example")].pcShow = show;
    return all;
}

double presenceOurs()
{
    ShownTeam shown;
    shown.fill();
    const auto all = presenceOfAll(PresenceData::Available);
    return Ratio::cpuPerUnit(Members, [&] {
        shown.view.teams()->setPresence(all);
        QApplication::processEvents();
    });
}

// Finds the row of each and tells of its change; nothing has a place to keep.
class BarePresence : public BareModel
{
public:
    void add(const QString &jid)
    {
        m_rows.insert(jid, rowCount());
        m_presence.emplace_back();
        append(jid);
    }
    void change(const QString &jid, const PresenceData &presence)
    {
        const int row = m_rows.value(jid);
        m_presence[size_t(row)] = presence;
        emit dataChanged(index(row), index(row));
    }

private:
    QHash<QString, int> m_rows;
    std::vector<PresenceData> m_presence;
};

double presenceBare()
{
    BarePresence model;
    QTreeView view;
    view.setUniformRowHeights(true);
    view.setModel(&model);
    view.resize(360, 640);
    view.show();
    const auto all = presenceOfAll(PresenceData::Available);
    for (int i = 0; i < Members; ++i)
        model.add(userId(i) + QStringLiteral("@corp.example"));
    QApplication::processEvents();
    return Ratio::cpuPerUnit(Members, [&] {
        for (auto at = all.constBegin(); at != all.constEnd(); ++at)
            model.change(at.key(), at.value());
        QApplication::processEvents();
    });
}

class Paints : public QObject
{
public:
    explicit Paints(QWidget *widget) { widget->installEventFilter(this); }
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
    int count = 0;
};

double repaintsOfPresence()
{
    ShownTeam shown;
    shown.fill();
    Paints paints(shown.view.viewport());
    shown.view.teams()->setPresence(presenceOfAll(PresenceData::Available));
    QApplication::processEvents();
    return paints.count;
}

// Nobody's reachability changes.
double layoutsOfPresence()
{
    ShownTeam shown;
    shown.fill();
    shown.view.teams()->setPresence(presenceOfAll(PresenceData::Available));
    const Steps steps(shown.view.teams());
    shown.view.teams()->setPresence(presenceOfAll(PresenceData::DoNotDisturb));
    return steps.layouts;
}

Ratio::Pair counted(double (*count)())
{
    return {count, {}};
}

const bool registered[] = {
    Ratio::add({"Team of 5,000 in 200 sub-groups, from each level's reply to its rows, jsoncpp and "
                "a bare model",
                "member", Ratio::atMostTimes(1.5)},
               [] {
                   levels();
                   return Ratio::Pair{openOurs, openBare};
               }),
    Ratio::add({"The same team loaded again, one member changed, and loaded first", "member",
                Ratio::atMostTimes(0.8)},
               [] {
                   return Ratio::Pair{refresh, firstFill};
               }),
    Ratio::add(
        {"What views are told of that one change", "refresh", Ratio::atMost(1), "signals", 1},
        [] { return counted(stepsOfRefresh); }),
    Ratio::add(
        {"Presence of 5,000 members at once, bare rows that are found by their id and tell of it",
         "member", Ratio::atMostTimes(1)},
        [] {
            return Ratio::Pair{presenceOurs, presenceBare};
        }),
    Ratio::add({"Repaints for the presence of 5,000", "batch", Ratio::atMost(1), "repaints", 1},
               [] { return counted(repaintsOfPresence); }),
    Ratio::add({"Orders made anew for the presence of 5,000 who stay reachable", "batch",
                Ratio::atMost(0), "layouts", 1},
               [] { return counted(layoutsOfPresence); }),
};

} // namespace
