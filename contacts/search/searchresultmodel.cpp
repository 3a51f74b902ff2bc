#include "contacts/search/searchresultmodel.h"

#include "common/context.h"
#include "common/displaytext.h"
#include "common/externalpeople.h"
#include "controls/outsidemark.h"
#include "controls/presencetext.h"
#include "http/fileservices.h"

#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

// Deeper than any organisation; also ends a circle of departments.
constexpr int MaximumDepth = 64;

QString separator()
{
    return QStringLiteral(" · ");
}

void add(const MarkedText &part, MarkedText *line)
{
    if (part.text.isEmpty())
        return;
    if (!line->text.isEmpty())
        line->text += separator();
    for (const SearchMark &mark : part.marks)
        line->marks.append({line->text.size() + mark.first, mark.second});
    line->text += part.text;
}

// Of several numbers the one that has the mark.
MarkedText oneNumber(const MarkedText &phones)
{
    if (phones.marks.isEmpty())
        return {};
    const SearchMark mark = phones.marks.first();
    const int begin = phones.text.lastIndexOf(QLatin1Char(';'), mark.first) + 1;
    const int end = phones.text.indexOf(QLatin1Char(';'), mark.first);
    const QString number = phones.text.mid(begin, end < 0 ? -1 : end - begin);
    // What had to be changed to be shown has its signs elsewhere.
    const QString shown = displayText(number);
    if (shown != number)
        return {shown, {{0, shown.size()}}};
    return {number, {{mark.first - begin, mark.second}}};
}

QString shownName(const SearchEntry &entry)
{
    for (const QString &name : {entry.remark, entry.name, entry.account}) {
        const QString shown = displayText(name);
        if (!shown.isEmpty())
            return shown;
    }
    return displayText(jidUser(entry.id));
}

} // namespace

SearchResultModel::SearchResultModel(const SearchIndex *index, QObject *parent)
    : QAbstractListModel(parent), m_index(index)
{
}

// --- Rows ------------------------------------------------------------------------

QVector<SearchResult> SearchResultModel::taken(const QVector<SearchResult> &results)
{
    QVector<SearchResult> added;
    for (const SearchResult &result : results) {
        const Key key = keyOf(result.entry);
        if (result.entry.id.isEmpty() && result.entry.kind == SearchEntry::Person)
            continue;
        const auto row = m_rows.constFind(key);
        if (row == m_rows.constEnd()) {
            m_rows.insert(key, m_results.size() + added.size());
            added.append(result);
            ++m_namesakes[shownName(result.entry)];
            continue;
        }
        // One of the same batch has told it already.
        if (*row >= m_results.size() || !result.isTold)
            continue;
        SearchResult &known = m_results[*row];
        known.place = result.place;
        known.photoName = result.photoName;
        known.presence = result.presence;
        known.isTold = true;
    }
    return added;
}

void SearchResultModel::setResults(const QString &typed, const QVector<SearchResult> &results)
{
    beginResetModel();
    m_typed = typed;
    m_words.clear();
    const QStringList words = typed.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &word : words)
        m_words.emplace_back(word);
    m_results.clear();
    m_rows.clear();
    m_namesakes.clear();
    m_shown.clear();
    m_results = taken(results);
    m_shown.resize(size_t(m_results.size()));
    endResetModel();
}

void SearchResultModel::append(const QVector<SearchResult> &results)
{
    const QVector<SearchResult> added = taken(results);
    if (!added.isEmpty()) {
        beginInsertRows(QModelIndex(), m_results.size(), m_results.size() + added.size() - 1);
        m_results += added;
        m_shown.resize(size_t(m_results.size()));
        endInsertRows();
    }
    // Another of the same name, or news of one that has a row.
    showAnew();
}

bool SearchResultModel::renew(const QVector<SearchResult> &local)
{
    for (int row = 0; row < m_results.size(); ++row) {
        const bool stays = row < local.size()
                               ? keyOf(local.at(row).entry) == keyOf(m_results.at(row).entry)
                               : m_results.at(row).isTold;
        if (!stays)
            return false;
    }
    if (local.size() > m_results.size())
        return false;
    m_namesakes.clear();
    for (int row = 0; row < m_results.size(); ++row) {
        if (row < local.size())
            m_results[row].entry = local.at(row).entry;
        ++m_namesakes[shownName(m_results.at(row).entry)];
    }
    showAnew();
    return true;
}

