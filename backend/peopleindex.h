// Finds people of the company by a piece of their name, its Latin letters, account,
// id, employee code, mobile number or mail address.
#pragma once

#include <QString>

#include <cstdint>
#include <future>
#include <string>
#include <vector>

class People;
struct User;

class PeopleIndex
{
public:
    // Begins to read the people, on a thread of its own; `people` outlives the index.
    explicit PeopleIndex(const People &people);

    // Numbers of the people who match, lowest first. Letters match in both cases.
    // An empty piece matches nobody. Waits for the reading.
    std::vector<int> find(const QString &piece) const;
    // The same for a piece of the name, `most` of them.
    std::vector<int> findName(const QString &piece, int most) const;
    // Of whom one of these, but the name, is the text.
    std::vector<int> findWhole(const QString &text, int most) const;
    User user(int number) const;

private:
    struct Text
    {
        std::string all;          // one paragraph for each person
        std::vector<size_t> ends; // of the paragraphs
    };
    static Text read(const People &people);
    // `wanted` with '\n' is only meant for the edges of fields. `take` decides about the
    // first place in somebody's paragraph, which begins at `begin`.
    using Take = bool (*)(const Text &text, size_t begin, size_t at);
    std::vector<int> search(const std::string &wanted, size_t most, Take take) const;

    const People &m_people;
    std::shared_future<Text> m_text;
};
