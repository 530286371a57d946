// SPDX-License-Identifier: MIT
// Dragging an entity.
#include "dbjig.h"
#include "support.h"

using namespace prancheta;
using editortest::at;
using editortest::typed;

namespace {

/// Stretches a line from its start, as a module's jig does: a position that it has seen is no
/// change.
class LineJig : public AcEdJig {
public:
    explicit LineJig(AcDbLine* line) : m_line(line) {}
    DragStatus sampler() override {
        setUserInputControls(static_cast<UserInputControls>(controls));
        const DragStatus status = acquirePoint(m_now, m_line->startPoint());
        if (status == kNormal && m_now == seen) return kNoChange;
        seen = m_now;
        return status;
    }
    Adesk::Boolean update() override {
        ++updates;
        m_line->setEndPoint(m_now);
        return Adesk::kTrue;
    }
    AcDbEntity* entity() const override { return m_line; }

    int controls = kNoZeroResponseAccepted | kNoNegativeResponseAccepted;
    int updates = 0;
    AcGePoint3d seen;

private:
    AcDbLine* m_line;
    AcGePoint3d m_now;
};

class DragTest : public editortest::EditorTest {
protected:
    /// Drags a line from (10, 10) with these inputs.
    AcEdJig::DragStatus drag(std::deque<RawInput> inputs, int controls = 0x60) {
        entity = new AcDbLine(AcGePoint3d(10, 10, height), AcGePoint3d(10, 10, height));
        jig = std::make_unique<LineJig>(entity);
        jig->controls = controls;
        jig->seen = seen;
        jig->setDispPrompt(L"\nPonto %s: ", L"final");
        ui.inputs = std::move(inputs);
        return jig->drag();
    }
    ~DragTest() override {
        if (entity != nullptr && entity->database() == nullptr) delete entity;
    }

    AcDbLine* entity = nullptr;
    AcGePoint3d seen;
    double height = 0.0;  ///< of the start
    std::unique_ptr<LineJig> jig;
};

TEST_F(DragTest, movesPickAndAppend) {
    EXPECT_EQ(drag({at(RawInput::Kind::Move, 20, 10), at(RawInput::Kind::Move, 20, 10),
                    at(RawInput::Kind::Move, 30, 10), at(RawInput::Kind::Pick, 40, 10)}),
              AcEdJig::kNormal);
    EXPECT_EQ(jig->updates, 3);  // the second move was no change
    editortest::expectPoint(entity->endPoint(), 40, 10);
    editortest::expectPoint(editor->lastPoint(), 40, 10);
    EXPECT_EQ(ui.requests.front().kind, InputKind::Drag);
    EXPECT_EQ(ui.requests.front().prompt, L"\nPonto final: ");
    EXPECT_EQ(ui.requests.front().dragged, entity);
    EXPECT_FALSE(ui.requests.front().orthoAllowed);
    EXPECT_EQ(kinds({"pede", "resposta"}), "pede resposta");
    const AcDbObjectId id = jig->append();
    EXPECT_FALSE(id.isNull());
    EXPECT_EQ(entityCount(), 1u);
    EXPECT_FALSE(entity->isWriteEnabled());
}

TEST_F(DragTest, typedEnds) {
    EXPECT_EQ(drag({typed(L"25")}), AcEdJig::kNormal);
    editortest::expectPoint(entity->endPoint(), 35, 10);
    delete entity;
    editor->setLastPoint(AcGePoint3d(10, 10, 0));
    EXPECT_EQ(drag({typed(L"@250<90")}), AcEdJig::kNormal);
    editortest::expectPoint(entity->endPoint(), 10, 260);
}

TEST_F(DragTest, onlyATypedHeightIsRefusedInThePlane) {
    height = 50;
    editor->setLastPoint(AcGePoint3d(10, 10, 50));
    EXPECT_EQ(drag({typed(L"1,2,3"), typed(L"@1,2,3"), typed(L"@5<90,3"), typed(L"@200,0")}),
              AcEdJig::kNormal);
    EXPECT_EQ(ui.complaints.size(), 3u);
    editortest::expectPoint(entity->endPoint(), 210, 10, 50);
    delete entity;
    EXPECT_EQ(drag({typed(L"25")}), AcEdJig::kNormal);
    editortest::expectPoint(entity->endPoint(), 35, 10, 50);
}

TEST_F(DragTest, theLastPositionCountsWhenItWasSeenBefore) {
    seen = AcGePoint3d(70, 10, 0);
    EXPECT_EQ(drag({typed(L"70,10")}), AcEdJig::kNormal);
    editortest::expectPoint(entity->endPoint(), 70, 10);
}

TEST_F(DragTest, escapeCancelsAndEnterIsNoAnswer) {
    EXPECT_EQ(drag({typed(L""), typed(L"1,2,3"), at(RawInput::Kind::Cancel, 0, 0)}),
              AcEdJig::kCancel);
    EXPECT_EQ(ui.complaints.size(), 2u);
    EXPECT_EQ(jig->updates, 0);
    delete entity;
    EXPECT_EQ(drag({}), AcEdJig::kCancel);
    delete entity;
    EXPECT_EQ(drag({typed(L"")}, AcEdJig::kNullResponseAccepted), AcEdJig::kNull);
    delete entity;
    EXPECT_EQ(drag({typed(L"1,2,3")}, AcEdJig::kAccept3dCoordinates), AcEdJig::kNormal);
}

}  // namespace
