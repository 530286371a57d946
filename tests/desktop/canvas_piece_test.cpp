// SPDX-License-Identifier: MIT
// A steel piece under grips: its length and its dimension follow the pointer.
#include "dbdim.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/editor/modules.h"
#include "tests/desktop/canvas_fixture.h"

namespace {

constexpr double kRight = 1.5707963267948966;

class Piece : public canvastest::CanvasTest {
protected:
    Piece() {
        const auto loaded = editor->modules().load(HOUSE_BINARY_DIR "/bin/ZpObjects18.arx");
        EXPECT_TRUE(loaded);
        piece =
            add(new ZpUDobrado(AcGePoint3d(100, 300, 0), AcGePoint3d(400, 300, 0),
                               ZpObject::kVistaDireita, 100, 40, 40, 3, 3, kRight, kRight, 0, 15));
        // Length below the piece.
        dimension = add(new AcDbAlignedDimension(AcGePoint3d(100, 250, 0), AcGePoint3d(400, 250, 0),
                                                 AcGePoint3d(250, 200, 0)));
        AcDbObjectPointer<ZpObject> opened(piece, AcDb::kForWrite);
        EXPECT_EQ(opened->LinkDim(dimension), Acad::eOk);
    }
    double length() const {
        return AcDbObjectPointer<ZpObject>(piece, AcDb::kForRead)->getComprimentoReal();
    }
    double measured() const {
        return AcDbObjectPointer<AcDbAlignedDimension>(dimension, AcDb::kForRead)->measurement();
    }

    AcDbObjectId piece;
    AcDbObjectId dimension;
};

TEST_F(Piece, stretchingTheEndChangesLengthAndDimensionInOneStepOfUndo) {
    ASSERT_NEAR(length(), 300.0, 1e-9);
    QImage waiting, pulled;
    click(250, 345);  // the upper edge
    moveTo(60, 60);
    click(400, 300);
    then([&] { ASSERT_EQ(editor->runner().activeName(), L"GRIPS"); });
    moveTo(410, 300);
    then([&] { waiting = canvas.grab().toImage(); });
    moveTo(700, 300);
    then([&] { pulled = canvas.grab().toImage(); });
    type(L"@250,0");
    then([&] {
        EXPECT_NEAR(length(), 550.0, 1e-9);
        EXPECT_NEAR(measured(), 550.0, 1e-9);
    });
    type(L"_U");
    run();
    EXPECT_NEAR(length(), 300.0, 1e-9);
    EXPECT_NEAR(measured(), 300.0, 1e-9);
    // The preview's upper edge runs on beyond the old end.
    int changed = 0;
    for (int x = 420; x < 690; ++x) {
        const QPoint at = (QPointF(pixel(x, 350)) * waiting.devicePixelRatio()).toPoint();
        changed += waiting.pixel(at) != pulled.pixel(at) ? 1 : 0;
    }
    EXPECT_GT(changed, 200);
}

TEST_F(Piece, movingByTheMiddleGripKeepsTheLength) {
    click(250, 345);
    moveTo(60, 60);
    click(250, 300);
    type(L"@0,-60");
    run();
    EXPECT_NEAR(length(), 300.0, 1e-9);
    AcGePoint3d end;
    ASSERT_EQ(AcDbObjectPointer<ZpObject>(piece, AcDb::kForRead)->EndPoint(end), Acad::eOk);
    EXPECT_NEAR(end.y, 240.0, 1e-9);
}

}  // namespace
