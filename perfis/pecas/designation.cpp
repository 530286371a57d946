// SPDX-License-Identifier: MIT
// The names of the profiles, and the sizes that the lists hold under them.
#include "perfis/pecas/designation.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

#include "perfis/catalogues/number_fit.h"
#include "perfis/catalogues/size_text.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/listed_sizes.h"
#include "perfis/pecas/line.h"
#include "texts/letters.h"
#include "texts/number.h"

namespace perfis {
namespace {

constexpr Medida kHbt[] = {&Medidas::h, &Medidas::b, &Medidas::t};
constexpr Medida kHbat[] = {&Medidas::h, &Medidas::b, &Medidas::a, &Medidas::t};
constexpr Medida kHbet[] = {&Medidas::h, &Medidas::b, &Medidas::e, &Medidas::t};
constexpr Medida kI[] = {&Medidas::h, &Medidas::b, &Medidas::t, &Medidas::a};
constexpr Medida kPsm[] = {&Medidas::h,  &Medidas::bc, &Medidas::tc,
                           &Medidas::bb, &Medidas::tb, &Medidas::a};
constexpr Medida kTubo[] = {&Medidas::d, &Medidas::di};
constexpr Medida kBarra[] = {&Medidas::d};

/// What a profile is called, and the order of its numbers behind the name.
struct Name {
    const wchar_t* word;
    const wchar_t* form;  ///< of a pair, in small letters; the first of a word is the usual one
    const PerfilCommand& command;
    std::span<const Medida> numbers;
    int source = 0;
    const wchar_t* symbols = L"h x b x t";
};

/// Cold-formed before rolled, the usual form first.
const Name kNames[] = {
    {L"U", L"", pudobrado, kHbt},
    {L"U", L"", perfilulaminado, kHbt},
    {L"Ue", L"", pudoben, kHbat, 0, L"h x b x aba x t"},
    {L"Z", L"", pzdobrado, kHbat, 0, L"h x b x aba x t"},
    {L"Cr", L"", pcartola, kHbat, 0, L"h x b x aba x t"},
    {L"L", L"", pcantdob, kHbt},
    {L"L", L"", pcantlam, kHbt},
    {L"L", L"", bnlam, kHbt},
    {L"TQ", L"", perfilbox, kHbt},
    {L"TR", L"", perfilbox, kHbt},
    {L"TC", L"", perfiltubo, kTubo, 0, L"d x parede"},
    {L"BR", L"", perfilbarraredonda, kBarra, 0, L"d"},
    {L"W", L"", pilaminado, kI, 0, L"H x B x tf x tw"},
    {L"HP", L"", pilaminado, kI, 0, L"H x B x tf x tw"},
    {L"IPE", L"", pilaminado, kI, 1, L"H x B x tf x tw"},
    {L"I", L"", pilaminado, kI, 2, L"H x B x tf x tw"},
    {L"PS", L"", pisoldado, kI, 0, L"H x B x tf x tw"},
    {L"VS", L"", pisoldado, kI, 1, L"H x B x tf x tw"},
    {L"CVS", L"", pisoldado, kI, 2, L"H x B x tf x tw"},
    {L"CS", L"", pisoldado, kI, 3, L"H x B x tf x tw"},
    {L"PSM", L"", perfilpsa, kPsm, 0, L"H x Bc x tc x Bb x tb x tw"},
    {L"2U", L"][", pidobrado, kHbt},
    {L"2U", L"][", perfil2ulam, kHbt},
    {L"2U", L"[]", pcxdobrado, kHbt},
    {L"2U", L"[]", perfiluulaminado, kHbt},
    {L"2Ue", L"][", pienrdobrado, kHbet, 0, L"h x b x aba x t"},
    {L"2Ue", L"[]", pcxdoben, kHbat, 0, L"h x b x aba x t"},
    {L"2Cr", L"][", perfilicartola, kHbet, 0, L"h x b x aba x t"},
    {L"2L", L"t", pcanttdob, kHbt},
    {L"2L", L"t", pcanttelam, kHbt},
    {L"2L", L"u", pcantudob, kHbt},
    {L"2L", L"u", pcantulam, kHbt},
    {L"2L", L"x", pcantxdob, kHbt},
    {L"2L", L"x", pcantcruzlam, kHbt},
    {L"2L", L"+", perfilcantcruzlaminado, kHbt},
    {L"2L", L"z", perfilcantzlaminado, kHbt},
    {L"2L", L"[]", cantoneiracaixalaminada, kHbt},
};

std::vector<std::wstring> knownNames() {
    std::vector<std::wstring> words;
    for (const Name& name : kNames)
        if (std::ranges::find(words, name.word) == words.end()) words.emplace_back(name.word);
    return words;
}

/// A designation's parts.
struct Parts {
    std::wstring word;
    std::wstring form;
    SizeNumbers numbers;
};

bool isForm(const std::wstring& word) {
    static constexpr std::wstring_view kForms[] = {L"][", L"[]", L"t", L"u", L"x", L"+", L"z"};
    return std::ranges::find(kForms, word) != std::end(kForms);
}

/// The form of a pair may stand behind its name or behind its numbers, where an x is no sign
/// between two of them.
std::wstring takeForm(std::wstring& text) {
    std::vector<std::wstring> words;
    for (std::wstring& word : texts::trimmedParts(text, L' '))
        if (!word.empty()) words.push_back(std::move(word));
    if (words.empty() || words[0][0] != L'2') return {};
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::wstring form = texts::lower(words[i]);
        const bool between = i > 1 && i + 1 < words.size() && form == L"x";
        if (!isForm(form) || between) continue;
        words.erase(words.begin() + static_cast<std::ptrdiff_t>(i));
        text.clear();
        for (const std::wstring& word : words) text += word + L' ';
        return form;
    }
    return {};
}

std::wstring partsOf(const std::wstring& designation, Parts& parts) {
    std::wstring text = designation;
    parts.form = takeForm(text);
    SizeText size = readSize(text);
    parts.numbers = std::move(size.numbers);
    for (const std::wstring& word : size.words) {
        if (parts.word.empty() && !isForm(word)) {
            parts.word = word;
        } else if (parts.word.empty() && std::iswalpha(static_cast<std::wint_t>(word[0])) != 0) {
            parts.word = word;  // "U", "T", "Z" are forms of pairs, too
        } else if (parts.form.empty() && isForm(word)) {
            parts.form = word;
        } else {
            return unknownWord(word, knownNames());
        }
    }
    return {};
}

/// The numbers of a size's name, without those of its gaps.
SizeText nameOf(std::wstring name) {
    if (const std::size_t equals = name.find(L'='); equals != name.npos)
        name.resize(name.rfind(L' ', equals));
    return readSize(name);
}

bool sameNumbers(const SizeNumbers& a, const SizeNumbers& b) {
    return std::ranges::equal(
        a, b, [](const SizeNumber& x, const SizeNumber& y) { return isSame(x, y); });
}

/// The numbers as typed; one is missing where two legs are equal.
std::optional<Medidas> asTyped(const Name& name, const SizeNumbers& typed) {
    Medidas medidas;
    SizeNumbers numbers = typed;
    const bool equalSides = name.numbers.data() == kHbt && numbers.size() == 2 &&
                            (std::wstring_view(name.word).ends_with(L'L') ||
                             std::wstring_view(name.word).starts_with(L'T'));
    if (equalSides) numbers.insert(numbers.begin(), numbers.front());
    if (numbers.size() != name.numbers.size()) return {};
    for (std::size_t i = 0; i < numbers.size(); ++i) medidas.*name.numbers[i] = inMm(numbers[i]);
    return medidas;
}

}  // namespace

