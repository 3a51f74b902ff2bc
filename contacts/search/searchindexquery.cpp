#include "contacts/search/searchindexquery.h"

#include <algorithm>

namespace {
constexpr int LeastWholeNumber = 7; // digits of a number without its area or country
constexpr int LongestCountry = 3;   // digits of its code

const QString SearchEntry::*const fields[] = {&SearchEntry::name,    &SearchEntry::remark,
                                              &SearchEntry::account, &SearchEntry::employeeCode,
                                              &SearchEntry::mail,    &SearchEntry::phones};

SearchHit::Rank rankOf(TextMatch::Kind kind)
{
    switch (kind) {
    case TextMatch::Exact:
        return SearchHit::Exact;
    case TextMatch::Prefix:
        return SearchHit::Prefix;
    case TextMatch::Initials:
        return SearchHit::Initials;
    case TextMatch::Word:
    case TextMatch::Inside:
    case TextMatch::None:
        break;
    }
    return SearchHit::Inside;
}

QStringList wordsOf(const QString &typed)
{
    QStringList words;
    const QString counted = typed.trimmed().left(TextPattern::MaximumLength).simplified();
    for (const QString &word : counted.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        if (!TextPattern(word).isEmpty())
            words.append(word);
    }
    return words;
}

int digitOf(QChar c)
{
    const ushort unit = c.unicode();
    if (unit < 0x80)
        return unit >= '0' && unit <= '9' ? unit - '0' : -1;
    return c.digitValue();
}
} // namespace

PhonePattern::PhonePattern(const QString &typed)
{
    Places places[10] = {};
    int size = 0;
    for (const QChar c : typed) {
        if (const int digit = digitOf(c); digit >= 0 && size < MostDigits)
            places[digit] |= Places(1) << size++;
        else if (c.isLetter() || c.isSurrogate() || c == QLatin1Char('@'))
            return;
    }
    if (size < FewestDigits)
        return;
    std::copy(std::begin(places), std::end(places), std::begin(m_places));
    m_size = size;
    const QString begin = typed.trimmed();
    if (begin.startsWith(QLatin1Char('+')) || begin.startsWith(QChar(0xFF0B)))
        m_country = LongestCountry;
    else if ((places[0] & 3) == 3)
        m_country = 2 + LongestCountry;
}

void PhonePattern::read(int digit, int end, Number *number) const
{
    ++number->size;
    const Places last = Places(1) << (m_size - 1);
    const Places reached = number->next & m_places[digit];
    const Places reachedOfEnd = number->nextOfEnd & m_places[digit];
    number->next = reached << 1 | 1;
    number->nextOfEnd = reachedOfEnd << 1;
    number->isEnd = (reachedOfEnd & last) != 0;
    if (number->kind != TextMatch::None)
        return;
    if ((reached & last) != 0)
        number->matched = m_size;
    else if (number->isEnd && mayLackFront(number->size))
        number->matched = number->size;
    else
        return;
    number->kind = number->matched == number->size ? TextMatch::Prefix : TextMatch::Inside;
    number->end = end;
}

// Somebody may type the country or the area that the number leaves out.
bool PhonePattern::isWhole(const Number &number) const
{
    return number.isEnd &&
           (number.size == m_size || number.size >= LeastWholeNumber || mayLackFront(number.size));
}

TextMatch PhonePattern::match(const QString &phones) const
{
    TextMatch best;
    Number number;
    const auto endNumber = [&](int end) {
        if (isWhole(number)) {
            number.kind = TextMatch::Exact;
            number.matched = number.size;
            number.end = end;
        }
        if (number.kind > best.kind) {
            best.kind = number.kind;
            best.start = number.end;
            for (int left = number.matched; left > 0;)
                left -= digitOf(phones.at(--best.start)) >= 0;
            best.length = number.end - best.start;
        }
        number = Number();
    };
    int end = 0; // behind the last digit
    for (int i = 0; i < phones.size(); ++i) {
        if (phones.at(i) == QLatin1Char(';'))
            endNumber(end);
        else if (const int digit = digitOf(phones.at(i)); digit >= 0)
            read(digit, end = i + 1, &number);
    }
    endNumber(end);
    return best;
}

SearchQuery::Word::Word(const QString &typed) : text(typed), phone(typed)
{
    if (!text.isEmpty())
        mask = SearchMask(text.text());
}

