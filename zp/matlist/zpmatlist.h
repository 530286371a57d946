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

    /// Ties the row to a drawing entity, its mark as a rule.
    void AddObjId(AcDbSoftPointerId& id);
    /// The row stands for this drawn piece, too, and follows it from then on. A profile counts as
    /// often as the list was opened for, a plate as often as its profile.
    void AddPeca(const AcDbObjectId& peca);

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
    std::wstring nome;         ///< of the single shape in the trade; empty: none, or nothing drawn
    std::wstring origemPeso;   ///< where the unit mass comes from; empty: a plate, or nothing drawn
    double pesoLiquido = 0.0;  ///< of all pieces, after the cuts of their ends; 0: nothing drawn
    AcDbObjectId record;       ///< in the drawing; null before it is added
    std::vector<AcDbSoftPointerId> ids;
    std::vector<AcDbObjectId> pecas;   ///< drawn pieces that count
    std::vector<AcDbObjectId> vistas;  ///< further views, which do not
    bool tied = false;                 ///< has pieces, or had some that were erased
};

/// Finds the list of the group in the working drawing, or makes one; with several asks which.
/// `list` its number from 1, `listId` its record, `state` 0 for an existing list and 1 for a new
/// one. `type`, the number of pieces, becomes at least 1. 0 when the user declined.
int ZpArxConnectLista(int& list, AcDbObjectId& listId, int& state, wchar_t* group,
                      CCountMarca& counter, int& type);

/// Opens the list for adding; `point` is where its table would stand. Quantity, total mass and
/// paint area of every row added until ZpArxCloseLista are multiplied by `type`. 0 on failure.
int ZpArxOpenLista(int list, AcDbObjectId& listId, int state, wchar_t* group, int type,
                   CCountMarca& counter, AcGePoint3d& point);

/// Lowest free mark ("P1", "P2", ...) into a buffer of kZpMarcaMax. 0 without an open list.
int ZpArxGetNextMarca(wchar_t* marca);

/// Draws a mark with a leader from `tip` to its text at `text`, on the layer of "MARCA".
/// `marcaId` is null when it could not be drawn.
void ZpArxAddMarca(AcGePoint3d tip, AcGePoint3d text, wchar_t* marca, AcDbObjectId& marcaId);

/// The row's pieces are closed; they belong to it afterwards, and its marks point at the first one.
/// 0 without an open list or when it cannot be written.
int ZpArxAddToLista(Linha& row);

void ZpArxCloseLista();
