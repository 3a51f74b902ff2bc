#include "backend/peopleindex.h"

#include "backend/people.h"

#include <algorithm>

namespace {
User userAt(const People &people, int number)
{
    const int inCompany = people.company().people();
    return number < inCompany ? people.employee(number)
                              : people.largeDepartmentEmployee(number - inCompany);
}

// As the text has it; empty: nothing is like that.
std::string searchable(const QString &piece)
{
    return piece.contains(QLatin1Char('\n')) ? std::string() : piece.toLower().toStdString();
}
} // namespace

PeopleIndex::PeopleIndex(const People &people)
    : m_people(people), m_text(std::async(std::launch::async, [&people] { return read(people); }))
{
}

PeopleIndex::Text PeopleIndex::read(const People &people)
{
    Text text;
    const int count = people.company().people() + people.departmentSize();
    text.ends.reserve(size_t(count));
    for (int i = 0; i < count; ++i) {
        const User user = userAt(people, i);
        const QStringList fields{user.name,         user.spell,  user.account, user.uid,
                                 user.employeeCode, user.mobile, user.email};
        text.all += fields.join(QLatin1Char('\n')).toLower().toStdString();
        text.all += '\n';
        text.ends.push_back(text.all.size());
    }
    return text;
}

std::vector<int> PeopleIndex::search(const std::string &wanted, size_t most, Take take) const
{
    std::vector<int> found;
    const Text &text = m_text.get();
    for (size_t at = text.all.find(wanted); at != std::string::npos && found.size() < most;) {
        const auto end = std::upper_bound(text.ends.begin(), text.ends.end(), at);
        if (take(text, end == text.ends.begin() ? 0 : *(end - 1), at))
            found.push_back(int(end - text.ends.begin()));
        at = text.all.find(wanted, *end);
    }
    return found;
}

std::vector<int> PeopleIndex::find(const QString &piece) const
{
    const std::string wanted = searchable(piece);
    if (wanted.empty())
        return {};
    return search(wanted, SIZE_MAX, [](const Text &, size_t, size_t) { return true; });
}

std::vector<int> PeopleIndex::findName(const QString &piece, int most) const
{
    const std::string wanted = searchable(piece);
    if (wanted.empty())
        return {};
    return search(wanted, size_t(most), [](const Text &text, size_t begin, size_t at) {
        return at < text.all.find('\n', begin);
    });
}

std::vector<int> PeopleIndex::findWhole(const QString &text, int most) const
{
    const std::string wanted = searchable(text);
    if (wanted.empty())
        return {};
    return search('\n' + wanted + '\n', size_t(most),
                  [](const Text &, size_t, size_t) { return true; });
}

User PeopleIndex::user(int number) const
{
    return userAt(m_people, number);
}
