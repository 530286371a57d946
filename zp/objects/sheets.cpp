// SPDX-License-Identifier: MIT
// Property sheets of pieces: rows, changes, totals.
#include "zp/objects/sheets.h"

#include <cmath>
#include <numbers>
#include <optional>

#include "acutmem.h"
#include "perfis/entities/zpvigas.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/member.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/labels.h"
#include "zp/objects/secao_rows.h"
#include "zp/objects/steel.h"
#include "zp/objects/watch.h"

namespace zp::sheets {
namespace {

using protocol::PropertySheet;
using texts::withComma;

constexpr const ACHAR* kComprimento = L"comprimento";
constexpr const ACHAR* kTipoBarra = protocol::kRoleKey;
constexpr const ACHAR* kGrade = L"aco";

struct BarraRole {
    int type;
    const ACHAR* name;
};

constexpr BarraRole kTypes[] = {
    {ZpObject::kBarra, L"Barra simples"},
    {ZpObject::kMontante, L"Montante"},
    {ZpObject::kDiagonal, L"Diagonal"},
    {ZpObject::kBanzoInferior, L"Banzo inferior"},
    {ZpObject::kBanzoSuperior, L"Banzo superior"},
    {ZpObject::kViga, L"Viga"},
    {ZpObject::kPilar, L"Pilar"},
    {ZpObject::kTerca, L"Terça"},
};

constexpr const ACHAR* kVistas[] = {L"Seção", L"Superior", L"Inferior", L"Direita", L"Esquerda"};

/// Decimals of a size: enough for an inch fraction in mm.
constexpr int kDecimals = 4;

std::wstring withUnit(double v, int decimals, const wchar_t* unit) {
    return withComma(v, decimals) + L" " + unit;
}

void show(PropertySheet& s, const ACHAR* key, const ACHAR* label, const std::wstring& value) {
    s.show(key, label, value.c_str());
}

void perfilGroup(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Perfil");
    ACHAR perfil[kZpTextMax];
    ACHAR dimensoes[kZpTextMax];
    (void)peca.getPerfil(perfil);  // the buffers are there
    (void)peca.getDimensoes(dimensoes);
    show(s, L"designacao", L"Designação", p.designacao());
    s.show(L"perfil", L"Perfil", perfil);
    s.show(L"dimensoes", L"Dimensões", dimensoes);
    s.show(L"classe", L"Classe", secao::description(p.kind).name);
    if (!p.chapa()) {
        const ACHAR* names[std::size(kTypes)];
        int current = -1;
        for (int i = 0; i < static_cast<int>(std::size(kTypes)); ++i) {
            names[i] = kTypes[i].name;
            if (kTypes[i].type == p.tipoBarra) current = i;
        }
        s.choose(kTipoBarra, L"Tipo de barra", current, static_cast<int>(std::size(kTypes)), names);
    }
    s.edit(kGrade, L"Aço", member::of(peca).grade.c_str(), nullptr);
    s.show(L"vista", L"Vista", kVistas[std::min<std::size_t>(p.vista, 4)]);
}

/// A plate of a laced member has the sizes that the member's rule gives it.
bool followsBarra(const ZpObject& peca) {
    return Access::of(peca).chapa() && !edit::ownerOf(peca).isNull();
}

struct CorteRow {
    const ACHAR* key;
    const ACHAR* label;
    std::size_t end;
};

constexpr CorteRow kCortes[] = {
    {L"corte_inicio", L"Corte no início", cortes::kStart},
    {L"corte_fim", L"Corte no fim", cortes::kEnd},
};

const CorteRow* corteFor(const std::wstring& key) {
    const auto* const found =
        std::ranges::find_if(kCortes, [&](const CorteRow& row) { return key == row.key; });
    return found != std::end(kCortes) ? found : nullptr;
}

void cortesRows(const Peca& p, PropertySheet& s) {
    if (p.chapa() || p.inSecao()) return;
    for (const CorteRow& row : kCortes)
        s.edit(row.key, row.label, withComma(cortes::degreesOf(p, row.end), kDecimals).c_str(),
               L"°");
    if (cortes::oblique(p))
        show(s, L"comprimento_eixo", L"Comprimento no eixo",
             withUnit(p.comprimento, kDecimals, L"mm"));
}

void geometryGroup(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Geometria");
    const bool fixed = followsBarra(peca);
    const ACHAR* const label = p.chapa() ? L"Altura (d3)" : L"Comprimento (L)";
    if (fixed)
        show(s, kComprimento, label, withUnit(p.comprimento, kDecimals, L"mm"));
    else
        s.edit(kComprimento, label, withComma(cortes::longest(p), kDecimals).c_str(), L"mm");
    cortesRows(p, s);
    for (const Medida& medida : medidas()) {
        const double* const stored = p.value(medida.role);
        if (stored == nullptr) continue;
        const double v = *stored * medida.factor;
        const ACHAR* const name = secao::label(medida.role, p.kind);
        if (fixed)
            show(s, medida.key, name, withUnit(v, kDecimals, medida.unit));
        else
            s.edit(medida.key, name, withComma(v, kDecimals).c_str(), medida.unit);
    }
}

void secaoGroup(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Seção");
    show(s, L"massa", L"Peso", withUnit(peca.getPeso(), 3, L"kg"));
    if (cortes::oblique(p))
        show(s, L"peso_liquido", L"Peso líquido", withUnit(cortes::netMass(p), 3, L"kg"));
    show(s, L"area_pintura", L"Área de pintura", withUnit(peca.getAreaPintura(), 4, L"m²"));
    if (p.chapa())
        show(s, L"kg_m", L"Peso por metro", withUnit(peca.getLinearWeight(), 3, L"kg/m"));
    else if (peca.getArea() != p.secao().properties().area)
        show(s, L"area", L"Área do catálogo", withUnit(peca.getArea() * 1e-2, 3, L"cm²"));
    for (const SecaoRow& row : secaoRows(peca, withComma)) show(s, row.key, row.label, row.value);
    if (!p.chapa() && p.secao().invalid()) show(s, L"invalida", L"Valores", kInvalidSecao);
}

std::wstring changeComprimento(Peca& p, double fresh) {
    if (!(fresh > 0.0)) return L"O comprimento deve ser maior que zero.";
    const double axis = fresh - (cortes::longest(p) - p.comprimento);
    if (!(axis > 0.0))
        return L"Com os cortes das pontas o comprimento deve ser maior que " +
               texts::withComma(fresh - axis, 1) + L" mm.";
    p.setComprimento(axis);
    return {};
}

std::wstring changeCorte(Peca& p, std::size_t end, double degrees) {
    const double angle = degrees * std::numbers::pi / 180.0;
    if (!(std::abs(angle) <= cortes::kSteepest))
        return L"O corte vai de -85 a 85 graus, contados do esquadro.";
    p.cortes[end] = cortes::withAngle(p, end, angle);
    return {};
}

std::wstring changeType(Peca& p, const std::wstring& text) {
    const double index = texts::exactReal(text).value_or(-1.0);
    if (index != std::floor(index) || index < 0.0 ||
        index >= static_cast<double>(std::size(kTypes)))
        return L"Escolha um dos tipos de barra da lista.";
    p.tipoBarra = static_cast<std::uint8_t>(kTypes[static_cast<std::size_t>(index)].type);
    return {};
}

/// Empty: as the drawing's list says.
std::wstring changeGrade(ZpObject& peca, const std::wstring& text) {
    Member member = member::of(peca);
    member.grade = texts::trimmed(text);
    if (member.grade.size() > kMostGrade)
        return L"O nome do aço pode ter até " + std::to_wstring(kMostGrade) + L" caracteres.";
    member::set(peca, member);
    return {};
}

/// The reason why not; empty when the piece has the value.
std::wstring apply(ZpObject& peca, const std::wstring& key, const std::wstring& text) {
    if (key == kGrade) return changeGrade(peca, text);
    Peca& p = Access::of(peca);
    if (key == kTipoBarra && !p.chapa()) return changeType(p, text);
    const Medida* const medida = medidaFor(key);
    const CorteRow* const corte = p.chapa() || p.inSecao() ? nullptr : corteFor(key);
    if (medida == nullptr && corte == nullptr && key != kComprimento)
        return L"Este valor não pode ser editado.";
    const std::optional<double> v = texts::exactReal(text);
    if (!v) return L"“" + text + L"” não é um número.";
    if (corte != nullptr) return changeCorte(p, corte->end, *v);
    return medida != nullptr ? change(p, *medida, *v / medida->factor) : changeComprimento(p, *v);
}

/// A text as the sheet shows it changes nothing: it may have fewer digits than the value.
bool alreadyShows(const ZpObject& peca, const std::wstring& key, const std::wstring& text) {
    const Peca& p = Access::of(peca);
    const std::optional<double> v = texts::exactReal(text);
    if (!v) return false;
    const auto shows = [&](double shown) {
        return withComma(shown, kDecimals) == withComma(*v, kDecimals);
    };
    if (key == kComprimento) return shows(cortes::longest(p));
    if (const CorteRow* const corte = corteFor(key)) return shows(cortes::degreesOf(p, corte->end));
    const Medida* const medida = medidaFor(key);
    const double* const stored = medida != nullptr ? p.value(medida->role) : nullptr;
    return stored != nullptr && shows(*stored * medida->factor);
}

class Sheets : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, PropertySheet& sheet) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return;
        const Peca& p = Access::of(*peca);
        perfilGroup(*peca, p, sheet);
        geometryGroup(*peca, p, sheet);
        secaoGroup(*peca, p, sheet);
    }

    bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        return told(changeValue(entity, key, value), message);
    }

    bool setAlone(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
                  ACHAR*& message) const override {
        const std::optional<edit::Former> before = formerAt(entity);
        const std::wstring reason = changeOne(entity, key, value, nullptr);
        // Nobody was asked: further views follow.
        if (reason.empty() && before) watch::changes(entity, *before);
        return told(reason, message);
    }

    Totals totals(const AcDbEntity& entity) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr || drawsSecao(*peca)) return {};
        return {1, peca->getPeso(), peca->getAreaPintura()};
    }

