// SPDX-License-Identifier: MIT
// From a drawn piece to its line: what is written is read again, and left out where the piece comes
// out the same without it.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "perfis/catalogues/rolled_sources.h"
#include "perfis/commands/command_table.h"
#include "perfis/commands/peca_editor.h"
#include "perfis/commands/travejamento_values.h"
#include "perfis/pecas/order.h"
#include "perfis/pecas/roles.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/matlist/follow.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/member.h"

namespace perfis {
namespace {

using zp::secao::Role;
using zp::secao::RoleValues;

constexpr int kDecimals = 6;
constexpr double kSame = 1e-6;

std::wstring number(double value) { return texts::withComma(value, kDecimals); }
bool near(double a, double b) { return std::abs(a - b) <= kSame * std::max(1.0, std::abs(b)); }

void add(std::wstring& line, const std::wstring& key, const std::wstring& value) {
    const bool quoted = value.find(L' ') != value.npos;
    line += L' ' + key + L'=' + (quoted ? L'"' + value + L'"' : value);
}

/// "200x75x3" of "2U ][ 200x75x3 a=50".
std::wstring withoutVaos(std::wstring name) {
    if (const std::size_t equals = name.find(L'='); equals != name.npos)
        name.resize(name.rfind(L' ', equals));
    return name;
}

/// A line's worth of a drawn piece.
class LineWriter {
public:
    LineWriter(const PecaValues& values, const PerfilCommand& command, Designations& designations)
        : m_values(values), m_command(command), m_designations(designations) {}

    std::wstring write(const ZpObject& peca) {
        writeVaos();
        writeVista(peca);
        writeCortes(peca);
        writeChapas();
        if (const std::wstring role = roleWord(m_values.tipoBarra); !role.empty())
            add(m_tail, L"tipo", role);
        if (const std::wstring& aco = zp::member::of(peca).grade; !aco.empty())
            add(m_tail, L"aco", aco);
        // Of the names that give the same section the shortest way.
        const std::wstring name = withoutVaos(zp::matlist::sizeOf(peca));
        const std::wstring typed =
            typedName(m_command, sourceOf(peca), medidasOf(m_command.description, m_values.values));
        const std::wstring cmd = L"cmd=" + localName() + L' ';
        for (const std::wstring& text : {name, typed, cmd + name, cmd + typed})
            if (isSame(text + m_tail, peca)) return finished(text + m_tail, peca);
        for (const std::wstring& text : {typed, cmd + typed}) {
            const std::wstring line = text + m_tail;
            const std::wstring own = ownValues(line, peca);
            if (isSame(line + own, peca)) return finished(line + own, peca);
        }
        return finished(cmd + typed + m_tail, peca);
    }

private:
    int sourceOf(const ZpObject& peca) const {
        if (m_values.kind == zp::secao::Kind::ISoldado) return m_values.series;
        if (m_values.kind != zp::secao::Kind::ILaminadoUSA) return 0;
        const auto type = static_cast<int>(zp::edit::valuesOf(peca)[Role::Type]);
        for (int source = 0; source < kRolledSourceCount; ++source)
            if (rolledSource(source).secaoType == type) return source;
        return 0;
    }
    std::wstring localName() const {
        for (const CommandRow& row : commandTable())
            if (&row.command == &m_command) return row.localName;
        return {};
    }

    void writeVaos() {
        const Medidas medidas = medidasOf(m_command.description, m_values.values);
        for (const auto& [key, role] : {std::pair(L"a", Role::Vao), std::pair(L"av", Role::VaoV)})
            if (const Medida vao = vaoOf(m_command.description, role))
                if (medidas.*vao != 0.0) add(m_tail, key, number(medidas.*vao));
    }

    void writeVista(const ZpObject& peca) {
        const bool secao = m_values.vista == ZpObject::kVistaSecao;
        const double drawn =
            m_command.description.keepsComprimentoInSecao ? 0.0 : kSecaoComprimento;
        // The parts of a lacing are those of a length.
        const bool usual = near(m_values.comprimento, drawn) && m_values.lacing.n <= 1;
        if (!secao || !usual) add(m_tail, L"L", number(peca.getComprimentoReal()));
        if (m_values.vista != ZpObject::kVistaDireita && (!secao || !usual))
            add(m_tail, L"vista", std::to_wstring(static_cast<int>(m_values.vista)));
        // The turn that the views dialog gives this view is not told.
        const int figure = figureOf(m_command.description, m_values.vista, m_values.giro);
        const auto i = static_cast<std::size_t>(m_values.vista);
        const double usualGiro = i < m_command.description.faces.size() &&
                                         m_command.description.faces[i].vista == m_values.vista
                                     ? m_command.description.faces[i].giro
                                     : 0.0;
        if (!near(usualGiro, m_values.giro) || figure != static_cast<int>(m_values.vista))
            add(m_tail, L"giro", number(m_values.giro * 180.0 / std::numbers::pi));
    }

