// SPDX-License-Identifier: MIT
// Report of pieces: every value under its name, in a fixed order.
#include "zp/objects/report.h"

#include "perfis/entities/zpvigas.h"
#include "protocol/attach.h"
#include "protocol/report.h"
#include "zp/objects/peca.h"

namespace zp::relatorio {
namespace {

using protocol::PropertyVisitor;

void construtor(const Peca& p, PropertyVisitor& v) {
    v.beginGroup(L"construtor");
    v.integer(L"forma", p.forma);
    v.beginList(L"pontos");
    for (std::size_t i = 0; i < p.forma; ++i) v.point(nullptr, p.pontos[i]);
    v.endList();
    v.integer(L"vista", p.vista);
    v.beginList(L"valores");
    for (std::size_t i = 0; i < p.quantos; ++i) v.number(nullptr, p.dados[i]);
    v.endList();
    v.endGroup();
}

void ligadas(const Peca& p, const ACHAR* nome, bool cotas, PropertyVisitor& v) {
    v.beginList(nome);
    for (const Ligacao& l : p.ligadas())
        if ((l.papel == Ligacao::Papel::Cota) == cotas) v.object(nullptr, l.id);
    v.endList();
}

void textos(const ZpObject& peca, PropertyVisitor& v) {
    ACHAR texto[kZpTextoMax];
    (void)peca.getPerfil(texto);  // the buffer is there
    v.text(L"perfil", texto);
    (void)peca.getDimensoes(texto);
    v.text(L"dimensoes", texto);
}

class Pecas : public protocol::EntityReport {
public:
    void describe(const AcDbEntity& entity, PropertyVisitor& v) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return;
        const Peca& p = Acesso::de(*peca);
        v.integer(L"tipo_barra", p.tipoBarra);
        if (p.classe == secao::Classe::ISoldado) v.integer(L"subtipo", p.subtipo);
        construtor(p, v);
        v.point(L"inicio", p.inicio);
        v.point(L"fim", p.fim());
        v.number(L"angulo", p.angulo);
        v.number(L"comprimento", peca->getComprimentoReal());
        AcGePoint3d f[4];
        peca->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        v.beginList(L"faces");
        for (const AcGePoint3d& ponto : f) v.point(nullptr, ponto);
        v.endList();
        v.number(L"altura", peca->getAltura());
        v.number(L"largura", peca->getLargura());
        v.number(L"espessura", peca->getEspessura());
        v.number(L"area", peca->getArea());
        v.number(L"perimetro", peca->getPerimetro());
        v.number(L"area_pintura", peca->getAreaPintura());
        v.number(L"peso", peca->getPeso());
        textos(*peca, v);
        ligadas(p, L"cotas", true, v);
        ligadas(p, L"ligados", false, v);
    }
};

Pecas g_pecas;  // kept by pointer in the class

}  // namespace

void instala() { protocol::attach(ZpObject::desc(), protocol::kEntityReportClass, g_pecas); }

void retira() {
    protocol::detach(ZpObject::desc(), protocol::kEntityReportClass);
    protocol::retire(protocol::kEntityReportClass);
}

}  // namespace zp::relatorio