void SearchResultModel::showAnew()
{
    if (m_results.isEmpty())
        return;
    std::fill(m_shown.begin(), m_shown.end(), std::nullopt);
    emit dataChanged(index(0), index(m_results.size() - 1));
}

int SearchResultModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : m_results.size();
}

QVariant SearchResultModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= m_results.size())
        return QVariant();
    const SearchResult &result = m_results.at(index.row());
    switch (role) {
    case Qt::DisplayRole:
    case SearchRole::Name:
        return shown(index.row()).name.text;
    case SearchRole::Id:
        return result.entry.id;
    case SearchRole::Kind:
        return result.entry.kind;
    case SearchRole::Second: {
        MarkedText line = shown(index.row()).second;
        add({shown(index.row()).place, {}}, &line);
        return line.text;
    }
    case Qt::ToolTipRole:
        return toolTipText(
            data(index, SearchRole::Name).toString() + QLatin1Char('\n') +
            (shown(index.row()).isOutside ? outsideText() + QLatin1Char('\n') : QString()) +
            data(index, SearchRole::Second).toString());
    case Qt::AccessibleTextRole: {
        QStringList parts{shown(index.row()).name.text};
        if (shown(index.row()).isOutside)
            parts.append(outsideText());
        if (shown(index.row()).hasPresence)
            parts.append(presenceText(shown(index.row()).presence));
        parts.append(data(index, SearchRole::Second).toString());
        return parts.join(QStringLiteral(", "));
    }
    default:
        return QVariant();
    }
}

// --- What a row shows ------------------------------------------------------------

const SearchResultModel::Shown &SearchResultModel::shown(int row) const
{
    std::optional<Shown> &shown = m_shown.at(size_t(row));
    if (!shown)
        shown = work(m_results.at(row));
    return *shown;
}

QString SearchResultModel::kindText(SearchEntry::Kind kind)
{
    switch (kind) {
    case SearchEntry::Person:
        return QObject::tr("kindPerson");
    case SearchEntry::Room:
        return QObject::tr("kindRoom");
    case SearchEntry::Group:
        return QObject::tr("kindGroup");
    case SearchEntry::Department:
        return QObject::tr("kindDepartment");
    case SearchEntry::Team:
        return QObject::tr("kindTeam");
    case SearchEntry::ServiceNumber:
        return QObject::tr("kindServiceNumber");
    case SearchEntry::Channel:
        return QObject::tr("kindChannel");
    }
    return QString();
}

SearchResultModel::Shown SearchResultModel::work(const SearchResult &result) const
{
    const SearchEntry &entry = result.entry;
    Shown shown;
    shown.name = marked(shownName(entry), SearchHit::Name);
    if (entry.kind != SearchEntry::Person)
        add({kindText(entry.kind), {}}, &shown.second);
    else if (entry.hasLeft)
        add({QObject::tr("hasLeft"), {}}, &shown.second);
    addMatch(entry, shown.name.text, &shown.second);
    // The service also finds what stands in the middle of a word.
    if (result.isTold && shown.name.marks.isEmpty() && shown.second.marks.isEmpty()) {
        const int at = shown.name.text.indexOf(m_typed, 0, Qt::CaseInsensitive);
        if (at >= 0)
            shown.name.marks.append({at, m_typed.size()});
    }
    if (m_namesakes.value(shown.name.text) > 1)
        addIdentity(entry, &shown.second);
    switch (entry.kind) {
    case SearchEntry::Person:
        addPerson(result, &shown);
        break;
    case SearchEntry::Department:
        shown.place = place(result, VcardInfo());
        break;
    case SearchEntry::Room: {
        MucData room;
        if (ctx().mucData(entry.id, &room))
            shown.picture = ctx().headPath(room.headImage);
        break;
    }
    case SearchEntry::Group:
    case SearchEntry::Team:
    case SearchEntry::ServiceNumber:
    case SearchEntry::Channel:
        break;
    }
    return shown;
}