TextMatch SearchQuery::Word::match(const QString &field, SearchHit::Field which) const
{
    if (which != SearchHit::Phones)
        return field.isEmpty() ? TextMatch() : text.match(field);
    return phone.isEmpty() ? TextMatch() : phone.match(field);
}

bool SearchQuery::Word::bestField(const Candidate &candidate, SearchHit *hit) const
{
    const SearchSignature &signature = candidate.signature;
    const bool mayBeText = this->mayBeText(signature.start | signature.inside, signature);
    TextMatch::Kind best = TextMatch::None;
    for (int i = mayBeText ? SearchHit::Name : SearchHit::Phones; i <= SearchHit::Phones; ++i) {
        if (best != TextMatch::None && rankOf(best) <= candidate.best)
            break;
        const auto field = SearchHit::Field(i);
        const TextMatch::Kind kind = match(candidate.entry.*fields[i], field).kind;
        if (kind > best) {
            best = kind;
            hit->field = field;
        }
    }
    hit->rank = rankOf(best);
    return best != TextMatch::None;
}

SearchQuery::SearchQuery(const QString &typed)
    : m_phrase(wordsOf(typed).join(QLatin1Char(' '))), m_first(wordsOf(typed).value(0))
{
    const QStringList words = wordsOf(typed);
    // Words may each be all of another field.
    m_wholeLength = SearchTraits::lengthBitOf(m_phrase.text.text());
    m_isAnyLength = words.size() > 1 || !m_phrase.phone.isEmpty() || m_wholeLength == 0;
    if (words.size() < 2)
        return;
    for (const QString &word : words) {
        m_words.emplace_back(word);
        m_allWords.beginning |= m_words.back().mask.beginning;
        m_allWords.chain.add(m_words.back().mask.chain);
    }
}

bool SearchQuery::mayAnswerByPhone(const SearchSignature &signature) const
{
    const quint64 bits = signature.start | signature.inside;
    return m_phrase.mayBePhone(signature) ||
           std::all_of(m_words.begin(), m_words.end(),
                       [&](const Word &word) { return word.mayBeIn(bits, signature); });
}

bool SearchQuery::answers(const Candidate &candidate, SearchHit *hit) const
{
    const bool asPhrase = m_phrase.bestField(candidate, hit);
    if (m_words.empty() || (asPhrase && hit->rank == SearchHit::Exact))
        return asPhrase;
    SearchHit byWords;
    const bool asWords = allWordsAnswer(candidate, &byWords);
    if (asWords && (!asPhrase || byWords.rank < hit->rank)) {
        hit->rank = byWords.rank;
        hit->field = byWords.field;
    }
    return asPhrase || asWords;
}

bool SearchQuery::answers(const SearchEntry &entry, SearchHit *hit) const
{
    return answers({entry, searchTraits(entry).signature, SearchHit::Exact}, hit);
}

// As good as the word that is found worst.
bool SearchQuery::allWordsAnswer(const Candidate &candidate, SearchHit *hit) const
{
    SearchHit::Rank best = SearchHit::Inside;
    hit->rank = SearchHit::Exact;
    for (const Word &word : m_words) {
        SearchHit one;
        if (!word.bestField(candidate, &one))
            return false;
        hit->rank = qMax(hit->rank, one.rank);
        if (&word == &m_words.front() || one.rank < best) {
            best = one.rank;
            hit->field = one.field;
        }
    }
    return true;
}

QVector<TextMatch> SearchQuery::highlights(const QString &text, SearchHit::Field field) const
{
    const TextMatch whole = m_phrase.match(text, field);
    if (whole.kind != TextMatch::None)
        return {whole};
    QVector<TextMatch> found;
    for (const Word &word : m_words) {
        const TextMatch match = word.match(text, field);
        if (match.kind != TextMatch::None)
            found.append(match);
    }
    std::sort(found.begin(), found.end(), [](const TextMatch &x, const TextMatch &y) {
        return x.start != y.start ? x.start < y.start : x.length > y.length;
    });
    int end = 0;
    const auto overlaps = [&end](const TextMatch &match) {
        const bool isInside = match.start < end;
        end = qMax(end, isInside ? end : match.start + match.length);
        return isInside;
    };
    found.erase(std::remove_if(found.begin(), found.end(), overlaps), found.end());
    return found;
}
