// SPDX-License-Identifier: MIT
// A drawing whose pieces enter the material list as those of drawing commands do.
#pragma once

#include "tests/zp/drawing.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/table.h"
#include "zp/matlist/zpmarca.h"

namespace zp_tests {

class MaterialListTest : public Drawing {
protected:
    /// As a drawing command enters one piece: `type` pieces, plates when there are any. A row
    /// without a drawn piece is what it was told to be.
    int enter(int type, int chapas = 0, AcDbObjectId peca = {}) {
        CCountMarca counter;
        int list = 0;
        int state = 0;
        AcDbObjectId id;
        if (ZpArxConnectLista(list, id, state, group, counter, type) == 0) return 0;
        AcGePoint3d point(0, -600, 0);
        if (ZpArxOpenLista(list, id, state, group, type, counter, point) == 0) return 0;
        wchar_t marca[kZpMarcaMax];
        for (int i = 0; i < (chapas > 0 ? 2 : 1); ++i) {
            if (ZpArxGetNextMarca(marca) == 0) return 0;
            AcDbObjectId marcaId;
            ZpArxAddMarca(AcGePoint3d(0, 100, 0), AcGePoint3d(-10, 110, 0), marca, marcaId);
            EXPECT_FALSE(marcaId.isNull());
            Linha row = i == 0
                            ? Linha(marca, 1, L"U", L"200x75x3", L"ACO", 500, 4, 4, 0.34, nullptr)
                            : Linha(marca, chapas, L"Chapa", L"200x8", L"ACO", 120, 1.5,
                                    1.5 * chapas, 0.05 * chapas, L"Travejamento");
            AcDbSoftPointerId linked(marcaId);
            row.AddObjId(linked);
            if (i == 0) row.AddPeca(peca);
            if (ZpArxAddToLista(row) == 0) return 0;
        }
        ZpArxCloseLista();
        last = list;
        return 1;
    }
    std::vector<zp::matlist::MaterialList> materialLists() {
        return zp::matlist::materialLists(editor->database());
    }
    std::vector<Linha> rows(std::size_t index = 0) {
        return materialLists().size() > index ? zp::matlist::rows(materialLists()[index].id)
                                              : std::vector<Linha>();
    }
    std::vector<std::wstring> marcas() {
        std::vector<std::wstring> m;
        for (const Linha& l : rows()) m.push_back(l.marca);
        return m;
    }
    zp::matlist::Listing listing() { return zp::matlist::listingOf(materialLists().at(0)); }
    double totalMass() { return zp::matlist::totalOf(listing(), 7); }
    int last = 0;
    wchar_t group[7] = L"Perfil";
};

}  // namespace zp_tests
