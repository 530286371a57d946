// SPDX-License-Identifier: MIT
// Hand-off to the material-list module: one hand-off opens the list, adds its rows and closes it.
#include "perfis/output/material_list.h"

#include <string>

#include "adscodes.h"
#include "perfis/entities/zpchapa.h"
#include "perfis/entities/zpfuncoes.h"
#include "perfis/output/cotas.h"
#include "texts/number.h"
#include "zp/matlist/zpmatlist.h"
#include "zp/trelica/zptrelica.h"

namespace perfis {
namespace {

constexpr const wchar_t* kGroup = L"Perfil";
constexpr const wchar_t* kSteel = L"ACO";
/// How far below the profile the list's table would stand.
constexpr double kListDistance = 100.0;

struct RowTexts {
    std::wstring perfil;
    std::wstring dimensoes;
};

/// The list between its opening and its closing.
class OpenList {
public:
    OpenList() = default;
    OpenList(const OpenList&) = delete;
    OpenList& operator=(const OpenList&) = delete;
    ~OpenList() {
        if (m_open) ZpArxCloseLista();
    }

    bool open(const AcGePoint3d& ponto, double comprimento, int tipo) {
        int lista = 0;
        int estado = 0;
        AcDbObjectId listaId;
        wchar_t grupo[16] = {};
        std::wstring(kGroup).copy(grupo, 15);
        if (ZpArxConnectLista(lista, listaId, estado, grupo, m_counter, tipo) == 0) return false;
        AcGePoint3d tabela(ponto.x, ponto.y - (comprimento + kListDistance), ponto.z);
        m_open = ZpArxOpenLista(lista, listaId, estado, grupo, tipo, m_counter, tabela) != 0;
        return m_open;
    }

private:
    CCountMarca m_counter;
    bool m_open = false;
};

/// Ties the row to its mark and adds it.
bool addRow(Linha& linha, AcDbObjectId marca) {
    AcDbSoftPointerId id(marca);
    linha.AddObjId(id);
    return ZpArxAddToLista(linha) != 0;
}

RowTexts textsOfPeca(const ZpObject& perfil) {
    wchar_t nome[kZpTextoMax] = {};
    wchar_t dimensoes[kZpTextoMax] = {};
    (void)perfil.getPerfil(nome);
    (void)perfil.getDimensoes(dimensoes);
    return {nome, dimensoes};
}

RowTexts textsOfBarraData(AcDbObjectId perfilId) {
    tagZP_GBARRA barra;
    ZpString dimensoes;
    ZpString perfil;
    if (GetXDataEntStObject(perfilId, &barra) != RTNORM) return {};
    GetDimAndPerfText(barra, dimensoes, perfil);
    return {static_cast<const wchar_t*>(perfil), static_cast<const wchar_t*>(dimensoes)};
}

/// Mark and row of the profile. `textY` receives the height of the mark's text.
bool addPerfil(const ZpObject& perfil, const RowTexts& textos, AcDbObjectId& marcaPerfil,
               double& textY) {
    wchar_t marca[kZpMarcaMax] = {};
    if (ZpArxGetNextMarca(marca) == 0) return false;
    AcGePoint3d faces[4];
    perfil.GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    const double offset = kNearLine * GetScale();
    textY = faces[0].y + offset;
    ZpArxAddMarca(faces[0], AcGePoint3d(faces[0].x - offset, textY, 0.0), marca, marcaPerfil);
    Linha linha(marca, 1, textos.perfil.c_str(), textos.dimensoes.c_str(), kSteel,
                perfil.getComprimentoReal(), perfil.getPeso(), perfil.getPeso(),
                perfil.getAreaPintura(), L"");
    return addRow(linha, marcaPerfil);
}

bool addChapas(ChapaRow& plates, double textY) {
    if (plates.count <= 0) return true;
    wchar_t marca[kZpMarcaMax] = {};
    if (ZpArxGetNextMarca(marca) == 0) return false;
    const AcDbObjectPointer<ZpChapa> chapa(plates.plate, AcDb::kForRead);
    if (chapa.openStatus() != Acad::eOk) return false;
    AcGePoint3d faces[4];
    chapa->GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    const double offset = kNearLine * GetScale();
    ZpArxAddMarca(faces[2], AcGePoint3d(faces[2].x + offset, textY, 0.0), marca, plates.mark);
    double largura = 0.0;
    double espessura = 0.0;
    (void)chapa->largura(largura);
    (void)chapa->espessura(espessura);
    const std::wstring dimensoes = std::to_wstring(texts::realToInt(largura)) + L"x" +
                                   std::to_wstring(texts::realToInt(espessura));
    Linha linha(marca, plates.count, L"Chapa", dimensoes.c_str(), kSteel,
                chapa->getComprimentoReal(), chapa->getPeso(), chapa->getPeso() * plates.count,
                plates.count * chapa->getAreaPintura(), L"Travejamento");
    return addRow(linha, plates.mark);
}

enum class TextsFrom { kPeca, kBarraData };

/// Profile row, then the rows of the plates.
int handOver(const AcGePoint3d& ponto, int tipo, AcDbObjectId perfilId, TextsFrom source,
             AcDbObjectId& marcaPerfil, std::initializer_list<ChapaRow*> plates) {
    marcaPerfil.setNull();
    AcDbObjectPointer<ZpObject> perfil(perfilId, AcDb::kForRead);
    if (perfil.openStatus() != Acad::eOk) return RTERROR;
    OpenList lista;
    if (!lista.open(ponto, perfil->getComprimentoReal(), tipo)) return RTCAN;
    const RowTexts textos =
        source == TextsFrom::kPeca ? textsOfPeca(*perfil.object()) : textsOfBarraData(perfilId);
    double textY = 0.0;
    if (!addPerfil(*perfil.object(), textos, marcaPerfil, textY)) return RTCAN;
    (void)perfil.close();
    for (ChapaRow* const row : plates)
        if (!addChapas(*row, textY)) return RTCAN;
    return RTNORM;
}

}  // namespace

int MatListPerfil(AcGePoint3d ponto, int tipo, AcDbObjectId perfilId, AcDbObjectId& marcaPerfil) {
    return handOver(ponto, tipo, perfilId, TextsFrom::kBarraData, marcaPerfil, {});
}

int MatListPerfilChapa(AcGePoint3d ponto, int tipo, AcDbObjectId perfilId,
                       AcDbObjectId& marcaPerfil, AcDbObjectId chapaId, AcDbObjectId& marcaChapa,
                       int nChapas) {
    ChapaRow plates{chapaId, nChapas, AcDbObjectId::kNull};
    const int result = handOver(ponto, tipo, perfilId, TextsFrom::kPeca, marcaPerfil, {&plates});
    marcaChapa = plates.mark;
    return result;
}

int MatListPerfil2Chapas(AcGePoint3d ponto, int tipo, AcDbObjectId perfilId,
                         AcDbObjectId& marcaPerfil, ChapaRow& primeira, ChapaRow& segunda) {
    return handOver(ponto, tipo, perfilId, TextsFrom::kPeca, marcaPerfil, {&primeira, &segunda});
}

int MatListChapas(AcDbObjectId perfilId, int tipo, ChapaRow& chapas) {
    AcDbObjectPointer<ZpObject> perfil(perfilId, AcDb::kForRead);
    if (perfil.openStatus() != Acad::eOk) return RTERROR;
    AcGePoint3d faces[4];
    perfil->GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    OpenList lista;
    if (!lista.open(faces[0], perfil->getComprimentoReal(), tipo)) return RTCAN;
    (void)perfil.close();
    return addChapas(chapas, faces[0].y + kNearLine * GetScale()) ? RTNORM : RTCAN;
}

}  // namespace perfis
