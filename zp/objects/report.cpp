// SPDX-License-Identifier: MIT
// Report of pieces: every value under its name, in a fixed order.
#include "zp/objects/report.h"

#include "perfis/entities/zpvigas.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "zp/objects/cortes.h"
#include "zp/objects/member.h"
#include "zp/objects/strip_rules.h"

namespace zp::report {
namespace {

using protocol::PropertyVisitor;

void constructor(const Peca& p, PropertyVisitor& v) {
    v.beginGroup(L"construtor");
    v.integer(L"forma", p.form);
    v.beginList(L"pontos");
    for (std::size_t i = 0; i < p.form; ++i) v.point(nullptr, p.points[i]);
    v.endList();
    v.integer(L"vista", p.vista);
    v.beginList(L"valores");
    for (std::size_t i = 0; i < p.count; ++i) v.number(nullptr, p.given[i]);
    v.endList();
    v.endGroup();
}

void linked(const Peca& p, const ACHAR* name, bool cotas, PropertyVisitor& v) {
    v.beginList(name);
    for (const Link& l : p.linked())
        if ((l.role == Link::Role::Cota) == cotas) v.object(nullptr, l.id);
    v.endList();
}

void texts(const ZpObject& peca, PropertyVisitor& v) {
    ACHAR text[kZpTextMax];
    (void)peca.getPerfil(text);  // the buffer is there
    v.text(L"perfil", text);
    (void)peca.getDimensoes(text);
    v.text(L"dimensoes", text);
    v.text(L"designacao", Access::of(peca).designacao().c_str());
}

void optional(PropertyVisitor& v, const ACHAR* name, std::optional<double> value) {
    if (value)
        v.number(name, *value);
    else
        v.text(name, nullptr);
}

/// mm and its powers, degrees.
void section(const ZpObject& peca, const Peca& p, PropertyVisitor& v) {
    if (p.chapa()) return;
    const secao::Sheet& sheet = p.secao().sheet();
    v.beginGroup(L"secao");
    v.number(L"kg_m", peca.getLinearWeight());
    v.text(L"fonte_massa", p.massSource() == MassSource::Tabela ? L"tabela" : L"geometria");
    for (const secao::SheetRow& row : secao::sheetRows())
        if (!row.fromOrigin) optional(v, row.key, row.of(sheet));
    v.beginList(L"esbeltez");
    for (const secao::Element& e : sheet.elements) {
        v.beginList(nullptr);
        v.number(nullptr, e.b);
        v.number(nullptr, e.t);
        v.endList();
    }
    v.endList();
    const std::optional<secao::Strip> strip = stripOf(peca);
    optional(v, L"tira", strip ? std::optional(strip->width) : std::nullopt);
    v.endGroup();
}

void ends(const Peca& p, PropertyVisitor& v) {
    v.number(L"peso_liquido", cortes::netMass(p));
    v.number(L"corte_inicio", cortes::degreesOf(p, cortes::kStart));
    v.number(L"corte_fim", cortes::degreesOf(p, cortes::kEnd));
    v.number(L"fundo_inicio", cortes::depthDegreesOf(p, cortes::kStart));
    v.number(L"fundo_fim", cortes::depthDegreesOf(p, cortes::kEnd));
}

class PecasReport : public protocol::EntityReport {
public:
    void describe(const AcDbEntity& entity, PropertyVisitor& v) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return;
        const Peca& p = Access::of(*peca);
        v.integer(L"tipo_barra", p.tipoBarra);
        if (p.kind == secao::Kind::ISoldado) v.integer(L"subtipo", p.series);
        constructor(p, v);
        v.point(L"inicio", p.start);
        v.point(L"fim", p.end());
        v.number(L"angulo", p.angle);
        v.number(L"comprimento", peca->getComprimentoReal());
        AcGePoint3d f[4];
        peca->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        v.beginList(L"faces");
        for (const AcGePoint3d& point : f) v.point(nullptr, point);
        v.endList();
        v.number(L"altura", peca->getAltura());
        v.number(L"largura", peca->getLargura());
        v.number(L"espessura", peca->getEspessura());
        v.number(L"area", peca->getArea());
        v.number(L"perimetro", peca->getPerimetro());
        v.number(L"area_pintura", peca->getAreaPintura());
        v.number(L"peso", peca->getPeso());
        if (!p.chapa()) ends(p, v);
        texts(*peca, v);
        section(*peca, p, v);
        const std::wstring marca = member::marcaOf(*peca);
        v.text(L"marca", marca.empty() ? nullptr : marca.c_str());
        v.integer(L"conta", member::of(*peca).count);
        linked(p, L"cotas", true, v);
        linked(p, L"ligados", false, v);
    }
};

PecasReport g_pecas;  // kept by pointer in the class

}  // namespace

void install() { protocol::attach(ZpObject::desc(), protocol::kEntityReportClass, g_pecas); }

void uninstall() {
    protocol::detach(ZpObject::desc(), protocol::kEntityReportClass);
    protocol::retire(protocol::kEntityReportClass);
}

}  // namespace zp::report
