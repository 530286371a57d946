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
#include "zp/objects/edit.h"
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

    bool open(const AcGePoint3d& point, double comprimento, int type) {
        int list = 0;
        int state = 0;
        AcDbObjectId listId;
        wchar_t group[16] = {};
        std::wstring(kGroup).copy(group, 15);
        if (ZpArxConnectLista(list, listId, state, group, m_counter, type) == 0) return false;
        AcGePoint3d table(point.x, point.y - (comprimento + kListDistance), point.z);
        m_open = ZpArxOpenLista(list, listId, state, group, type, m_counter, table) != 0;
        return m_open;
    }

private:
    CCountMarca m_counter;
    bool m_open = false;
};

/// Ties the row to its mark and its piece, which is closed, and adds it; the mark of a row that is
/// refused goes.
bool addRow(Linha& row, AcDbObjectId& marca, AcDbObjectId peca) {
    AcDbSoftPointerId id(marca);
    row.AddObjId(id);
    row.AddPeca(peca);
    if (ZpArxAddToLista(row) != 0) return true;
    const AcDbObjectPointer<AcDbEntity> drawn(marca, AcDb::kForWrite);
    if (drawn.object() != nullptr) (void)drawn->erase();  // open for write and alive
    marca.setNull();
    return false;
}

RowTexts textsOfPeca(const ZpObject& perfil) {
    wchar_t name[kZpTextMax] = {};
    wchar_t dimensoes[kZpTextMax] = {};
    (void)perfil.getPerfil(name);
    (void)perfil.getDimensoes(dimensoes);
    return {name, dimensoes};
}

RowTexts textsOfBarraData(AcDbObjectId perfilId) {
    tagZP_GBARRA barra;
    ZpString dimensoes;
    ZpString perfil;
    if (GetXDataEntStObject(perfilId, &barra) != RTNORM) return {};
    GetDimAndPerfText(barra, dimensoes, perfil);
    return {static_cast<const wchar_t*>(perfil), static_cast<const wchar_t*>(dimensoes)};
}

/// Mark and row of the profile, which is closed then. `textY` receives the height of the mark's
/// text.
bool addPerfil(AcDbObjectPointer<ZpObject>& perfil, const RowTexts& rowTexts,
               const std::wstring& wanted, AcDbObjectId& marcaPerfil, double& textY) {
    wchar_t marca[kZpMarcaMax] = {};
    if (wanted.empty() ? ZpArxGetNextMarca(marca) == 0 : wanted.size() >= kZpMarcaMax) return false;
    wanted.copy(marca, kZpMarcaMax - 1);
    const AcGePoint3d corner = zp::edit::cornersOf(*perfil.object()).f[0];
    const double offset = kNearLine * GetScale();
    textY = corner.y + offset;
    ZpArxAddMarca(corner, AcGePoint3d(corner.x - offset, textY, 0.0), marca, marcaPerfil);
    Linha row(marca, 1, rowTexts.perfil.c_str(), rowTexts.dimensoes.c_str(), kSteel,
              perfil->getComprimentoReal(), perfil->getPeso(), perfil->getPeso(),
              perfil->getAreaPintura(), L"");
    const AcDbObjectId peca = perfil->objectId();
    (void)perfil.close();
    return addRow(row, marcaPerfil, peca);
}

bool addChapas(ChapaRow& chapas, double textY) {
    if (chapas.count <= 0) return true;
    wchar_t marca[kZpMarcaMax] = {};
    if (ZpArxGetNextMarca(marca) == 0) return false;
    AcDbObjectPointer<ZpChapa> chapa(chapas.chapa, AcDb::kForRead);
    if (chapa.openStatus() != Acad::eOk) return false;
    AcGePoint3d faces[4];
    chapa->GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    const double offset = kNearLine * GetScale();
    ZpArxAddMarca(faces[2], AcGePoint3d(faces[2].x + offset, textY, 0.0), marca, chapas.marca);
    double largura = 0.0;
    double espessura = 0.0;
    (void)chapa->largura(largura);
    (void)chapa->espessura(espessura);
    const std::wstring dimensoes = std::to_wstring(texts::realToInt(largura)) + L"x" +
                                   std::to_wstring(texts::realToInt(espessura));
    Linha row(marca, chapas.count, L"Chapa", dimensoes.c_str(), kSteel, chapa->getComprimentoReal(),
              chapa->getPeso(), chapa->getPeso() * chapas.count,
              chapas.count * chapa->getAreaPintura(), L"Travejamento");
    (void)chapa.close();
    return addRow(row, chapas.marca, chapas.chapa);
}

enum class TextsFrom { kPeca, kBarraData };

/// Profile row, then the rows of the plates.
int handOver(const AcGePoint3d& point, int type, AcDbObjectId perfilId, TextsFrom source,
             const std::wstring& marca, AcDbObjectId& marcaPerfil,
             std::initializer_list<ChapaRow*> chapas) {
    marcaPerfil.setNull();
    AcDbObjectPointer<ZpObject> perfil(perfilId, AcDb::kForRead);
    if (perfil.openStatus() != Acad::eOk) return RTERROR;
    OpenList list;
    if (!list.open(point, perfil->getComprimentoReal(), type)) return RTCAN;
    const RowTexts rowTexts =
        source == TextsFrom::kPeca ? textsOfPeca(*perfil.object()) : textsOfBarraData(perfilId);
    double textY = 0.0;
    if (!addPerfil(perfil, rowTexts, marca, marcaPerfil, textY)) return RTCAN;
    for (ChapaRow* const row : chapas)
        if (!addChapas(*row, textY)) return RTCAN;
    return RTNORM;
}

}  // namespace

int MatListPerfil(AcGePoint3d point, int type, AcDbObjectId perfilId, AcDbObjectId& marcaPerfil,
                  const std::wstring& marca) {
    return handOver(point, type, perfilId, TextsFrom::kBarraData, marca, marcaPerfil, {});
}

int MatListPerfilChapa(AcGePoint3d point, int type, AcDbObjectId perfilId,
                       AcDbObjectId& marcaPerfil, AcDbObjectId chapaId, AcDbObjectId& marcaChapa,
                       int nChapas, const std::wstring& marca) {
    ChapaRow chapas{chapaId, nChapas, AcDbObjectId::kNull};
    const int result =
        handOver(point, type, perfilId, TextsFrom::kPeca, marca, marcaPerfil, {&chapas});
    marcaChapa = chapas.marca;
    return result;
}

int MatListPerfil2Chapas(AcGePoint3d point, int type, AcDbObjectId perfilId,
                         AcDbObjectId& marcaPerfil, ChapaRow& first, ChapaRow& second,
                         const std::wstring& marca) {
    return handOver(point, type, perfilId, TextsFrom::kPeca, marca, marcaPerfil, {&first, &second});
}

int MatListChapas(AcDbObjectId perfilId, int type, ChapaRow& chapas) {
    AcDbObjectPointer<ZpObject> perfil(perfilId, AcDb::kForRead);
    if (perfil.openStatus() != Acad::eOk) return RTERROR;
    AcGePoint3d faces[4];
    perfil->GetLimitPointsOfFaces(faces[0], faces[1], faces[2], faces[3]);
    OpenList list;
    if (!list.open(faces[0], perfil->getComprimentoReal(), type)) return RTCAN;
    (void)perfil.close();
    return addChapas(chapas, faces[0].y + kNearLine * GetScale()) ? RTNORM : RTCAN;
}

}  // namespace perfis