struct Designations::Row {
    int source = 0;
    std::wstring word;  ///< in small letters
    std::wstring name;
    SizeNumbers numbers;
    Medidas medidas;
};

Designations::Designations() = default;
Designations::~Designations() = default;

const std::vector<Designations::Row>& Designations::rowsOf(const PerfilCommand& command) {
    const auto [found, fresh] = m_rows.try_emplace(&command);
    if (!fresh) return found->second;
    const PerfilDescription& description = command.description;
    for (const ListedSize& size : listedSizes(command)) {
        Row row{size.source, {}, {}, {}, medidasOf(description, size.text)};
        for (const zp::secao::Role role : {zp::secao::Role::Vao, zp::secao::Role::VaoV})
            if (const Medida vao = vaoOf(description, role)) row.medidas.*vao = 0.0;
        if (description.wrong(row.medidas) != nullptr) continue;
        row.name = sizeName(description, row.medidas, size.source);
        SizeText name = nameOf(row.name);
        if (!name.words.empty()) row.word = name.words.front();
        row.numbers = std::move(name.numbers);
        found->second.push_back(std::move(row));
    }
    return found->second;
}

namespace {

bool sameMedidas(const Name& name, const Medidas& a, const Medidas& b) {
    return std::ranges::all_of(name.numbers,
                               [&](Medida m) { return std::abs(a.*m - b.*m) <= kSameSize; });
}

/// The one that the lists have: by its name, by its numbers, by a mass that is rounded or cut.
const Designations::Row* listedAs(const Name& name, const std::vector<Designations::Row>& rows,
                                  const SizeNumbers& typed) {
    const std::optional<Medidas> numbers = asTyped(name, typed);
    const std::wstring word = texts::lower(name.word);
    const Designations::Row* named = nullptr;
    const Designations::Row* massLike = nullptr;
    int massesLike = 0;
    for (const Designations::Row& row : rows) {
        if (row.source != name.source) continue;
        const bool same = sameNumbers(row.numbers, typed) ||
                          (numbers && sameMedidas(name, row.medidas, *numbers));
        if (same && (named == nullptr || (named->word != word && row.word == word))) named = &row;
        const double mass = row.medidas.m;
        if (typed.size() != 2 || row.numbers.size() != 2 || mass <= 0.0 ||
            !isSame(row.numbers[0], typed[0]) ||
            (std::round(mass) != typed[1].value && std::floor(mass) != typed[1].value))
            continue;
        massLike = &row;
        ++massesLike;
    }
    if (named != nullptr) return named;
    return massesLike == 1 ? massLike : nullptr;
}

/// The row whose numbers are nearest, as many as were typed.
const Designations::Row* nearestRow(const Name& name, const std::vector<Designations::Row>& rows,
                                    const SizeNumbers& typed) {
    const Designations::Row* nearest = nullptr;
    std::pair<int, double> least;
    for (const Designations::Row& row : rows) {
        if (row.source != name.source) continue;
        const std::pair<int, double> away = distanceOf(typed, row.numbers, row.medidas.m).key();
        if (nearest != nullptr && away >= least) continue;
        nearest = &row;
        least = away;
    }
    return nearest;
}

std::wstring joined(const std::vector<std::wstring>& parts, const wchar_t* between) {
    std::wstring text;
    for (const std::wstring& part : parts) text += (text.empty() ? L"" : between) + part;
    return text;
}

/// Names that the word, the form and the command leave.
std::wstring candidatesFor(const Parts& parts, const PerfilCommand* only,
                           std::vector<const Name*>& fit) {
    std::vector<std::wstring> forms;
    std::wstring usual;
    bool known = false;
    std::wstring drawn;
    for (const Name& name : kNames) {
        if (only != nullptr && &name.command != only) continue;
        drawn = name.word;
        if (!parts.word.empty() && texts::lower(name.word) != parts.word) continue;
        known = true;
        if (usual.empty()) usual = name.form;
        if (std::ranges::find(forms, name.form) == forms.end()) forms.emplace_back(name.form);
        if ((parts.form.empty() ? usual : parts.form) == name.form) fit.push_back(&name);
    }
    if (!fit.empty()) return {};
    if (known && forms.front().empty()) return L"\"" + parts.form + L"\" é forma de perfil duplo.";
    if (known)
        return L"A forma \"" + parts.form + L"\" não existe aqui; há " + joined(forms, L", ") +
               L".";
    return L"O comando de cmd= desenha " + drawn + L".";
}

}  // namespace

