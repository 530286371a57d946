// SPDX-License-Identifier: MIT
// The side tables row by row: against the outline of the size, and their values against each other.
#include <algorithm>
#include <array>
#include <cmath>
#include <cwctype>
#include <numbers>

#include "perfis/catalogues/number_fit.h"
#include "perfis/commands/catalogue_examiner.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/objects/secao/secao.h"
#include "zp/objects/strip_rules.h"
#include "zp/tables/published.h"

namespace perfis {
namespace {

using protocol::Severity;
using zp::tables::TableFile;

/// What a source prints beside the size.
enum Printed {
    kPeso,
    kArea,
    kIx,
    kWx,
    kRx,
    kIy,
    kWy,
    kRy,
    kIt,
    kCw,
    kXg,
    kYg,
    kRoot,
    kToe,
    kSlope,
    kZx,
    kZy,
    kRz,
    kAll
};
struct PrintedColumn {
    const wchar_t* name;
    const wchar_t* unit;
};
constexpr std::array<PrintedColumn, kAll> kColumns = {{{L"kg_m", L"kg/m"},
                                                       {L"A", L"cm2"},
                                                       {L"Ix", L"cm4"},
                                                       {L"Wx", L"cm3"},
                                                       {L"rx", L"cm"},
                                                       {L"Iy", L"cm4"},
                                                       {L"Wy", L"cm3"},
                                                       {L"ry", L"cm"},
                                                       {L"It", L"cm4"},
                                                       {L"Cw", L"cm6"},
                                                       {L"xg", L"cm"},
                                                       {L"yg", L"cm"},
                                                       {L"r", L"mm"},
                                                       {L"r_ponta", L"mm"},
                                                       {L"inclinacao", L"graus"},
                                                       {L"Zx", L"cm3"},
                                                       {L"Zy", L"cm3"},
                                                       {L"rz", L"cm"}}};

/// Ratios by which values may differ, half a unit of the last printed digit on top of each.
constexpr double kOutlineOff = 0.01;
constexpr double kTorsionOff = 0.05;
constexpr double kEachOtherOff = 0.015;
/// No value of a section is larger in its unit.
constexpr double kMostPrinted = 1e12;
/// kg/m of steel of 1 cm2.
constexpr double kPesoOfArea = 0.785;
/// By so much the height that a series is called by differs from the true one.
constexpr double kNominalHeight = 0.16;
/// By so much a maker's nominal mass of a tube may be above that of sharp corners.
constexpr double kNominalPeso = 0.03;

/// A printed number; half a unit of its last digit over it.
struct Value {
    double number = 0.0;
    double half = 0.0;
    std::wstring text;  ///< with a comma
};

Value valueOf(const std::wstring& text, double number) {
    Value value{number, 0.0, text};
    std::ranges::replace(value.text, L'.', L',');
    const std::size_t comma = value.text.find(L',');
    const std::size_t decimals = comma == std::wstring::npos ? 0 : value.text.size() - comma - 1;
    if (number != 0.0) value.half = 0.5 * std::pow(10.0, -double(decimals)) / std::abs(number);
    return value;
}

/// Angles in inches are printed from values of two digits in inches.
void widenForInches(std::array<std::optional<Value>, kAll>& values) {
    constexpr double kInch = 2.54;
    constexpr std::pair<Printed, int> kPowers[] = {{kRz, 1}, {kArea, 2}, {kWx, 3}, {kIx, 4}};
    for (const auto& [which, power] : kPowers) {
        if (!values[which]) continue;
        const double unit = std::pow(kInch, power);
        const double number = values[which]->number;
        const double digit = power < 3 || number < unit ? 0.01 : 0.1;
        values[which]->half = std::max(values[which]->half, 0.5 * digit * unit / number);
    }
}

/// Four digits, decimal comma.
std::wstring shown(double number) {
    const double size = std::abs(number);
    const int digits = size > 0.0 ? static_cast<int>(std::floor(std::log10(size))) : 0;
    return texts::withComma(number, std::clamp(3 - digits, 0, 4));
}

void tellFaults(const TableFile& table, CatalogueFindings& findings) {
    for (const zp::tables::Fault& fault : table.faults()) findings.push_back(findingOf(fault));
}

class FamilyExaminer {
public:
    FamilyExaminer(const Family& family, SideTable& sizes, CatalogueFindings& findings)
        : m_family(family), m_table(sizes), m_findings(findings) {
        for (const SizeColumn& size : family.sizes) m_columns.push_back(size.name);
    }

