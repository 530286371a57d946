// SPDX-License-Identifier: MIT
// Property sheets of marks: the mark's text and its row of the material list.
#include "zp/matlist/fichas.h"

#include <algorithm>
#include <cmath>

#include "acutmem.h"
#include "dbapserv.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "zp/matlist/acompanha.h"
#include "zp/matlist/lista.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/medidas_editaveis.h"

namespace zp::lista {
namespace {

using protocol::PropertySheet;

/// A row's texts that the user writes.
struct Texto {
    const ACHAR* chave;
    const ACHAR* rotulo;
    std::wstring Linha::*texto;
};
constexpr Texto kTextos[] = {
    {L"material", L"Material", &Linha::material},
    {L"observacao", L"Observação", &Linha::observacao},
};

constexpr const ACHAR* kMarca = L"marca";
constexpr const ACHAR* kQuantidade = L"quantidade";
constexpr int kMaisPecas = 1000000;

std::wstring numero(double v, int casas, const wchar_t* unidade) {
    return fichas::escreve(v, casas) + L" " + unidade;
}

void mostraLinha(const Linha& l, PropertySheet& s) {
    s.group(L"Lista de material");
    s.edit(kQuantidade, L"Quantidade", std::to_wstring(l.quantidade).c_str(), nullptr);
    s.show(L"descricao", L"Descrição", l.descricao.c_str());
    s.show(L"dimensoes", L"Dimensões", l.dimensoes.c_str());
    s.show(L"comprimento", L"Comprimento", numero(l.comprimento, 2, L"mm").c_str());
    s.show(L"peso_unitario", L"Massa unitária", numero(l.pesoUnitario, 3, L"kg").c_str());
    s.show(L"peso_total", L"Massa total", numero(l.pesoTotal, 3, L"kg").c_str());
    s.show(L"area_pintura", L"Área de pintura", numero(l.areaPintura, 4, L"m²").c_str());
    for (const Texto& t : kTextos) s.edit(t.chave, t.rotulo, (l.*t.texto).c_str(), nullptr);
}

/// Another row of the same list has this mark.
bool haMarca(AcDbDatabase& desenho, AcDbObjectId registro, const std::wstring& marca) {
    for (const Lista& lista : listas(desenho)) {
        const std::vector<Registro> todos = registros(lista.id);
        if (std::ranges::find(todos, registro, &Registro::id) == todos.end()) continue;
        return std::ranges::any_of(todos, [&](const Registro& r) {
            const std::optional<Linha> linha = r.id == registro ? std::nullopt : linhaEm(r.id);
            return linha && linha->marca == marca && !apagada(*linha);
        });
    }
    return false;
}

std::wstring aparado(const std::wstring& texto) {
    const std::size_t de = texto.find_first_not_of(L" \t");
    if (de == std::wstring::npos) return {};
    return texto.substr(de, texto.find_last_not_of(L" \t") - de + 1);
}

std::wstring mudaMarca(AcDbObjectId id, AcDbObjectId registro, const std::wstring& dada) {
    const std::wstring marca = aparado(dada);
    if (marca.empty()) return L"A marca não pode ficar vazia.";
    if (marca.size() >= kZpMarcaMax)
        return L"A marca pode ter até " + std::to_wstring(kZpMarcaMax - 1) + L" caracteres.";
    if (!registro.isNull() && haMarca(*id.database(), registro, marca))
        return L"A marca " + marca + L" já está na lista de material.";
    {
        const AcDbObjectPointer<ZpMarca> aberta(id, AcDb::kForWrite);
        if (aberta.openStatus() == Acad::eOnLockedLayer)
            return L"A camada da marca está bloqueada; desbloqueie-a para editar.";
        if (aberta.object() == nullptr) return L"A marca não pode ser alterada agora.";
        aberta->setMarca(marca);
    }
    std::optional<Linha> linha = linhaEm(registro);
    if (!linha) return {};
    linha->marca = marca;
    return regrava(registro, *linha) ? L"" : L"A linha da lista não pôde ser gravada.";
}

std::wstring mudaQuantidade(Linha& linha, const std::wstring& texto) {
    double v = 0.0;
    if (!fichas::leNumero(texto, v) || v != std::floor(v) || v < 1.0 || v > kMaisPecas)
        return L"A quantidade deve ser um número inteiro a partir de 1.";
    // Paint areas of a row without pieces cannot be divided.
    const double porPeca =
        linha.quantidade > 0 ? linha.areaPintura / linha.quantidade : linha.areaPintura;
    linha.quantidade = static_cast<int>(v);
    linha.pesoTotal = linha.pesoUnitario * linha.quantidade;
    linha.areaPintura = porPeca * linha.quantidade;
    return {};
}

std::wstring mudaLinha(AcDbObjectId registro, const std::wstring& chave,
                       const std::wstring& valor) {
    std::optional<Linha> linha = linhaEm(registro);
    if (!linha) return L"A marca não tem linha na lista de material.";
    const auto* const texto =
        std::ranges::find_if(kTextos, [&](const Texto& t) { return chave == t.chave; });
    if (texto != std::end(kTextos)) {
        (*linha).*(texto->texto) = aparado(valor);
    } else if (chave == kQuantidade) {
        if (std::wstring motivo = mudaQuantidade(*linha, valor); !motivo.empty()) return motivo;
    } else {
        return L"Este valor não pode ser editado.";
    }
    return regrava(registro, *linha) ? L"" : L"A linha da lista não pôde ser gravada.";
}

class Fichas : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, PropertySheet& sheet) const override {
        const auto* marca = ZpMarca::cast(&entity);
        if (marca == nullptr) return;
        sheet.group(L"Marca");
        sheet.edit(kMarca, L"Marca", marca->marca().c_str(), nullptr);
        if (const std::optional<Linha> linha = linhaEm(registroDe(marca->objectId())))
            mostraLinha(*linha, sheet);
    }

    bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        const AcDbObjectId registro = registroDe(entity);
        const std::wstring motivo = std::wstring(key) == kMarca ? mudaMarca(entity, registro, value)
                                                                : mudaLinha(registro, key, value);
        if (!motivo.empty()) (void)acutNewString(motivo.c_str(), message);
        return motivo.empty();
    }

    /// The piece counts, not its mark.
    Totals totals(const AcDbEntity&) const override { return {}; }
};

Fichas g_fichas;  // kept by pointer in the class

}  // namespace

void instalaFichas() {
    protocol::attach(ZpMarca::desc(), protocol::kEntityPropertiesClass, g_fichas);
}

void retiraFichas() { protocol::detach(ZpMarca::desc(), protocol::kEntityPropertiesClass); }

}  // namespace zp::lista
