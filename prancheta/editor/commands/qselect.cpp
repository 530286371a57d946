// SPDX-License-Identifier: MIT
// QSELECT: selects by what objects are, rather than by where they stand.
#include <algorithm>
#include <cmath>
#include <optional>

#include "dbdim.h"
#include "dbpl.h"
#include "dbspline.h"
#include "prancheta/base/text.h"
#include "prancheta/base/wildcard.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/commands/path.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"
#include "protocol/attach.h"
#include "protocol/order.h"
#include "protocol/report.h"

namespace prancheta::commands {

namespace {

/// What a module says of a piece.
class PieceReader : public protocol::PropertyVisitor {
public:
    void number(const ACHAR* name, double value) override {
        if (is(name, L"comprimento")) length = value;
    }
    void text(const ACHAR* name, const ACHAR* value) override {
        if (value == nullptr) return;
        if (is(name, L"designacao")) designation = value;
        if (is(name, L"marca")) mark = value;
    }
    void integer(const ACHAR*, long long) override {}
    void point(const ACHAR*, const AcGePoint3d&) override {}
    void object(const ACHAR*, const AcDbObjectId&) override {}
    void beginList(const ACHAR*) override { ++m_depth; }
    void endList() override { --m_depth; }
    void beginGroup(const ACHAR*) override { ++m_depth; }
    void endGroup() override { --m_depth; }

    std::optional<std::wstring> designation;
    std::optional<std::wstring> mark;
    std::optional<double> length;

private:
    bool is(const ACHAR* name, std::wstring_view wanted) const {
        return m_depth == 0 && name != nullptr && name == wanted;
    }
    int m_depth = 0;
};

/// What is asked about one object. A value that it does not have fits no criterion.
struct Facts {
    std::vector<std::wstring> types;  ///< words for what it is
    std::wstring layer;
    int color = 256;
    PieceReader piece;
};

struct TypeWord {
    AcRxClass* (*desc)();
    const wchar_t* word;
};
constexpr TypeWord kTypeWords[] = {
    {&AcDbLine::desc, L"linha"},           {&AcDbPolyline::desc, L"polilinha"},
    {&AcDbCircle::desc, L"círculo"},       {&AcDbArc::desc, L"arco"},
    {&AcDbEllipse::desc, L"elipse"},       {&AcDbSpline::desc, L"spline"},
    {&AcDbText::desc, L"texto"},           {&AcDbDimension::desc, L"cota"},
    {&AcDbBlockReference::desc, L"bloco"}, {&AcDbPoint::desc, L"ponto"},
    {&AcDbXline::desc, L"xlinha"},         {&AcDbRay::desc, L"semirreta"},
};

/// "W 200 x 46,1" and "w200x46.1" are one size.
std::wstring folded(std::wstring_view text) {
    std::wstring out;
    for (const wchar_t c : foldCase(withoutAccents(std::wstring(text))))
        if (c != L' ') out += c == L',' ? L'.' : c;
    return out;
}

/// Nothing when the object cannot be read.
std::optional<Facts> factsOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.openStatus() != Acad::eOk) return {};
    Facts facts;
    facts.layer = layerName(entity->layerId());
    facts.color = entity->colorIndex();
    if (const ACHAR* const dxf = entity->isA()->dxfName()) facts.types.emplace_back(dxf);
    facts.types.emplace_back(entity->isA()->name());
    for (const TypeWord& each : kTypeWords)
        if (entity->isKindOf(each.desc())) facts.types.emplace_back(each.word);
    if (const auto* const report = protocol::extensionOf<protocol::EntityReport>(
            *entity.object(), protocol::kEntityReportClass)) {
        report->describe(*entity.object(), facts.piece);
        facts.types.emplace_back(L"peça");
    } else if (const std::optional<Path> path = Path::of(id)) {
        facts.piece.length = path->length();
    }
    return facts;
}

enum class Key { Type, Layer, Color, Profile, Mark, Length };
constexpr const wchar_t* kKeys[] = {L"tipo",   L"camada", L"cor",
                                    L"perfil", L"marca",  L"comprimento"};

struct Criterion {
    Key key;
    wchar_t sense;  ///< `=`, `<` or `>`
    std::wstring value;
    double number = 0.0;
};

bool fits(double value, const Criterion& c) {
    if (c.sense == L'<') return value < c.number - 1e-6;
    if (c.sense == L'>') return value > c.number + 1e-6;
    return std::abs(value - c.number) <= 1e-6;
}

/// Texts in the order of marks; those with `*` or `?` as patterns.
bool fits(const std::wstring& value, const Criterion& c) {
    const std::wstring text = folded(value);
    const std::wstring wanted = folded(c.value);
    if (c.sense == L'<') return protocol::naturalCompare(text, wanted) < 0;
    if (c.sense == L'>') return protocol::naturalCompare(text, wanted) > 0;
    const bool pattern = wanted.find_first_of(L"*?") != wanted.npos;
    return pattern ? fitsWildcards(text, wanted) : text == wanted;
}