    void examine(const std::filesystem::path& path, bool own) {
        TableFile table = TableFile::read(path);
        m_own = own;
        m_table.there = m_table.there || !own;
        m_file = texts::shown(path.filename());
        std::vector<const wchar_t*> needed{L"designacao"};
        needed.insert(needed.end(), m_columns.begin(), m_columns.end());
        if (table.columns(needed))
            for (const zp::tables::Row& row : table.rows()) examineRow(table, row);
        tellFaults(table, m_findings);
        if (!own && table.faults().empty() && table.rows().empty())
            add(L"A tabela não tem nenhuma bitola: nada se confere com ela.",
                L"Ponha no lugar a que vem com o programa.");
    }

private:
    void add(std::wstring text, std::wstring remedy, Severity severity = Severity::Fault) {
        m_findings.push_back(
            {severity, m_file, m_line, m_name, std::move(text), std::move(remedy)});
    }

    void examineRow(TableFile& table, const zp::tables::Row& row) {
        m_line = row.line;
        m_name = table.text(row, table.column(L"designacao"));
        m_doubt = table.text(row, table.column(L"duvida"));
        const auto sized = zp::tables::sizedRow(table, row, m_columns);
        if (!sized) return;  // told by the table
        m_medidas = {};
        for (std::size_t i = 0; i < m_family.sizes.size(); ++i)
            m_medidas.*m_family.sizes[i].medida = sized->v[i];
        for (std::size_t i = 0; i < m_values.size(); ++i) {
            const int column = table.column(kColumns[i].name);
            const std::optional<double> number = table.number(row, column);
            m_values[i].reset();
            if (number && std::abs(*number) > kMostPrinted)
                table.refuse(row, std::wstring(kColumns[i].name) +
                                      L" é grande demais; corrija ou deixe vazio");
            else if (number)
                m_values[i] = valueOf(table.text(row, column), *number);
        }
        if (m_family.symmetry == Symmetry::kNone && m_name.find(L'"') != std::wstring::npos)
            widenForInches(m_values);
        keepSize();
        if (!m_doubt.empty())
            add(L"Linha em dúvida: " + m_doubt + L".", L"Confira-a com o fornecedor.",
                Severity::Hint);
        compareName();
        compareEachOther();
        compareWithOutline();
    }

    void keepSize() {
        const auto [first, fresh] =
            m_table.sizes.try_emplace(sizeKeyOf(m_family, m_family.sizes, m_medidas));
        TabledSize& size = first->second;
        if (fresh) size.place = static_cast<int>(m_table.sizes.size());
        std::optional<TabledRow>& row = m_own ? size.own : size.delivered;
        if (row) {
            add(L"A bitola já está na tabela, como " + row->designacao + L".",
                L"Apague uma das duas linhas.");
            return;
        }
        row = {m_name, m_values[kPeso] ? std::optional(has(kPeso)) : std::nullopt};
    }

    double has(Printed which) const { return m_values[which] ? m_values[which]->number : 0.0; }
    double half(Printed which) const { return m_values[which] ? m_values[which]->half : 0.0; }

    /// The row's own remark names the value: that is said once.
    bool explained(Printed which) const {
        const auto told = [&](const std::wstring& number) {
            return m_doubt.find(number + L" impresso") != std::wstring::npos;
        };
        return told(m_values[which]->text) || told(shown(m_values[which]->number));
    }

    /// `computed` is 0 where it does not follow from anything.
    void compare(Printed which, double computed, double off, const wchar_t* from) {
        if (!m_values[which] || !(computed > 0.0)) return;
        const Value& printed = *m_values[which];
        if (std::abs(printed.number / computed - 1.0) <= off + printed.half || explained(which))
            return;
        add(std::wstring(kColumns[which].name) + L" impresso é " + printed.text + L" " +
                kColumns[which].unit + L", " + from + L" dá " + shown(computed) + L" (" +
                texts::withComma(100.0 * (printed.number / computed - 1.0), 1) + L" %).",
            L"Corrija o valor, ou diga em duvida por que fica.");
    }

    /// Each number of the name is a size, the height that a series is called by, or the mass.
    void compareName() {
        const SizeNumbers numbers = readSize(m_name).numbers;
        // I and U are called by height and mass.
        const bool series = m_columns.back() == std::wstring_view(L"tw");
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            const SizeNumber& said = numbers[i];
            const auto isSize = [&](const SizeColumn& size) {
                return isSame(said, {{}, {}, m_medidas.*size.medida, SizeNumber::Unit::kMm});
            };
            const bool nominal =
                series && i == 0 && std::abs(inMm(said) / m_medidas.h - 1.0) <= kNominalHeight;
            const bool mass = m_values[kPeso] && std::abs(said.value / has(kPeso) - 1.0) <=
                                                     kEachOtherOff + 0.5 / has(kPeso);
            if (nominal || mass || std::ranges::any_of(m_family.sizes, isSize)) continue;
            add(L"O " + said.typed + L" da designação não é medida nem massa da linha.",
                L"Corrija a designação ou a medida: a peça seria encomendada com este nome.");
        }
    }

