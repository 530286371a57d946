// SPDX-License-Identifier: MIT
// Differences between members: words, lines and files.
#include "zp/matlist/compare_words.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>

#include "dbents.h"
#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/objects/cortes.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/member.h"
#include "zp/objects/steel.h"

namespace zp::matlist {
namespace {

/// Values nearer than this are one, in what they are shown in.
constexpr double kSameShown = 5e-5;
/// Heavier by less is told with more decimals, kg.
constexpr double kLittle = 0.1;
/// Lighter is what rounding leaves, kg.
constexpr double kNothing = 5e-4;

class Words {
public:
    void add(const std::wstring& words) { m_all += (m_all.empty() ? L"" : L", ") + words; }
    void changed(const std::wstring& what, const std::wstring& from, const std::wstring& to) {
        if (from != to) add(what + (what.empty() ? L"" : L" ") + from + L" -> " + to);
    }
    void changed(const std::wstring& what, double from, double to, int decimals) {
        changed(what, texts::withComma(from, decimals), texts::withComma(to, decimals));
    }
    bool empty() const { return m_all.empty(); }
    const std::wstring& all() const { return m_all; }

private:
    std::wstring m_all;
};

std::wstring orUnnamed(const std::wstring& text) { return text.empty() ? L"sem nome" : text; }

std::wstring lacingWords(const Lacing& lacing) {
    if (lacing.n == 0) return L"nenhuma";
    std::wstring text = texts::withComma(lacing.A) + L"x" + texts::withComma(lacing.C) + L" em " +
                        std::to_wstring(lacing.n) + (lacing.n == 1 ? L" parte" : L" partes");
    if (lacing.planes > 0) text += L", planos " + std::to_wstring(lacing.planes);
    if (lacing.L1 > 0.0) text += L", passo " + texts::withComma(lacing.L1);
    return text;
}

void addValues(const Peca& before, const Peca& after, Words& words) {
    for (const sheets::Medida& medida : sheets::medidas()) {
        const double* const from = before.value(medida.role);
        const double* const to = after.value(medida.role);
        if (from != nullptr && to != nullptr && std::abs(*to - *from) * medida.factor > kSameShown)
            words.changed(medida.key, *from * medida.factor, *to * medida.factor, 4);
    }
}

void addPecas(const ZpObject& before, const ZpObject& after, Words& words) {
    const Peca& p = Access::of(before);
    const Peca& q = Access::of(after);
    const std::wstring name = p.designacao();
    words.changed(L"", name, q.designacao());
    if (name == q.designacao()) addValues(p, q, words);
    words.changed(L"L", before.getComprimentoReal(), after.getComprimentoReal(), 2);
    for (const auto& [end, what] :
         {std::pair(cortes::kStart, L"inicio"), std::pair(cortes::kEnd, L"fim")}) {
        words.changed(std::wstring(L"corte_") + what, cortes::degreesOf(p, end),
                      cortes::degreesOf(q, end), 2);
        words.changed(std::wstring(L"fundo_") + what, cortes::depthDegreesOf(p, end),
                      cortes::depthDegreesOf(q, end), 2);
    }
    words.changed(L"aço", orUnnamed(steelOf(before)), orUnnamed(steelOf(after)));
    words.changed(L"chapas", lacingWords(member::of(before).lacing),
                  lacingWords(member::of(after).lacing));
    words.changed(L"função", member::roleName(before), member::roleName(after));
    if (words.empty()) words.changed(L"kg/m", p.kgMetro(), q.kgMetro(), 3);
}

std::wstring kgNumber(double kg) {
    return texts::withComma(std::abs(kg), std::abs(kg) < kLittle ? 3 : 1);
}
std::wstring kgWords(double kg) {
    const std::wstring number = kgNumber(kg);
    return (number == L"0" ? L"" : kg < 0.0 ? L"-" : L"+") + number + L" kg";
}

struct KindWords {
    const wchar_t* key;
    const wchar_t* one;
    const wchar_t* many;
};
constexpr KindWords kKinds[] = {{L"nova", L" nova", L" novas"},
                                {L"retirada", L" retirada", L" retiradas"},
                                {L"alterada", L" alterada", L" alteradas"},
                                {L"quantidade", L" quantidade", L" quantidades"},
                                {L"movida", L" movida", L" movidas"}};
const KindWords& kindWordsOf(Difference kind) { return kKinds[static_cast<std::size_t>(kind)]; }

std::wstring handlesOf(const std::vector<JobMember>& members, const wchar_t* between) {
    std::wstring all;
    for (const JobMember& m : members) {
        if (m.peca.isNull()) continue;
        ACHAR text[17];
        m.peca.handle().getIntoAsciiBuffer(text);
        all.append(all.empty() ? L"" : between).append(text);
    }
    return all;
}

struct Balance {
    double in = 0.0;
    double out = 0.0;
};
/// kg
Balance balanceOf(const std::vector<MemberChange>& changes) {
    Balance balance;
    for (const MemberChange& c : changes) (c.kg > 0.0 ? balance.in : balance.out) += std::abs(c.kg);
    return balance;
}

std::wstring jsonTextOf(const std::wstring& text) {
    std::wstring quoted = L"\"";
    for (const wchar_t c : text) {
        if (c == L'"' || c == L'\\') quoted += L'\\';
        if (c >= L' ')
            quoted += c;
        else
            quoted += L"\\u00" + std::wstring(c < 16 ? L"0" : L"1") + L"0123456789abcdef"[c % 16];
    }
    return quoted + L'"';
}

std::wstring jsonHandlesOf(const std::vector<JobMember>& members) {
    const std::wstring handles = handlesOf(members, L"\", \"");
    return handles.empty() ? L"[]" : L"[\"" + handles + L"\"]";
}

std::wstring jsonOf(const std::vector<MemberChange>& changes) {
    std::wstring json = L"{\"versao\": 1, \"diferencas\": [";
    const auto [in, out] = balanceOf(changes);
    for (const MemberChange& c : changes)
        json.append(&c == changes.data() ? L"\n" : L",\n")
            .append(L"  {\"alteracao\": ")
            .append(jsonTextOf(kindWordsOf(c.kind).key))
            .append(L", \"marca\": ")
            .append(jsonTextOf(c.marca))
            .append(L", \"texto\": ")
            .append(jsonTextOf(c.text))
            .append(L", \"quantidade\": ")
            .append(std::to_wstring(c.count))
            .append(L", \"kg\": ")
            .append(texts::withPoint(c.kg, 3))
            .append(L", \"antes\": ")
            .append(jsonHandlesOf(c.before))
            .append(L", \"depois\": ")
            .append(jsonHandlesOf(c.after))
            .append(L"}");
    return json.append(changes.empty() ? L"]" : L"\n]")
        .append(L", \"kg_entra\": ")
        .append(texts::withPoint(in, 3))
        .append(L", \"kg_sai\": ")
        .append(texts::withPoint(out, 3))
        .append(L", \"kg_saldo\": ")
        .append(texts::withPoint(in - out, 3))
        .append(L"}\n");
}

std::wstring nameOf(const JobMember& member) {
    const AcDbObjectPointer<ZpObject> peca(member.peca, AcDb::kForRead);
    return peca.object() != nullptr ? wordsOf(*peca.object()) : member.row;
}

}  // namespace

std::wstring differenceOf(const JobMember& before, const JobMember& after) {
    if (before.steel == after.steel && before.marca == after.marca && before.listed == after.listed)
        return {};
    Words words;
    words.changed(L"marca", orUnnamed(before.marca), orUnnamed(after.marca));
    if (before.listed != after.listed)
        words.add(after.listed ? L"entrou na lista" : L"saiu da lista");
    if (before.steel == after.steel) return words.all();
    const AcDbObjectPointer<ZpObject> was(before.peca, AcDb::kForRead);
    const AcDbObjectPointer<ZpObject> is(after.peca, AcDb::kForRead);
    if (was.object() != nullptr && is.object() != nullptr)
        addPecas(*was.object(), *is.object(), words);
    else
        words.changed(L"", nameOf(before), nameOf(after));
    return words.all();
}

bool turned(const JobMember& before, const JobMember& after) {
    constexpr double kSameTurn = 1e-4;
    return before.vista == after.vista &&
           std::abs(std::remainder(after.turn - before.turn, 2.0 * std::numbers::pi)) > kSameTurn;
}

std::wstring movementOf(const JobMember& before, const JobMember& after) {
    if (before.mirrored != after.mirrored) return L"espelhada";
    const AcGeVector3d along = before.end - before.start;
    const AcGeVector3d now = after.end - after.start;
    double turn =
        (std::atan2(now.y, now.x) - std::atan2(along.y, along.x)) * 180.0 / std::numbers::pi;
    turn -= 360.0 * std::floor((turn + 180.0) / 360.0);
    const AcGeVector3d way = after.start - before.start;
    Words words;
    std::wstring shift = texts::withComma(way.x, 1) + L"; " + texts::withComma(way.y, 1);
    if (const std::wstring z = texts::withComma(way.z, 1); z != L"0") shift += L"; " + z;
    if (shift != L"0; 0") words.add(L"movida " + shift);
    if (const std::wstring degrees = texts::withComma(turn, 4); degrees != L"0")
        words.add(L"girada " + degrees + L"°");
    if (turned(before, after)) {
        const auto inDegrees = [](double turn) {
            return texts::withComma(turn * 180.0 / std::numbers::pi, 2) + L"°";
        };
        words.changed(L"giro", inDegrees(before.turn), inDegrees(after.turn));
    }
    return words.empty() ? L"movida" : words.all();
}

std::wstring nameWithin(const JobMember& member) {
    return member.listed ? nameOf(member) : nameOf(member) + L" (fora da lista)";
}

std::wstring signedWords(long long number) {
    return (number > 0 ? L"+" : L"") + std::to_wstring(number);
}

std::wstring lineOf(const MemberChange& change) {
    std::wstring line = change.marca.empty() ? L"(sem marca)" : change.marca;
    if (change.count > 1 && change.kind != Difference::Quantity)
        line += L" (" + std::to_wstring(change.count) + L" peças)";
    line += L": ";
    if (change.kind == Difference::New || change.kind == Difference::Gone)
        line += std::wstring(kindWordsOf(change.kind).key) + L", ";
    line += change.text;
    return std::abs(change.kg) < kNothing ? line : line + L", " + kgWords(change.kg);
}

std::wstring summaryOf(const std::vector<MemberChange>& changes) {
    if (changes.empty()) return L"Nenhuma diferença.";
    std::map<Difference, std::size_t> counts;
    for (const MemberChange& c : changes) ++counts[c.kind];
    const auto [in, out] = balanceOf(changes);
    Words kinds;
    for (const auto& [kind, n] : counts)
        kinds.add(std::to_wstring(n) + (n == 1 ? kindWordsOf(kind).one : kindWordsOf(kind).many));
    return std::to_wstring(changes.size()) +
           (changes.size() == 1 ? L" diferença: " : L" diferenças: ") + kinds.all() + L". Entram " +
           kgNumber(in) + L" kg, saem " + kgNumber(out) + L" kg, saldo " + kgWords(in - out) + L".";
}

FileTable tableOf(const std::vector<MemberChange>& changes) {
    FileTable table{L"Comparação",
                    {{L"ALTERACAO", -1, 12},
                     {L"MARCA", -1, 10},
                     {L"TEXTO", -1, 60},
                     {L"QUANT.", 0, 9},
                     {L"PESO (kg)", 3, 14},
                     {L"ANTES", -1, 16},
                     {L"DEPOIS", -1, 16}},
                    {}};
    for (const MemberChange& c : changes)
        table.rows.push_back({std::wstring(kindWordsOf(c.kind).key), c.marca, c.text,
                              static_cast<double>(c.count), c.kg, handlesOf(c.before, L" "),
                              handlesOf(c.after, L" ")});
    return table;
}

std::wstring toldAs(protocol::ComparisonForm form, const std::vector<MemberChange>& changes) {
    if (form == protocol::ComparisonForm::Csv) return csvText(tableOf(changes));
    if (form == protocol::ComparisonForm::Json) return jsonOf(changes);
    std::wstring text;
    for (const MemberChange& change : changes) text += lineOf(change) + L'\n';
    return text + summaryOf(changes) + L'\n';
}

}  // namespace zp::matlist
