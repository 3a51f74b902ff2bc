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

std::vector<int> PeopleIndex::find(const QString &piece) const
{
    std::vector<int> found;
    const std::string wanted = piece.toLower().toStdString();
    if (wanted.empty() || wanted.find('\n') != std::string::npos)
        return found;
    const Text &text = m_text.get();
    for (size_t at = text.all.find(wanted); at != std::string::npos;) {
        const auto end = std::upper_bound(text.ends.begin(), text.ends.end(), at);
        found.push_back(int(end - text.ends.begin()));
        at = text.all.find(wanted, *end);
    }
    return found;
}

User PeopleIndex::user(int number) const
{
    return userAt(m_people, number);
}