bool fits(const Facts& facts, const Criterion& c) {
    switch (c.key) {
        case Key::Type:
            return std::any_of(facts.types.begin(), facts.types.end(),
                               [&](const std::wstring& type) { return fits(type, c); });
        case Key::Layer:
            return fits(facts.layer, c);
        case Key::Color:
            return fits(static_cast<double>(facts.color), c);
        case Key::Profile:
            return facts.piece.designation && fits(*facts.piece.designation, c);
        case Key::Mark:
            return facts.piece.mark && fits(*facts.piece.mark, c);
        case Key::Length:
            return facts.piece.length && fits(*facts.piece.length, c);
    }
    return false;
}

/// A colour by its number or name, a length by its number; false for anything else.
bool readNumber(Criterion& c) {
    if (c.key == Key::Length) return parseTypedNumber(c.value, c.number);
    if (c.key != Key::Color) return true;
    if (parseTypedNumber(c.value, c.number)) return true;
    const std::wstring name = folded(c.value);
    for (int color = 1; color <= 7; ++color)
        if (folded(colorName(color)) == name) c.number = color;
    if (name == L"porcamada" || name == L"bylayer") c.number = 256.0;
    if (name == L"porbloco" || name == L"byblock") return true;
    return c.number > 0.0;
}

/// Where the next criterion begins, at or behind `from`, and its key; npos where there is none. A
/// word is a key when one of the signs follows it.
std::size_t nextKey(const std::wstring& text, std::size_t from, Key& key, std::size_t& sign) {
    for (std::size_t at = text.find_first_of(L"=<>", from); at != text.npos;
         at = text.find_first_of(L"=<>", at + 1)) {
        const std::size_t end = text.find_last_not_of(L' ', at - (at > 0));
        if (at == 0 || end == text.npos || end < from) continue;
        const std::size_t blank = text.rfind(L' ', end);
        const std::size_t begin = blank == text.npos || blank < from ? from : blank + 1;
        const std::wstring word = folded(text.substr(begin, end + 1 - begin));
        for (std::size_t i = 0; i < std::size(kKeys); ++i)
            if (word == kKeys[i]) {
                key = static_cast<Key>(i);
                sign = at;
                return begin;
            }
    }
    return text.npos;
}

/// The reason why not; empty when `criteria` holds them all.
std::wstring readCriteria(const std::wstring& text, std::vector<Criterion>& criteria) {
    Key key{};
    std::size_t sign = 0;
    std::size_t at = nextKey(text, 0, key, sign);
    if (at == text.npos || !trim(std::wstring_view(text).substr(0, at)).empty())
        return L"Escreva por exemplo: perfil=W 200 x 46,1 comprimento>6000.";
    while (at != text.npos) {
        Criterion c{key, text[sign], {}};
        const std::size_t value = sign + 1;
        at = nextKey(text, value, key, sign);
        c.value = trim(std::wstring_view(text).substr(value, at == text.npos ? at : at - value));
        if (c.value.empty() || !readNumber(c))
            return std::wstring(L"Valor que não serve para ") +
                   kKeys[static_cast<std::size_t>(c.key)] + L": \"" + c.value + L"\".";
        criteria.push_back(std::move(c));
    }
    return {};
}

}  // namespace

CommandTask qselect(CommandContext context) {
    Editor& editor = context.editor();
    Ids among = editor.selection().take();
    if (among.empty()) among = allEntities(editor);
    std::vector<Criterion> criteria;
    while (criteria.empty()) {
        const InputValue typed = co_await context.ask(
            Prompt(InputKind::Text,
                   L"\nCritérios (tipo camada cor perfil marca comprimento, com = < >): ")
                .wholeLine());
        if (typed.status != RTNORM) co_return endOf(typed.status);
        const std::wstring reason = readCriteria(typed.text, criteria);
        if (reason.empty()) break;
        criteria.clear();
        editor.complain(reason, Complaint::Refused);
    }
    std::erase_if(among, [&](const AcDbObjectId& id) {
        const std::optional<Facts> facts = factsOf(id);
        return !facts || !std::all_of(criteria.begin(), criteria.end(),
                                      [&](const Criterion& c) { return fits(*facts, c); });
    });
    say(context, among.empty()
                     ? L"Nenhum objeto atende aos critérios."
                     : counted(among.size(), L"objeto selecionado.", L"objetos selecionados."));
    editor.selection().setPrevious(among);
    editor.selection().select(std::move(among));
    co_return CommandEnd::Done;
}

}  // namespace prancheta::commands
