#include "servicenum/servicenummodel.h"

#include "controls/avatarstore.h"
#include "controls/markedline.h"
#include "servicenum/servicenumbers.h"
#include "servicenum/servicenumroles.h"
#include "servicenum/servicetexts.h"

#include <QSet>

namespace {
// Beyond so many rows that go at once a new list is cheaper.
constexpr int MostSingleRemovals = 100;
} // namespace

ServiceNumModel::ServiceNumModel(QObject *parent) : ServiceRows(parent)
{
    const ServiceNumbers *numbers = &ServiceNumbers::instance();
    connect(numbers, &ServiceNumbers::changed, this, &ServiceNumModel::takeAnew);
    connect(numbers, &ServiceNumbers::iconReady, this,
            [this](const QString &code, const QString &file) {
                AvatarStore::instance().refresh(file);
                takeAnew(code);
            });
}

// --- Which rows there are ------------------------------------------------------------

void ServiceNumModel::setNumbers(const QList<CServiceNumData> &numbers)
{
    QSet<QString> there;
    QVector<ServiceRow> rows;
    rows.reserve(numbers.size());
    for (const CServiceNumData &number : numbers) {
        if (number.code.isEmpty() || there.contains(number.code))
            continue;
        there.insert(number.code);
        rows.append({number, rows.size()});
    }
    QStringList gone;
    forEach([&](const ServiceRow &row) {
        if (!there.contains(row.number.code))
            gone.append(row.number.code);
    });
    if (gone.size() == recordCount() || gone.size() > MostSingleRemovals)
        clear();
    else
        for (const QString &code : qAsConst(gone))
            remove(code);
    putAll(rows);
}

void ServiceNumModel::setFilter(const QString &text)
{
    m_filter = TextPattern(text.simplified());
    rebuild();
}

bool ServiceNumModel::isShown(const ServiceRow &row) const
{
    return m_filter.isEmpty() ||
           m_filter.match(ServiceTexts::name(row.number)).kind != TextMatch::None;
}

void ServiceNumModel::setSearched(const QString &text)
{
    m_searched = text;
    retranslate();
}

void ServiceNumModel::takeAnew(const QString &code)
{
    const CServiceNumData *known = ServiceNumbers::instance().find(code);
    if (known && find(code))
        change(code, [known](ServiceRow &row) { row.number = *known; });
}

// --- What a row tells ----------------------------------------------------------------

QVariant ServiceNumModel::markedName(const CServiceNumData &number) const
{
    const QString name = ServiceTexts::name(number);
    SearchMarks marks;
    const int at = m_searched.isEmpty() ? -1 : name.indexOf(m_searched, 0, Qt::CaseInsensitive);
    if (at >= 0) {
        marks.append({at, m_searched.size()});
    } else if (!m_filter.isEmpty()) {
        const TextMatch match = m_filter.match(name);
        if (match.kind != TextMatch::None)
            marks.append({match.start, match.length});
    }
    return QVariant::fromValue(MarkedText{name, marks});
}

QVariant ServiceNumModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    const CServiceNumData &number = at(index.row()).number;
    ServiceNumbers &numbers = ServiceNumbers::instance();
    switch (role) {
    case Qt::DisplayRole:
    case ServiceRole::Name:
        return ServiceTexts::name(number);
    case ServiceRole::Id:
        return number.code;
    case ServiceRole::Picture:
        return numbers.icon(number.code);
    case ServiceRole::State:
        return numbers.isSubscribed(number.code);
    case ServiceRole::Busy:
        return numbers.isBusy(number.code);
    case ServiceRole::SortKey:
        return index.row();
    case ServiceRole::Second:
        return ServiceTexts::line(number);
    case ServiceRole::MarkedName:
        return markedName(number);
    case Qt::ToolTipRole:
        return ServiceTexts::toolTip(number);
    case Qt::AccessibleTextRole:
        return ServiceTexts::spoken(number, numbers.isSubscribed(number.code),
                                    numbers.isBusy(number.code));
    default:
        return QVariant();
    }
}

void ServiceNumModel::retranslate()
{
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1));
}
