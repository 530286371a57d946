// SPDX-License-Identifier: MIT
// Search by words and numbers.
#include "perfis/catalogues/search.h"

#include <algorithm>
#include <limits>
#include <tuple>

#include "perfis/catalogues/number_fit.h"

namespace perfis {
namespace {

constexpr int kNoWordFit = -1;
constexpr std::size_t kNearest = 3;

bool isPair(std::wstring_view word) { return word.starts_with(L'2'); }

/// "u" also finds the "2u" of a pair.
int pairFit(std::wstring_view typed, std::wstring_view has) {
    return isPair(has) && has.substr(1).starts_with(typed) ? 2 : kNoWordFit;
}

int better(int a, int b) { return a == kNoWordFit || (b != kNoWordFit && b < a) ? b : a; }

/// What fits a part of the query comes only near; `why` is told first.
void keepNearest(SizeSearch::Found& found, std::wstring why) {
    found.rows.resize(std::min(found.rows.size(), kNearest));
    found.best = 0;
    found.difference = found.difference.empty() ? std::move(why) : why + L' ' + found.difference;
}

std::wstring quoted(const std::wstring& text) { return L'"' + text + L'"'; }

/// As the trade writes the form of a built-up, an ASCII letter or signs.
std::wstring inCapitals(std::wstring form) {
    for (wchar_t& c : form)
        if (c >= L'a' && c <= L'z') c = static_cast<wchar_t>(c - L'a' + L'A');
    return form;
}

/// Takes a size that was typed more than once out of the numbers but for the first time, and
/// returns it; else an empty text.
std::wstring takeRepeated(SizeNumbers& numbers) {
    for (std::size_t count = 2; 2 * count <= numbers.size(); ++count) {
        if (numbers.size() % count != 0) continue;
        const bool repeats = std::equal(
            numbers.begin() + static_cast<std::ptrdiff_t>(count), numbers.end(), numbers.begin(),
            [](const SizeNumber& a, const SizeNumber& b) { return isSame(a, b); });
        if (!repeats) continue;
        numbers.resize(count);
        std::wstring size;
        for (const SizeNumber& n : numbers) size += (size.empty() ? L"" : L"x") + n.typed;
        return size;
    }
    return {};
}

}  // namespace

bool asksNothing(std::wstring_view query) {
    const SizeText typed = readSize(query);
    return typed.numbers.empty() && std::ranges::all_of(typed.words, saysNothing);
}

void SizeSearch::add(const std::vector<std::wstring>& writings, double mass) {
    Row row;
    row.mass = mass;
    for (const std::wstring& writing : writings) {
        SizeText size = readSize(writing);
        if (!size.words.empty() && isCaixa(size.words.front())) {
            row.outside = std::move(size.numbers);
            continue;
        }
        if (size.words.size() == 1 && isMaking(size.words.front())) {
            row.forms.push_back(std::move(size.words.front()));
            continue;
        }
        const auto pair = std::ranges::find_if(size.words, isPair);
        const auto forms = pair == size.words.end() ? pair : pair + 1;
        row.words.insert(row.words.end(), size.words.begin(), forms);
        row.forms.insert(row.forms.end(), forms, size.words.end());
        if (!size.numbers.empty()) row.sizes.push_back(std::move(size.numbers));
    }
    m_words.insert(row.words.begin(), row.words.end());
    m_forms.insert(row.forms.begin(), row.forms.end());
    m_onlyPairs = m_onlyPairs && std::ranges::all_of(row.words, isPair);
    m_rows.push_back(std::move(row));
}

SizeSearch::Query SizeSearch::queryFrom(const SizeText& typed, Forms forms) const {
    Query query;
    query.numbers = typed.numbers;
    query.outside = std::ranges::any_of(typed.words, isCaixa);
    query.forms =
        forms == Forms::kAlways || m_onlyPairs || std::ranges::any_of(typed.words, isPair);
    const bool general = std::ranges::any_of(typed.words, isGeneral);
    const bool special = !std::ranges::all_of(typed.words, isGeneral);
    for (const std::wstring& word : typed.words) {
        if (special && isGeneral(word)) continue;
        const bool form = m_forms.contains(word) && !m_words.contains(word);
        // A "viga I" may be of any series.
        const std::wstring meant = general && word == L"i" ? L"viga" : word;
        query.words.push_back({word, profilesCalled(meant, typed.numbers.size()), form});
    }
    return query;
}

/// Whole words before beginnings.
int SizeSearch::wordFit(const Sought& sought, bool forms, const Row& row) {
    int best = kNoWordFit;
    for (const std::wstring& has : row.words) {
        if (has == sought.word) return 0;
        if (sought.whole) continue;
        best = better(best, has.starts_with(sought.word) ? 1 : pairFit(sought.word, has));
    }
    if (forms && std::ranges::find(row.forms, sought.word) != row.forms.end()) return 0;
    for (const auto& [name, rank] : sought.profiles) {
        const auto isIt = [&name = name](const std::wstring& has) { return has == name; };
        if (name == kAnyName || std::ranges::any_of(row.words, isIt) ||
            std::ranges::any_of(row.forms, isIt))
            best = better(best, rank);
        for (const std::wstring& has : row.words) best = better(best, pairFit(name, has));
    }
    return best;
}

int SizeSearch::wordsFit(const Query& query, const Row& row) {
    int sum = 0;
    for (const Sought& sought : query.words) {
        const int fit = wordFit(sought, query.forms, row);
        if (fit == kNoWordFit) return kNoWordFit;
        sum += fit;
    }
    return sum;
}

std::vector<const SizeNumbers*> SizeSearch::sizesFor(const Query& query, const Row& row) {
    std::vector<const SizeNumbers*> sizes;
    sizes.reserve(row.sizes.size() + 1);
    for (const SizeNumbers& size : row.sizes) sizes.push_back(&size);
    if (query.outside && row.outside) sizes.push_back(&*row.outside);
    return sizes;
}

std::optional<SizeSearch::Score> SizeSearch::score(const Query& query, const Row& row,
                                                   bool repair) {
    const int words = wordsFit(query, row);
    if (words == kNoWordFit) return {};
    if (query.numbers.empty()) return Score{words, 0, 0};
    std::optional<Score> best;
    for (const SizeNumbers* const size : sizesFor(query, row)) {
        const auto sums = numbersFit(query.numbers, *size, repair);
        if (!sums) continue;
        const Score score{words, (*sums)[0], (*sums)[1]};
        if (!best || score < *best) best = score;
    }
    return best;
}

bool SizeSearch::isKnown(const std::wstring& word, Forms forms) const {
    const Query query = queryFrom({{word}, {}}, forms);
    return std::ranges::any_of(m_rows,
                               [&](const Row& row) { return wordsFit(query, row) != kNoWordFit; });
}

SizeSearch::Found SizeSearch::find(std::wstring_view query) const {
    if (m_rows.empty()) return {{}, 0, L"O catálogo está vazio."};
    return find(asksNothing(query) ? SizeText() : readSize(query), Forms::kBesidePairs);
}

SizeSearch::Found SizeSearch::find(SizeText typed, Forms forms) const {
    const Query query = queryFrom(typed, forms);
    Found found = fitting(query);
    if (found.best > 0) return found;
    std::vector<std::wstring> strange;
    std::vector<std::wstring> formsAlone;
    for (const Sought& sought : query.words) {
        if (!isKnown(sought.word, Forms::kAlways))
            strange.push_back(quoted(sought.word));
        else if (!query.forms && !isKnown(sought.word, Forms::kBesidePairs))
            formsAlone.push_back(quoted(inCapitals(sought.word)));
    }
    if (!strange.empty())
        std::erase_if(typed.words, [&](const std::wstring& word) {
            return std::ranges::find(strange, quoted(word)) != strange.end();
        });
    if (const std::wstring again = takeRepeated(typed.numbers); !again.empty())
        strange.push_back(quoted(again));
    if (!strange.empty()) return without(joined(strange), std::move(typed), forms);
    if (formsAlone.empty()) return nearest(query);
    found = find(std::move(typed), Forms::kAlways);
    keepNearest(found, L"Nenhum comando desenha " + joined(formsAlone) + L" sozinho.");
    return found;
}

/// What is left says what comes near, when it is a size.
SizeSearch::Found SizeSearch::without(std::wstring words, SizeText rest, Forms forms) const {
    Found found;
    if (!rest.numbers.empty()) found = find(std::move(rest), forms);
    keepNearest(found, L"Não sei o que é " + std::move(words) + L'.');
    return found;
}

/// Rows in the order of their scores.
SizeSearch::Found SizeSearch::fitting(const Query& query) const {
    for (const bool repair : {false, true}) {
        std::vector<std::pair<Score, std::size_t>> fits;
        for (std::size_t i = 0; i < m_rows.size(); ++i)
            if (const auto its = score(query, m_rows[i], repair)) fits.emplace_back(*its, i);
        std::ranges::stable_sort(fits, {}, &std::pair<Score, std::size_t>::first);
        Found found;
        for (const auto& [its, row] : fits) {
            found.rows.push_back(row);
            if (its == fits.front().first) ++found.best;
        }
        if (found.best == 0) continue;
        const std::vector<const SizeNumbers*> sizes = sizesFor(query, m_rows[found.rows.front()]);
        found.meant = std::ranges::any_of(
            sizes, [&](const SizeNumbers* size) { return saysTheSame(query.numbers, *size); });
        return found;
    }
    return {};
}

SizeSearch::Found SizeSearch::nearest(const Query& query) const {
    struct Near {
        int words;
        SizeDistance distance;
        std::size_t row;
        const SizeNumbers* size;
    };
    static const SizeNumbers kNone;
    std::vector<Near> all;
    for (std::size_t i = 0; i < m_rows.size(); ++i) {
        const Row& row = m_rows[i];
        const int words = wordsFit(query, row);
        if (words == kNoWordFit) continue;
        Near near{words, distanceOf(query.numbers, kNone, 0.0), i, &kNone};
        for (const SizeNumbers* const size : sizesFor(query, row)) {
            SizeDistance distance = distanceOf(query.numbers, *size, row.mass);
            if (distance.key() >= near.distance.key()) continue;
            near.distance = std::move(distance);
            near.size = size;
        }
        all.push_back(std::move(near));
    }
    Found found;
    if (all.empty()) {
        std::wstring words;
        for (const Sought& sought : query.words)
            words += (words.empty() ? L"" : L" e ") + quoted(sought.word);
        found.difference = L"Nenhuma bitola é " + words + L" ao mesmo tempo.";
        return found;
    }
    const std::size_t count = std::min(kNearest, all.size());
    std::ranges::partial_sort(
        all, all.begin() + static_cast<std::ptrdiff_t>(count), {},
        [](const Near& n) { return std::tuple(n.words, n.distance.key(), n.row); });
    for (std::size_t i = 0; i < count; ++i) found.rows.push_back(all[i].row);
    const Near& first = all.front();
    found.difference = differenceInWords(first.distance, query.numbers, *first.size);
    return found;
}

}  // namespace perfis
