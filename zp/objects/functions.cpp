// SPDX-License-Identifier: MIT
// Free functions of the entity library.
#include "perfis/entities/zpfuncoes.h"

#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <numbers>
#include <string>

#include "acedads.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/objects/layers.h"
#include "zp/objects/picture.h"
#include "zp/objects/watch.h"

namespace {

AcDbDatabase* desenhoDeTrabalho() { return acdbHostApplicationServices()->workingDatabase(); }

/// The file as last read; read again when it changes, so that an edited file counts at the next
/// piece.
const std::map<std::wstring, std::wstring>& camadas() {
    static std::filesystem::path arquivo;
    static std::filesystem::file_time_type quando;
    static std::map<std::wstring, std::wstring> lidas;
    const std::filesystem::path atual = zp::arquivoDeCamadas();
    std::error_code erro;
    const auto data = std::filesystem::last_write_time(atual, erro);
    if (atual.native() == arquivo.native() && data == quando) return lidas;
    arquivo = atual;
    quando = data;
    lidas = zp::leCamadas(atual);
    return lidas;
}

void criaCamada(const std::wstring& nome, int cor) {
    AcDbDatabase* desenho = desenhoDeTrabalho();
    if (desenho == nullptr) return;
    {
        const AcDbObjectPointer<AcDbLayerTable> tabela(desenho->layerTableId(), AcDb::kForRead);
        if (tabela.object() == nullptr || tabela->has(nome.c_str())) return;
    }
    const AcDbObjectPointer<AcDbLayerTable> tabela(desenho->layerTableId(), AcDb::kForWrite);
    if (tabela.object() == nullptr) return;
    auto camada = std::make_unique<AcDbLayerTableRecord>();
    if (camada->setName(nome.c_str()) != Acad::eOk) return;
    (void)camada->setColorIndex(static_cast<Adesk::UInt16>(cor));  // one of the constants, 1..255
    (void)camada->setLinetypeObjectId(desenho->continuousLinetype());
    if (tabela->add(camada.get()) == Acad::eOk) (void)camada.release()->close();
}

/// Point of the user in world coordinates.
int pedePonto(AcGePoint3d& ponto, const wchar_t* mensagem, const double* base) {
    const resbuf mundo{nullptr, RTSHORT, {.rint = 0}};
    const resbuf usuario{nullptr, RTSHORT, {.rint = 1}};
    ads_point dado;
    ads_point baseDoUsuario;
    if (base != nullptr && acedTrans(base, &mundo, &usuario, 0, baseDoUsuario) != RTNORM)
        return RTERROR;
    const int status = acedGetPoint(base != nullptr ? baseDoUsuario : nullptr, mensagem, dado);
    if (status != RTNORM) return status;
    return acedTrans(dado, &usuario, &mundo, 0, asDblArray(ponto));
}

}  // namespace

int append(AcDbEntity* entidade, AcDbObjectId& id) {
    AcDbDatabase* desenho = desenhoDeTrabalho();
    if (entidade == nullptr || desenho == nullptr) return RTERROR;
    zp::vigia::observa(desenho);
    const AcDbObjectPointer<AcDbBlockTableRecord> espaco(desenho->currentSpaceId(),
                                                         AcDb::kForWrite);
    if (espaco.object() == nullptr) return RTERROR;
    return espaco->appendAcDbEntity(id, entidade) == Acad::eOk ? RTNORM : RTERROR;
}

wchar_t* ZpLayerToUsr(const wchar_t* nome) {
    // Nodes of a map stay where they are, so the texts handed out stay valid.
    static std::map<std::wstring, std::wstring> dados;
    const std::wstring padrao = nome != nullptr ? nome : L"";
    const auto& lidas = camadas();
    const auto achada = lidas.find(texts::lower(padrao));
    const std::wstring& doUsuario = achada != lidas.end() ? achada->second : padrao;
    std::wstring& texto = dados.try_emplace(doUsuario, doUsuario).first->second;
    criaCamada(texto, zp::corDaCamada(padrao));
    return texto.data();
}

int getWCSpoint(AcGePoint3d& ponto, const wchar_t* mensagem) {
    return pedePonto(ponto, mensagem, nullptr);
}

int getWCSpointWithParam(AcGePoint3d& ponto, const wchar_t* mensagem, double* base) {
    return pedePonto(ponto, mensagem, base);
}

double GetScale() {
    resbuf valor{};
    if (acedGetVar(L"DIMSCALE", &valor) != RTNORM || valor.restype != RTREAL) return 1.0;
    return valor.resval.rreal == 0.0 ? 1.0 : valor.resval.rreal;
}

wchar_t* FormatInString(double valor) {
    static std::array<std::wstring, 8> textos;
    static std::size_t vez = 0;
    std::wstring& texto = textos[vez++ % textos.size()];
    texto = texts::withPoint(valor, 6);
    return texto.data();
}

double sex2rad(double graus) { return graus * std::numbers::pi / 180.0; }