MarkedText SearchResultModel::marked(const QString &text, SearchHit::Field field) const
{
    MarkedText line{text, {}};
    const QVector<TextMatch> matches = searchHighlights(m_typed, text, field);
    for (const TextMatch &match : matches)
        line.marks.append({match.start, match.length});
    return line;
}

// What the words were found in that the name does not have.
void SearchResultModel::addMatch(const SearchEntry &entry, const QString &name,
                                 MarkedText *line) const
{
    struct Candidate
    {
        QString SearchEntry::*text;
        SearchHit::Field field;
    };
    constexpr Candidate candidates[] = {{&SearchEntry::name, SearchHit::Name},
                                        {&SearchEntry::account, SearchHit::Account},
                                        {&SearchEntry::employeeCode, SearchHit::EmployeeCode},
                                        {&SearchEntry::mail, SearchHit::Mail},
                                        {&SearchEntry::phones, SearchHit::Phones}};
    std::vector<int> missing(m_words.size());
    std::iota(missing.begin(), missing.end(), 0);
    strike(name, &missing);
    for (const Candidate &candidate : candidates) {
        if (missing.empty())
            return;
        const QString &text = entry.*candidate.text;
        const bool isPhone = candidate.field == SearchHit::Phones;
        const MarkedText found = isPhone ? oneNumber(marked(text, candidate.field))
                                         : marked(displayText(text), candidate.field);
        const size_t before = missing.size();
        if (!isPhone)
            strike(found.text, &missing);
        if (!found.marks.isEmpty() && (isPhone || missing.size() < before))
            add(found, line);
    }
}

void SearchResultModel::strike(const QString &text, std::vector<int> *missing) const
{
    const auto isThere = [&](int word) {
        return m_words.at(size_t(word)).match(text).kind != TextMatch::None;
    };
    // Typed with blanks between its syllables, a name is found as a whole.
    if (TextPattern(m_typed).match(text).kind != TextMatch::None)
        missing->clear();
    missing->erase(std::remove_if(missing->begin(), missing->end(), isThere), missing->end());
}

// What tells namesakes apart.
void SearchResultModel::addIdentity(const SearchEntry &entry, MarkedText *line) const
{
    QString identity;
    if (entry.kind == SearchEntry::Person)
        identity = entry.employeeCode.isEmpty() ? entry.account : entry.employeeCode;
    else if (entry.kind != SearchEntry::Department && entry.kind != SearchEntry::Group)
        identity = jidUser(entry.id);
    identity = displayText(identity);
    if (!line->text.split(separator()).contains(identity))
        add({identity, {}}, line);
}

QString SearchResultModel::place(const SearchResult &result, const VcardInfo &profile) const
{
    QStringList names;
    QSet<QString> seen;
    QString id = result.entry.placeId;
    while (!id.isEmpty() && names.size() < MaximumDepth && !seen.contains(id)) {
        seen.insert(id);
        const SearchEntry *department = m_index->find(SearchEntry::Department, id);
        if (!department)
            break;
        names.prepend(displayText(department->name));
        id = department->placeId;
    }
    if (!names.isEmpty())
        return names.join(QStringLiteral(" / "));
    if (!result.place.isEmpty())
        return displayText(result.place);
    return displayText(profile.orgName.isEmpty() ? profile.duty : profile.orgName);
}

void SearchResultModel::addPerson(const SearchResult &result, Shown *shown) const
{
    VcardInfo profile;
    ctx().vcard(result.entry.id, &profile);
    shown->place = place(result, profile);
    shown->isOutside = isExternal(result.entry.id);
    const QString photo = result.photoName.isEmpty() ? profile.photoName : result.photoName;
    shown->picture = PictureFiles::instance().ofPerson(result.entry.id, photo);
    if (!isOnline())
        return;
    shown->presence = ctx().presence(result.entry.id);
    if (!shown->presence.isOnline() && !result.entry.isContact)
        shown->presence = result.presence;
    shown->hasPresence = result.entry.isContact || result.isTold || shown->presence.isOnline();
}