std::wstring Designations::find(const std::wstring& designation, const PerfilCommand* only,
                                DesignatedSize& size) {
    Parts parts;
    const std::wstring fault = partsOf(designation, parts);
    const std::vector<std::wstring> known = knownNames();
    const auto isCalled = [&](const std::wstring& name) {
        return texts::lower(name) == parts.word;
    };
    if (!parts.word.empty() && std::ranges::none_of(known, isCalled))
        return unknownWord(parts.word, known);
    if (!fault.empty()) return fault;
    if (parts.word.empty() && only == nullptr)
        return L"Falta o nome do perfil, por exemplo U 200x75x3 L=6000.";
    std::vector<const Name*> fit;
    if (std::wstring none = candidatesFor(parts, only, fit); !none.empty()) return none;
    for (const Name* const name : fit) {
        const Row* const row = listedAs(*name, rowsOf(name->command), parts.numbers);
        if (row == nullptr) continue;
        size = {&name->command, name->source, row->medidas, true};
        return {};
    }
    for (const Name* const name : fit) {
        const std::optional<Medidas> medidas = asTyped(*name, parts.numbers);
        // The sizes of a welded series come from its list alone.
        const bool free = &name->command != &pisoldado || name->source == 0;
        if (!medidas || !free) continue;
        size = {&name->command, name->source, *medidas, false};
        return {};
    }
    const Name& first = *fit.front();
    std::wstring text = L"A bitola \"" + designation + L"\" não está no catálogo";
    if (const Row* const near = nearestRow(first, rowsOf(first.command), parts.numbers);
        near != nullptr && !parts.numbers.empty())
        text += L"; a mais próxima é " + near->name;
    return text + L". Medidas próprias são " + first.symbols + L".";
}

const PerfilCommand* commandCalled(const std::wstring& name) {
    for (const CommandRow& row : commandTable())
        if (texts::equalIgnoringCase(name, row.localName) ||
            texts::equalIgnoringCase(name, row.globalName))
            return &row.command;
    return nullptr;
}

std::wstring typedName(const PerfilCommand& command, int source, const Medidas& medidas) {
    constexpr int kDecimals = 6;
    for (const Name& name : kNames) {
        if (&name.command != &command || name.source != source) continue;
        std::wstring text = name.word;
        if (*name.form != L'\0') {
            text += L' ';
            for (const wchar_t c : std::wstring_view(name.form))
                text += c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
        }
        wchar_t between = L' ';
        for (const Medida m : name.numbers) {
            text += between + texts::withComma(medidas.*m, kDecimals);
            between = L'x';
        }
        return text;
    }
    return {};
}

Medida vaoOf(const PerfilDescription& description, zp::secao::Role role) {
    const auto value = std::ranges::find(description.values, role, &RoleValue::role);
    return value != description.values.end() ? value->medida : nullptr;
}

}  // namespace perfis
