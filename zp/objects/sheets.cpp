// SPDX-License-Identifier: MIT
// Property sheets of pieces: rows, changes, totals.
#include "zp/objects/sheets.h"

#include <cmath>
#include <optional>

#include "acutmem.h"
#include "perfis/entities/zpvigas.h"
#include "protocol/attach.h"
#include "protocol/edit.h"
#include "texts/number.h"
#include "zp/objects/edit.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/labels.h"

namespace zp::fichas {
namespace {

using protocol::PropertySheet;
using texts::withPoint;

constexpr const ACHAR* kComprimento = L"comprimento";
constexpr const ACHAR* kTipoBarra = L"tipo_barra";

struct Funcao {
    int tipo;
    const ACHAR* nome;
};

constexpr Funcao kTipos[] = {
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
constexpr int kCasas = 4;

std::wstring comUnidade(double v, int casas, const wchar_t* unidade) {
    return withPoint(v, casas) + L" " + unidade;
}

void mostra(PropertySheet& s, const ACHAR* chave, const ACHAR* rotulo, const std::wstring& valor) {
    s.show(chave, rotulo, valor.c_str());
}

void grupoPerfil(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Perfil");
    ACHAR perfil[kZpTextoMax];
    ACHAR dimensoes[kZpTextoMax];
    (void)peca.getPerfil(perfil);  // the buffers are there
    (void)peca.getDimensoes(dimensoes);
    s.show(L"perfil", L"Perfil", perfil);
    s.show(L"dimensoes", L"Dimensões", dimensoes);
    s.show(L"classe", L"Classe", secao::descricao(p.classe).nome);
    if (!p.chapa()) {
        const ACHAR* nomes[std::size(kTipos)];
        int atual = -1;
        for (int i = 0; i < static_cast<int>(std::size(kTipos)); ++i) {
            nomes[i] = kTipos[i].nome;
            if (kTipos[i].tipo == p.tipoBarra) atual = i;
        }
        s.choose(kTipoBarra, L"Tipo de barra", atual, static_cast<int>(std::size(kTipos)), nomes);
    }
    s.show(L"vista", L"Vista", kVistas[std::min<std::size_t>(p.vista, 4)]);
}

/// A plate of a laced member has the sizes that the member's rule gives it.
bool segueBarra(const ZpObject& peca) {
    return Acesso::de(peca).chapa() && !edicao::donaDe(peca).isNull();
}

void grupoGeometria(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Geometria");
    const bool fixa = segueBarra(peca);
    const ACHAR* const rotulo = p.chapa() ? L"Altura (d3)" : L"Comprimento (L)";
    if (fixa)
        mostra(s, kComprimento, rotulo, comUnidade(p.comprimento, kCasas, L"mm"));
    else
        s.edit(kComprimento, rotulo, withPoint(p.comprimento, kCasas).c_str(), L"mm");
    for (const Medida& medida : medidas()) {
        const double* const guardado = p.valor(medida.papel);
        if (guardado == nullptr) continue;
        const double v = *guardado * medida.fator;
        const ACHAR* const nome = secao::rotulo(medida.papel, p.classe);
        if (fixa)
            mostra(s, medida.chave, nome, comUnidade(v, kCasas, medida.unidade));
        else
            s.edit(medida.chave, nome, withPoint(v, kCasas).c_str(), medida.unidade);
    }
}

void grupoSecao(const ZpObject& peca, const Peca& p, PropertySheet& s) {
    s.group(L"Propriedades da seção");
    mostra(s, L"massa", L"Peso", comUnidade(peca.getPeso(), 3, L"kg"));
    mostra(s, L"kg_m", L"Peso por metro", comUnidade(peca.getLinearWeight(), 3, L"kg/m"));
    mostra(s, L"area_pintura", L"Área de pintura", comUnidade(peca.getAreaPintura(), 4, L"m²"));
    if (p.chapa()) return;
    const secao::Propriedades& r = p.secao().propriedades();
    mostra(s, L"area", L"Área (A)", comUnidade(peca.getArea() * 1e-2, 3, L"cm²"));
    mostra(s, L"ix", L"Momento de inércia (Ix)", comUnidade(r.ix * 1e-4, 2, L"cm⁴"));
    mostra(s, L"iy", L"Momento de inércia (Iy)", comUnidade(r.iy * 1e-4, 2, L"cm⁴"));
    mostra(s, L"rx", L"Raio de giração (rx)", comUnidade(r.rx * 0.1, 3, L"cm"));
    mostra(s, L"ry", L"Raio de giração (ry)", comUnidade(r.ry * 0.1, 3, L"cm"));
    // The smaller modulus decides.
    mostra(s, L"wx", L"Módulo resistente (Wx)",
           comUnidade(std::min(r.wxSuperior, r.wxInferior) * 1e-3, 2, L"cm³"));
    mostra(s, L"wy", L"Módulo resistente (Wy)",
           comUnidade(std::min(r.wyEsquerdo, r.wyDireito) * 1e-3, 2, L"cm³"));
    mostra(s, L"xg", L"Centroide (xg)", comUnidade(r.xg, 2, L"mm"));
    mostra(s, L"yg", L"Centroide (yg)", comUnidade(r.yg, 2, L"mm"));
}

/// The same piece, in no drawing and tied to nothing.
std::unique_ptr<ZpObject> copiaDe(const ZpObject& peca) {
    std::unique_ptr<ZpObject> copia(ZpObject::cast(peca.isA()->create()));
    if (!copia) return nullptr;
    edicao::copiaValores(Acesso::de(peca), Acesso::de(*copia));
    return copia;
}

std::wstring mudaComprimento(Peca& p, double novo) {
    if (!(novo > 0.0)) return L"O comprimento deve ser maior que zero.";
    p.comprimento = novo;
    if (const int i = p.lugar(secao::Papel::L); i >= 0)
        p.dados[static_cast<std::size_t>(i)] = p.atuais[static_cast<std::size_t>(i)] = novo;
    return {};
}

std::wstring mudaTipo(Peca& p, const std::wstring& texto) {
    const double indice = texts::exactReal(texto).value_or(-1.0);
    if (indice != std::floor(indice) || indice < 0.0 ||
        indice >= static_cast<double>(std::size(kTipos)))
        return L"Escolha um dos tipos de barra da lista.";
    p.tipoBarra = static_cast<std::uint8_t>(kTipos[static_cast<std::size_t>(indice)].tipo);
    return {};
}

/// The reason why not; empty when `p` has the value.
std::wstring aplica(Peca& p, const std::wstring& chave, const std::wstring& texto) {
    if (chave == kTipoBarra && !p.chapa()) return mudaTipo(p, texto);
    const Medida* const medida = medidaDe(chave);
    if (medida == nullptr && chave != kComprimento) return L"Este valor não pode ser editado.";
    const std::optional<double> v = texts::exactReal(texto);
    if (!v) return L"“" + texto + L"” não é um número.";
    return medida != nullptr ? muda(p, *medida, *v / medida->fator) : mudaComprimento(p, *v);
}

/// A text as the sheet shows it changes nothing: it may have fewer digits than the value.
bool jaMostra(const ZpObject& peca, const std::wstring& chave, const std::wstring& texto) {
    const Peca& p = Acesso::de(peca);
    const std::optional<double> v = texts::exactReal(texto);
    if (!v) return false;
    if (chave == kComprimento) return withPoint(p.comprimento, kCasas) == withPoint(*v, kCasas);
    const Medida* const medida = medidaDe(chave);
    const double* const guardado = medida != nullptr ? p.valor(medida->papel) : nullptr;
    return guardado != nullptr &&
           withPoint(*guardado * medida->fator, kCasas) == withPoint(*v, kCasas);
}

class Fichas : public protocol::EntityProperties {
public:
    void list(const AcDbEntity& entity, PropertySheet& sheet) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr) return;
        const Peca& p = Acesso::de(*peca);
        grupoPerfil(*peca, p, sheet);
        grupoGeometria(*peca, p, sheet);
        grupoSecao(*peca, p, sheet);
    }

