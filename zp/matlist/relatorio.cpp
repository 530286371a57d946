// SPDX-License-Identifier: MIT
// Report of marks and of the material list.
#include "zp/matlist/relatorio.h"

#include "protocol/attach.h"
#include "protocol/report.h"
#include "zp/matlist/lista.h"
#include "zp/matlist/zpmarca.h"

namespace zp::lista {
namespace {

using protocol::PropertyVisitor;

class Marcas : public protocol::EntityReport {
public:
    void describe(const AcDbEntity& entity, PropertyVisitor& v) const override {
        const auto* marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return;
        v.point(L"ponta", marca->ponta());
        v.point(L"texto_em", marca->textoEm());
        v.text(L"marca", marca->marca().c_str());
    }
};

class Listas : public protocol::DrawingReport {
public:
    void describe(AcDbDatabase& database, PropertyVisitor& v) const override {
        v.beginList(L"lista_material");
        for (const Lista& lista : listas(database))
            for (const Linha& l : linhas(lista.id)) linha(lista, l, v);
        v.endList();
    }

private:
    static void linha(const Lista& lista, const Linha& l, PropertyVisitor& v) {
        v.beginGroup(nullptr);
        v.text(L"marca", l.marca.c_str());
        v.integer(L"quantidade", l.quantidade);
        v.text(L"descricao", l.descricao.c_str());
        v.text(L"dimensoes", l.dimensoes.c_str());
        v.text(L"material", l.material.c_str());
        v.number(L"comprimento", l.comprimento);
        v.number(L"peso_unitario", l.pesoUnitario);
        v.number(L"peso_total", l.pesoTotal);
        v.number(L"area_pintura", l.areaPintura);
        v.text(L"observacao", observacaoDe(l).c_str());
        v.integer(L"lista", lista.numero);
        v.text(L"grupo", lista.cabecalho.grupo.c_str());
        v.integer(L"apagada", apagada(l) ? 1 : 0);
        v.beginList(L"ids");
        for (const AcDbSoftPointerId& id : l.ids)
            if (!id.isNull()) v.object(nullptr, id);
        v.endList();
        v.beginList(L"pecas");
        for (const AcDbSoftPointerId& id : l.ids) {
            const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
            if (marca.object() != nullptr && !marca->peca().isNull())
                v.object(nullptr, marca->peca());
        }
        v.endList();
        v.endGroup();
    }
};

// Kept by pointer in the class and in the registry.
Marcas g_marcas;
Listas g_listas;

}  // namespace

void instalaRelatorio() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityReportClass, g_marcas);
    acrxSysRegistry()->atPut(protocol::kDrawingReportKey, &g_listas);
}

void retiraRelatorio() {
    protocol::detach(ZpMarca::desc(), protocol::kEntityReportClass);
    acrxSysRegistry()->remove(protocol::kDrawingReportKey);
}

}  // namespace zp::lista