    void compareEachOther() {
        const auto ratio = [&](Printed which, double computed, std::initializer_list<Printed> from,
                               const wchar_t* words) {
            double off = kEachOtherOff;
            for (const Printed value : from) {
                if (!m_values[value]) return;
                off += half(value);
            }
            compare(which, computed, off, words);
        };
        const double A = has(kArea);
        const bool round = m_family.symmetry == Symmetry::kRound;
        const double h = 0.1 * (round ? m_medidas.d : m_medidas.h);
        const double b = 0.1 * m_medidas.b;
        ratio(kPeso, kPesoOfArea * A, {kArea}, L"0,785 A");
        if (A > 0.0) {
            ratio(kRx, std::sqrt(std::max(0.0, has(kIx) / A)), {kIx, kArea}, L"a raiz de Ix/A");
            ratio(kRy, std::sqrt(std::max(0.0, has(kIy) / A)), {kIy, kArea}, L"a raiz de Iy/A");
        }
        switch (m_family.symmetry) {
            case Symmetry::kNone:
                if (h > has(kXg)) ratio(kWx, has(kIx) / (h - has(kXg)), {kIx, kXg}, L"Ix/(h - xg)");
                break;
            case Symmetry::kTee:
                if (h > has(kYg)) ratio(kWx, has(kIx) / (h - has(kYg)), {kIx, kYg}, L"Ix/(h - yg)");
                ratio(kWy, 2.0 * has(kIy) / b, {kIy}, L"2 Iy/b");
                break;
            case Symmetry::kUpper:
                ratio(kWx, 2.0 * has(kIx) / h, {kIx}, L"2 Ix/h");
                if (b > has(kXg)) ratio(kWy, has(kIy) / (b - has(kXg)), {kIy, kXg}, L"Iy/(b - xg)");
                break;
            default:
                ratio(kWx, 2.0 * has(kIx) / h, {kIx}, round ? L"2 Ix/d" : L"2 Ix/h");
                if (!round) ratio(kWy, 2.0 * has(kIy) / b, {kIy}, L"2 Iy/b");
                // Of an I: t is its flange.
                ratio(kCw, has(kIy) * std::pow(h - 0.1 * m_medidas.t, 2) / 4.0, {kIy},
                      L"Iy (h - tf)²/4");
        }
    }

    void compareWithOutline() {
        if (m_family.command == nullptr) {
            compare(kPeso, 0.01 * kPesoOfArea * m_family.area(m_medidas), kEachOtherOff,
                    L"o contorno");
            return;
        }
        const zp::secao::Secao secao = drawn();
        if (secao.invalid()) {
            add(L"Com estas medidas não há seção que se possa desenhar.",
                L"Corrija a medida que não cabe nas outras.");
            return;
        }
        if (m_family.symmetry == Symmetry::kTube) return compareTube();
        const zp::secao::Properties& p = secao.properties();
        compare(kArea, 1e-2 * p.area, kOutlineOff, L"o contorno");
        if (!m_values[kArea])
            compare(kPeso, 1e-2 * kPesoOfArea * p.area, 2.0 * kOutlineOff, L"o contorno");
        compare(kIx, 1e-4 * p.ix, kOutlineOff, L"o contorno");
        compare(kIy, 1e-4 * p.iy, kOutlineOff, L"o contorno");
        const zp::secao::Sheet& sheet = secao.sheet();
        compare(kIt, 1e-4 * sheet.it.value_or(0.0), kTorsionOff, L"o contorno");
        compare(kZx, 1e-3 * sheet.zx, kOutlineOff, L"o contorno");
        compare(kZy, 1e-3 * sheet.zy, kOutlineOff, L"o contorno");
        compare(kRz, 1e-1 * p.r2, kEachOtherOff, L"o contorno");
    }

    zp::secao::Secao drawn(double corner = -1.0) const {
        const PerfilDescription& description = m_family.command->description;
        PecaRequest request{.medidas = m_medidas, .comprimento = 1.0, .source = m_family.source};
        request.medidas.m = has(kPeso);
        zp::secao::RoleValues values = valuesFor(description, request);
        values.printed = {m_values[kRoot] ? has(kRoot) : -1.0, m_values[kToe] ? has(kToe) : -1.0,
                          100.0 * has(kArea)};
        if (corner >= 0.0) {
            values[zp::secao::Role::Ri] = corner;
            values.printed.root = -1.0;
        }
        return {description.pecas.kind, values};
    }

