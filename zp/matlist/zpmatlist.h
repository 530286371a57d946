// SPDX-License-Identifier: MIT
// Material list of the drawing: rows, marks and the calls that add them.
#pragma once

#include <string>
#include <vector>

#include "dbid.h"
#include "gepnt3d.h"

/// Buffer that ZpArxGetNextMarca fills, characters with the terminator.
inline constexpr int kZpMarcaMax = 32;

/// Marks given out since the list was opened: a mark is free again when it never reached the list.
class CCountMarca {
public:
    CCountMarca() = default;
    ~CCountMarca();
    CCountMarca(const CCountMarca&) = delete;
    CCountMarca& operator=(const CCountMarca&) = delete;

    std::vector<int> given;
};

/// One row. Lengths in mm, masses in kg, paint area in m2; null texts count as empty.
class Linha {
public:
    Linha(const wchar_t* marca, int quantidade, const wchar_t* descricao, const wchar_t* dimensoes,
          const wchar_t* material, double comprimento, double pesoUnitario, double pesoTotal,
          double areaPintura, const wchar_t* observacao);
    ~Linha();

    /// Ties the row to a drawing entity.
    void AddObjId(AcDbSoftPointerId& id);

    std::wstring marca;
    int quantidade;
    std::wstring descricao;
    std::wstring dimensoes;
    std::wstring material;
    double comprimento;
    double pesoUnitario;
    double pesoTotal;
    double areaPintura;
    std::wstring observacao;
    std::vector<AcDbSoftPointerId> ids;
};

/// Finds the list of the group in the working drawing, or makes one; with several asks which.
/// `lista` its number from 1, `listaId` its record, `estado` 0 for an existing list and 1 for a new
/// one. `tipo`, the number of pieces, becomes at least 1. 0 when the user declined.
int ZpArxConnectLista(int& lista, AcDbObjectId& listaId, int& estado, wchar_t* grupo,
                      CCountMarca& counter, int& tipo);

/// Opens the list for adding; `ponto` is where its table would stand. Quantity, total mass and
/// paint area of every row added until ZpArxCloseLista are multiplied by `tipo`. 0 on failure.
int ZpArxOpenLista(int lista, AcDbObjectId& listaId, int estado, wchar_t* grupo, int tipo,
                   CCountMarca& counter, AcGePoint3d& ponto);

/// Lowest free mark ("P1", "P2", ...) into a buffer of kZpMarcaMax. 0 without an open list.
int ZpArxGetNextMarca(wchar_t* marca);

/// Draws a mark with a leader from `ponta` to its text at `texto`, on the layer of "MARCA".
/// `marcaId` is null when it could not be drawn.
void ZpArxAddMarca(AcGePoint3d ponta, AcGePoint3d texto, wchar_t* marca, AcDbObjectId& marcaId);

/// 0 without an open list or when it cannot be written.
int ZpArxAddToLista(Linha& linha);

void ZpArxCloseLista();