    void writeCortes(const ZpObject& peca) {
        const zp::Peca& p = zp::Access::of(peca);
        if (!zp::cortes::oblique(p)) return;
        const std::pair<const wchar_t*, double> words[] = {
            {L"corte_inicio", zp::cortes::degreesOf(p, zp::cortes::kStart)},
            {L"corte_fim", zp::cortes::degreesOf(p, zp::cortes::kEnd)},
            {L"fundo_inicio", zp::cortes::depthDegreesOf(p, zp::cortes::kStart)},
            {L"fundo_fim", zp::cortes::depthDegreesOf(p, zp::cortes::kEnd)}};
        for (const auto& [key, degrees] : words)
            if (degrees != 0.0) add(m_tail, key, number(degrees));
    }

    void writeChapas() {
        const PecaTravejamento travejamento = travejamentoOf(m_values);
        const TravejamentoParams& chapas = travejamento.chapas;
        if (chapas.A <= 0.0) return;
        std::wstring text = number(chapas.A);
        double even = 0.0;
        (void)CalcEspacamento(chapas, m_values.comprimento, even);
        const bool own = travejamento.pitch > 0.0 && !near(travejamento.pitch, even);
        std::vector<std::wstring> parts{number(chapas.A)};
        if (chapas.C > 0.0) parts.push_back(number(chapas.C));
        if (chapas.C > 0.0 && (chapas.n > 1 || own)) parts.push_back(std::to_wstring(chapas.n));
        if (own) parts.push_back(number(travejamento.pitch));
        const bool decimals = std::ranges::any_of(
            parts, [](const std::wstring& part) { return part.find(L',') != part.npos; });
        text.clear();
        for (const std::wstring& part : parts)
            text += (text.empty() ? L"" : decimals ? L";" : L",") + part;
        if (decimals && parts.size() == 1) text += L';';
        add(m_tail, L"chapas", text);
        if (m_values.lacing.planes == 0 && travejamento.planes == TravejamentoPlanes::kBoth) return;
        if (travejamento.planes != TravejamentoPlanes::kBoth)
            add(m_tail, L"plano", std::to_wstring(static_cast<int>(travejamento.planes) - 1));
    }

    /// What the line would draw, in no drawing; null where it is refused.
    std::unique_ptr<ZpObject> drawnBy(const std::wstring& line) {
        ReadyPeca ready;
        if (!makeReady(line, m_designations, ready).empty()) return nullptr;
        return std::move(ready.run->accepted().peca);
    }
    bool isSame(const std::wstring& line, const ZpObject& peca) {
        const std::unique_ptr<ZpObject> made = drawnBy(line);
        return made && zp::member::sameSizes(*made, peca) && made->vista() == peca.vista() &&
               near(zp::edit::valuesOf(*made)[Role::Giro], m_values.giro) &&
               std::abs(made->getLinearWeight() - peca.getLinearWeight()) <= kSame;
    }

    /// Values that no dialog asks for.
    std::wstring ownValues(const std::wstring& line, const ZpObject& peca) {
        const std::unique_ptr<ZpObject> made = drawnBy(line);
        if (!made || zp::edit::kindOf(*made) != m_values.kind) return {};
        const RoleValues would = zp::edit::valuesOf(*made);
        std::wstring text;
        const double mass = medidasOf(m_command.description, m_values.values).m;
        if (!near(mass, medidasOf(m_command.description, would).m)) add(text, L"m", number(mass));
        for (const zp::sheets::Medida& medida : zp::sheets::medidas())
            if (medida.role != Role::M && zp::Access::of(peca).value(medida.role) != nullptr &&
                !near(m_values.values[medida.role], would[medida.role]))
                add(text, medida.key, number(m_values.values[medida.role] * medida.factor));
        return text;
    }

    std::wstring finished(std::wstring line, const ZpObject& peca) const {
        if (m_values.listed && (m_values.vista != ZpObject::kVistaSecao || m_values.count == 0)) {
            if (m_values.count != 1) add(line, L"n", std::to_wstring(m_values.count));
            if (const std::wstring marca = zp::member::marcaOf(peca); !marca.empty())
                add(line, L"marca", marca);
        }
        if (m_values.hasCotas) line += L" cotas";
        return line;
    }

    const PecaValues& m_values;
    const PerfilCommand& m_command;
    Designations& m_designations;
    std::wstring m_tail;
};

}  // namespace

std::wstring lineOf(AcDbObjectId id, Designations& designations) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr) return {};
    const PecaValues values = valuesOf(*peca.object());
    const PerfilCommand* const command = commandOf(values);
    if (command == nullptr) return {};
    return LineWriter(values, *command, designations).write(*peca.object());
}

}  // namespace perfis