private:
    static std::optional<edit::Former> formerAt(AcDbObjectId id) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) return {};
        return edit::formerOf(*peca.object());
    }
    static bool told(const std::wstring& reason, ACHAR*& message) {
        if (!reason.empty()) (void)acutNewString(reason.c_str(), message);
        return reason.empty();
    }

    /// The piece and, when the user wants it, those that are the same member.
    static std::wstring changeValue(AcDbObjectId id, const std::wstring& key,
                                    const std::wstring& text) {
        std::optional<std::vector<AcDbObjectId>> others;
        std::wstring reason = changeOne(id, key, text, &others);
        for (std::size_t i = 0; others && i < others->size() && reason.empty(); ++i)
            reason = corteFor(key) != nullptr ? takeCortes((*others)[i], id)
                                              : changeOne((*others)[i], key, text, nullptr);
        return reason;
    }

    /// What a cut is in one view another one shows from elsewhere.
    static std::wstring takeCortes(AcDbObjectId id, AcDbObjectId from) {
        std::unique_ptr<ZpObject> model;
        {
            const AcDbObjectPointer<ZpObject> changed(from, AcDb::kForRead);
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (changed.object() == nullptr || peca.object() == nullptr)
                return L"A peça não pode ser aberta.";
            model = edit::copyOf(*peca.object());
            if (!model) return L"A peça não pode ser copiada.";
            Access::of(*model).cortes = Access::of(*changed.object()).cortes;
            std::wstring reason = edit::refusalOf(*peca.object(), *model);
            if (!reason.empty()) return reason;
        }
        return become(id, *model);
    }

    /// `others` receives what is to change with it; null: nobody is asked.
    static std::wstring changeOne(AcDbObjectId id, const std::wstring& key,
                                  const std::wstring& text,
                                  std::optional<std::vector<AcDbObjectId>>* others) {
        std::unique_ptr<ZpObject> model;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) return L"A peça não pode ser aberta.";
            if (followsBarra(*peca.object()))
                return L"A chapa segue a barra que ela trava; edite a barra.";
            if (alreadyShows(*peca.object(), key, text)) return {};
            model = edit::copyOf(*peca.object());
            if (!model) return L"A peça não pode ser copiada.";
            std::wstring reason = apply(*model, key, text);
            if (reason.empty()) reason = edit::refusalOf(*peca.object(), *model);
            if (!reason.empty()) return reason;
            if (others != nullptr) *others = edit::alikeOf(*peca.object(), *model);
            if (others != nullptr && !*others) return {};
        }
        return become(id, *model);
    }

    static std::wstring become(AcDbObjectId id, const ZpObject& model) {
        edit::Edit edit(id);
        if (edit.status() == Acad::eOnLockedLayer)
            return L"A camada da peça está bloqueada; desbloqueie-a para editar.";
        if (edit.status() != Acad::eOk) return L"A peça não pode ser alterada agora.";
        member::set(edit.peca(), member::of(model));
        (void)edit.remake(model);  // a copy is of the same class
        edit.finish();
        return {};
    }

    /// A section stands for a member that is drawn, and counted, elsewhere.
    static bool drawsSecao(const ZpObject& peca) {
        const Peca& p = Access::of(peca);
        if (!p.chapa()) return p.inSecao();
        const AcDbObjectPointer<ZpObject> owner(edit::ownerOf(peca), AcDb::kForRead);
        return owner.object() != nullptr && Access::of(*owner.object()).inSecao();
    }
};

Sheets g_sheets;  // kept by pointer in the class

}  // namespace

void install() { protocol::attach(ZpObject::desc(), protocol::kEntityPropertiesClass, g_sheets); }

void uninstall() {
    protocol::detach(ZpObject::desc(), protocol::kEntityPropertiesClass);
    protocol::retire(protocol::kEntityPropertiesClass);
}

}  // namespace zp::sheets