    /// Nobody prints the corners that the mass stands for: values between those of round corners,
    /// 3 t outside, and of sharp ones fit; a mass a little above is the maker's nominal one.
    void compareTube() {
        const double h = m_medidas.h;
        const double b = m_medidas.b;
        const double t = m_medidas.t;
        const zp::secao::Secao round = drawn(std::min(2.0 * t, 0.5 * std::min(h, b) - t));
        const auto sharpInertia = [t](double high, double wide) {
            return (wide * std::pow(high, 3) - (wide - 2.0 * t) * std::pow(high - 2.0 * t, 3)) /
                   12.0;
        };
        const auto sharpPlastic = [t](double high, double wide) {
            return (wide * high * high - (wide - 2.0 * t) * std::pow(high - 2.0 * t, 2)) / 4.0;
        };
        const double sharp = 2.0 * t * (h + b - 2.0 * t);
        const double sharpTorsion = 2.0 * t * std::pow((h - t) * (b - t), 2) / (h + b - 2.0 * t);
        const zp::secao::Properties& p = round.properties();
        const Printed area = m_values[kArea] ? kArea : kPeso;
        const double unit = 1e-2 * (area == kPeso ? kPesoOfArea : 1.0);
        if (has(area) > unit * sharp * (1.0 + half(area)) &&
            has(area) <= unit * sharp * (1.0 + kNominalPeso) && !explained(area))
            add(L"A massa nominal do fabricante está " +
                    texts::withComma(100.0 * (has(area) / (unit * sharp) - 1.0), 1) +
                    L" % acima da seção de cantos vivos.",
                L"Vale a massa impressa.", Severity::Hint);
        within(area, unit * p.area, unit * sharp);
        within(kIx, 1e-4 * p.ix, 1e-4 * sharpInertia(h, b));
        within(kIy, 1e-4 * p.iy, 1e-4 * sharpInertia(b, h));
        within(kIt, 1e-4 * round.sheet().it.value_or(0.0), 1e-4 * sharpTorsion);
        within(kZx, 1e-3 * round.sheet().zx, 1e-3 * sharpPlastic(h, b));
        within(kZy, 1e-3 * round.sheet().zy, 1e-3 * sharpPlastic(b, h));
    }
    void within(Printed which, double least, double most) {
        if (!m_values[which]) return;
        const double nearest = std::clamp(has(which), least, most);
        const double off = has(which) > most ? kNominalPeso : kOutlineOff;
        compare(which, nearest, which == kIt ? kTorsionOff : off, L"o contorno");
    }

    const Family& m_family;
    SideTable& m_table;
    CatalogueFindings& m_findings;
    std::vector<const wchar_t*> m_columns;  ///< of the size
    bool m_own = false;
    std::wstring m_file;
    int m_line = 0;
    std::wstring m_name;
    std::wstring m_doubt;
    Medidas m_medidas;
    std::array<std::optional<Value>, kAll> m_values;
};

}  // namespace

CatalogueFinding findingOf(const zp::tables::Fault& fault) {
    // The reason ends with what to do, where there is more than one thing to do.
    const std::size_t end = fault.reason.rfind(L"; ");
    std::wstring remedy = L"Corrija a linha.";
    if (end != std::wstring::npos) {
        remedy = fault.reason.substr(end + 2) + L".";
        remedy.front() = static_cast<wchar_t>(std::towupper(static_cast<wint_t>(remedy.front())));
    }
    return {Severity::Fault,
            texts::shown(fault.file.filename()),
            fault.line,
            {},
            fault.reason.substr(0, end) + L".",
            std::move(remedy)};
}

SideTables examineTables(const std::filesystem::path& folder, CatalogueFindings& findings) {
    SideTables tables(families().size());
    const std::vector<zp::tables::TableName> found = zp::tables::tablesIn(folder);
    for (const bool own : {false, true})
        for (const zp::tables::TableName& name : found) {
            if (name.own != own) continue;
            if (const std::optional<std::size_t> family = familyOf(name))
                FamilyExaminer(families()[*family], tables[*family], findings)
                    .examine(name.path, own);
            else if (zp::isStripFile(name.path))
                continue;
            else if (own)
                findings.push_back({Severity::Fault,
                                    texts::shown(name.path.filename()),
                                    0,
                                    {},
                                    L"Ninguém lê uma tabela com este nome.",
                                    L"Chame-a como a da família, por exemplo w_hp_usuario.csv."});
            else
                tellFaults(TableFile::read(name.path), findings);
        }
    return tables;
}

}  // namespace perfis
