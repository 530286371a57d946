// SPDX-License-Identifier: MIT
// A drawing with the companions loaded, and pieces in it.
#pragma once

#include <cmath>
#include <functional>
#include <map>
#include <numbers>

#include "adslib.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/editor/modules.h"
#include "tests/builtin/script_ui.h"

namespace zp_teste {

inline constexpr double kPi = std::numbers::pi;

class Desenho : public builtin::Builtin {
protected:
    Desenho() {
        for (const char* nome : {"ZpObjects18.arx", "ZP__MaterialList18.arx", "trelica18.arx"}) {
            const auto carregado =
                editor->modules().load(std::filesystem::path(HOUSE_BINARY_DIR) / "bin" / nome);
            EXPECT_TRUE(static_cast<bool>(carregado)) << nome;
        }
    }

    AcDbObjectId poe(AcDbEntity* entidade) {
        AcDbObjectId id;
        EXPECT_EQ(append(entidade, id), RTNORM);
        entidade->close();
        return id;
    }
    /// Plain U 200x75x3 of length L, axis from (x, y) to the right.
    AcDbObjectId u(double x, double y, double L,
                   ZpObject::ZpVistas vista = ZpObject::kVistaDireita) {
        return poe(new ZpUDobrado(AcGePoint3d(x, y, 0), vista, 200, 75, 75, 3, 3, 0.5 * kPi,
                                  0.5 * kPi, L, 0, 0, 0));
    }
    AcDbObjectId cota(double x1, double y1, double x2, double y2, double lx, double ly) {
        return poe(new AcDbAlignedDimension(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0),
                                            AcGePoint3d(lx, ly, 0)));
    }
    AcDbObjectId chapa(double x, double y, double d1, double d3) {
        return poe(
            new ZpChapa(AcGePoint3d(x, y, 0), ZpObject::kVistaEsquerda, d1, 8, d3, 0, -0.5 * kPi));
    }
    template <class F>
    void muda(AcDbObjectId id, F f) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
        ASSERT_EQ(peca.openStatus(), Acad::eOk);
        f(*peca.object());
    }
    AcGePoint3d face(AcDbObjectId id, int qual) {
        AcGePoint3d f[4];
        const builtin::Read<ZpObject> peca(id);
        peca->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        return f[qual];
    }
    /// Measured points and line of a dimension.
    void esperaCota(AcDbObjectId id, double x1, double y1, double x2, double y2, double lx,
                    double ly) {
        const builtin::Read<AcDbAlignedDimension> c(id);
        if (c.object() == nullptr) return;
        esperaPonto(c->xLine1Point(), x1, y1);
        esperaPonto(c->xLine2Point(), x2, y2);
        esperaPonto(c->dimLinePoint(), lx, ly);
    }
    static void esperaPonto(const AcGePoint3d& p, double x, double y) {
        EXPECT_NEAR(p.x, x, 1e-8);
        EXPECT_NEAR(p.y, y, 1e-8);
    }
    /// How many entities of this class are in the drawing.
    template <class T>
    std::size_t conta() const {
        std::size_t n = 0;
        for (const AcDbObjectId& id : entities())
            n += id.objectClass()->isDerivedFrom(T::desc()) ? 1u : 0u;
        return n;
    }
};

}  // namespace zp_teste