    bool set(AcDbObjectId entity, const ACHAR* key, const ACHAR* value,
             ACHAR*& message) const override {
        const std::wstring motivo = troca(entity, key, value);
        if (!motivo.empty()) (void)acutNewString(motivo.c_str(), message);
        return motivo.empty();
    }

    Totals totals(const AcDbEntity& entity) const override {
        const auto* peca = ZpObject::cast(&entity);
        if (peca == nullptr || desenhaSecao(*peca)) return {};
        return {1, peca->getPeso(), peca->getAreaPintura()};
    }

private:
    static std::wstring troca(AcDbObjectId id, const std::wstring& chave,
                              const std::wstring& texto) {
        std::unique_ptr<ZpObject> modelo;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) return L"A peça não pode ser aberta.";
            if (segueBarra(*peca.object()))
                return L"A chapa segue a barra que ela trava; edite a barra.";
            if (jaMostra(*peca.object(), chave, texto)) return {};
            modelo = copiaDe(*peca.object());
            if (!modelo) return L"A peça não pode ser copiada.";
            std::wstring motivo = aplica(Acesso::de(*modelo), chave, texto);
            if (motivo.empty()) motivo = edicao::recusaDe(*peca.object(), *modelo);
            if (!motivo.empty()) return motivo;
        }
        edicao::Edicao edicao(id);
        if (edicao.status() == Acad::eOnLockedLayer)
            return L"A camada da peça está bloqueada; desbloqueie-a para editar.";
        if (edicao.status() != Acad::eOk) return L"A peça não pode ser alterada agora.";
        (void)edicao.refaz(*modelo);  // a copy is of the same class
        edicao.termina();
        return {};
    }

    /// A section stands for a member that is drawn, and counted, elsewhere.
    static bool desenhaSecao(const ZpObject& peca) {
        const Peca& p = Acesso::de(peca);
        if (!p.chapa()) return p.emSecao();
        const AcDbObjectPointer<ZpObject> dona(edicao::donaDe(peca), AcDb::kForRead);
        return dona.object() != nullptr && Acesso::de(*dona.object()).emSecao();
    }
};

Fichas g_fichas;  // kept by pointer in the class

}  // namespace

void instala() { protocol::attach(ZpObject::desc(), protocol::kEntityPropertiesClass, g_fichas); }

void retira() {
    protocol::detach(ZpObject::desc(), protocol::kEntityPropertiesClass);
    protocol::retire(protocol::kEntityPropertiesClass);
}

}  // namespace zp::fichas
