// SPDX-License-Identifier: MIT
// Questions: steps inside one answer, refusals, what counts as an answer.
#include "prancheta/editor/question.h"

#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "support.h"

using namespace prancheta;
using editortest::at;
using editortest::expectPoint;
using editortest::typed;

namespace {

InputRequest request(InputKind kind, std::optional<AcGePoint3d> base = {}, int flags = 0) {
    InputRequest r;
    r.kind = kind;
    r.base = base;
    r.flags = flags;
    return r;
}

class QuestionTest : public testing::Test {
protected:
    /// Types the lines into one question; the last reading is given back.
    Reading type(InputRequest r, std::initializer_list<const wchar_t*> lines) {
        Question question(std::move(r));
        Reading reading;
        for (const wchar_t* line : lines) {
            reading = question.give(typed(line), frame);
            prompt = question.current().prompt;
        }
        return reading;
    }
    static bool refused(const Reading& r) { return r.kind == Reading::Kind::Refused; }
    static bool normal(const Reading& r) {
        return r.kind == Reading::Kind::Answered && r.value.status == RTNORM;
    }

    InputFrame frame;
    std::wstring prompt;
    const AcGePoint3d base{10, 10, 0};
};

TEST_F(QuestionTest, directDistanceFollowsTheRubberBand) {
    expectPoint(type(request(InputKind::Point, base), {L"50"}).value.point, 60, 10);
    expectPoint(type(request(InputKind::Point, base), {L"<90", L"50"}).value.point, 10, 60);
    frame.pointer = AcGePoint3d(13, 14, 0);
    expectPoint(type(request(InputKind::Point, base), {L"50"}).value.point, 40, 50);
    frame.ortho = true;
    expectPoint(type(request(InputKind::Point, base), {L"50"}).value.point, 10, 60);
    const AcGePoint3d raised(10, 10, 5);
    expectPoint(type(request(InputKind::Point, raised), {L"50"}).value.point, 10, 60, 5);
    // Turned by 45 degrees the axes point to (1, 1) and (-1, 1): 3-4 is nearer to the first.
    frame.snapAngle = kPi / 4;
    const double leg = 50 * std::sqrt(0.5);
    expectPoint(type(request(InputKind::Point, base), {L"50"}).value.point, 10 + leg, 10 + leg);
    InputRequest free = request(InputKind::Drag, base);
    free.orthoAllowed = false;
    expectPoint(type(free, {L"50"}).value.point, 40, 50);
    const Reading noBase = type(request(InputKind::Point), {L"50"});
    EXPECT_TRUE(refused(noBase));
    EXPECT_EQ(noBase.message, L"Ponto inválido.");
}

TEST_F(QuestionTest, lockedDirectionTakesPicksAlong) {
    Question question(request(InputKind::Point, base));
    EXPECT_EQ(question.give(typed(L"<0"), frame).kind, Reading::Kind::Again);
    expectPoint(question.give(at(RawInput::Kind::Pick, 70, 99), frame).value.point, 70, 10);
}

TEST_F(QuestionTest, distances) {
    EXPECT_EQ(type(request(InputKind::Distance), {L"2.5"}).value.number, 2.5);
    EXPECT_EQ(type(request(InputKind::Distance, base), {L"13,14"}).value.number, 5.0);
    EXPECT_EQ(type(request(InputKind::Distance), {L"0,0", L"3,4"}).value.number, 5.0);
    EXPECT_EQ(prompt, L"\nEspecifique o segundo ponto: ");
    EXPECT_EQ(
        type(request(InputKind::Distance, AcGePoint3d(0, 0, 9), RSG_2D), {L"3,4"}).value.number,
        5.0);
    for (const wchar_t* text : {L"abc", L"1,5,6,7"}) {
        const Reading bad = type(request(InputKind::Distance), {text});
        ASSERT_TRUE(refused(bad));
        EXPECT_EQ(bad.message, L"Requer distância numérica ou dois pontos.");
    }
    EXPECT_TRUE(refused(type(request(InputKind::Distance, base, RSG_NOZERO), {L"0"})));
    EXPECT_TRUE(refused(type(request(InputKind::Distance, base, RSG_NOZERO), {L"10,10"})));
    EXPECT_TRUE(refused(type(request(InputKind::Distance, base, RSG_NONEG), {L"-1"})));
}

TEST_F(QuestionTest, angles) {
    EXPECT_NEAR(type(request(InputKind::Angle, base), {L"90"}).value.number, kPi / 2, 1e-15);
    EXPECT_NEAR(type(request(InputKind::Angle, base), {L"10,0"}).value.number, 1.5 * kPi, 1e-15);
    EXPECT_NEAR(type(request(InputKind::Angle), {L"0,0", L"0,5"}).value.number, kPi / 2, 1e-15);
    EXPECT_EQ(type(request(InputKind::Angle), {L"x"}).message,
              L"Requer um ângulo válido ou segundo ponto.");
    frame.angleBase = kPi / 2;
    EXPECT_NEAR(type(request(InputKind::Angle, base), {L"30"}).value.number, kPi / 6, 1e-15);
    EXPECT_NEAR(type(request(InputKind::Angle, base), {L"10,20"}).value.number, 0.0, 1e-15);
    InputRequest absolute = request(InputKind::Angle, base);
    absolute.absoluteAngle = true;
    EXPECT_NEAR(type(absolute, {L"30"}).value.number, 2 * kPi / 3, 1e-15);
    EXPECT_NEAR(type(absolute, {L"10,20"}).value.number, kPi / 2, 1e-15);
}

TEST_F(QuestionTest, stepsInsideAPoint) {
    expectPoint(type(request(InputKind::Point), {L"_m2p", L"0,0", L"10,20"}).value.point, 5, 10);
    expectPoint(type(request(InputKind::Point), {L"_from", L"100,100", L"@5,0"}).value.point, 105,
                100);
    expectPoint(type(request(InputKind::Point), {L".x", L"7,8", L"1,2,3"}).value.point, 7, 2, 3);
    expectPoint(type(request(InputKind::Point), {L".xy", L"7,8", L"1,2,3"}).value.point, 7, 8, 3);
    // Inside one another: the base of the offset is a middle.
    expectPoint(
        type(request(InputKind::Point), {L"_from", L"_m2p", L"0,0", L"10,0", L"@0,3"}).value.point,
        5, 3);
    EXPECT_TRUE(refused(type(request(InputKind::Point), {L"_m2p", L""})));
}

TEST_F(QuestionTest, lastPointFollowsAcceptedPointsOnly) {
    (void)type(request(InputKind::Point), {L"3,4"});
    expectPoint(frame.lastPoint, 3, 4);
    (void)type(request(InputKind::Distance, base), {L"99"});
    expectPoint(frame.lastPoint, 3, 4);
    (void)type(request(InputKind::Point), {L"bobagem"});
    expectPoint(frame.lastPoint, 3, 4);
    (void)type(request(InputKind::Distance), {L"5,6", L"@1,1"});
    expectPoint(frame.lastPoint, 6, 7);
}

TEST_F(QuestionTest, snapWordsActOnOnePoint) {
    int asked = 0;
    std::optional<AcGePoint3d> from;
    frame.snap = [&](const AcGePoint3d& p, int modes, SnapReach,
                     const std::optional<AcGePoint3d>& start) -> std::optional<AcGePoint3d> {
        asked = modes;
        from = start;
        return p.x < 50 ? std::optional(AcGePoint3d(0, 0, 0)) : std::nullopt;
    };
    expectPoint(type(request(InputKind::Point), {L"_end,_int", L"3,3"}).value.point, 0, 0);
    EXPECT_EQ(asked, 1 + 32);
    EXPECT_FALSE(from.has_value());
    (void)type(request(InputKind::Point, AcGePoint3d(8, 9, 0)), {L"_per", L"3,3"});
    expectPoint(from.value(), 8, 9);
    (void)type(request(InputKind::Distance), {L"70,7", L"_per", L"3,3"});
    expectPoint(from.value(), 70, 7);
    EXPECT_TRUE(refused(type(request(InputKind::Point), {L"_mid", L"70,0"})));
    expectPoint(type(request(InputKind::Point), {L"3,3"}).value.point, 3, 3);
    frame.runningSnaps =
        4;  // a program's input: running snaps act, and give way where there is none
    expectPoint(type(request(InputKind::Point), {L"3,3"}).value.point, 0, 0);
    expectPoint(type(request(InputKind::Point), {L"70,3"}).value.point, 70, 3);
    expectPoint(type(request(InputKind::Point), {L"_non", L"3,3"}).value.point, 3, 3);
}

TEST_F(QuestionTest, parallelsCannotBeTyped) {
    Question question(request(InputKind::Point, base));
    const Reading parallel = question.give(typed(L"_par"), frame);
    ASSERT_TRUE(refused(parallel));
    EXPECT_NE(parallel.message.find(L"Paralelo"), std::wstring::npos);
    expectPoint(question.give(typed(L"3,3"), frame).value.point, 3, 3);
}

TEST_F(QuestionTest, runningSnapsDoNotMoveWhatIsPicked) {
    frame.snap = [](const AcGePoint3d&, int, SnapReach, const std::optional<AcGePoint3d>&) {
        return std::optional(AcGePoint3d(0, 0, 0));
    };
    frame.runningSnaps = 1;
    expectPoint(type(request(InputKind::Selection), {L"3,4"}).value.point, 3, 4);
}

TEST_F(QuestionTest, enterEscapeAndWords) {
    EXPECT_EQ(type(request(InputKind::Point), {L""}).value.status, RTNONE);
    EXPECT_TRUE(refused(type(request(InputKind::Point, {}, RSG_NONULL), {L""})));
    EXPECT_TRUE(refused(type(request(InputKind::Distance), {L"0,0", L""})));
    Question question(request(InputKind::Point));
    EXPECT_EQ(question.give(at(RawInput::Kind::Cancel, 0, 0), frame).value.status, RTCAN);
    EXPECT_EQ(Question(request(InputKind::Point)).give(RawInput(), frame).value.status, RTCAN);

    InputRequest words = request(InputKind::Point);
    words.keywords = {{L"Desfazer", L"Undo"}};
    EXPECT_EQ(type(words, {L"d"}).value.text, L"Undo");
    EXPECT_TRUE(refused(type(words, {L"x"})));
    words.flags = RSG_OTHER;
    EXPECT_EQ(type(words, {L"qualquer"}).value.status, RTKWORD);
    EXPECT_TRUE(normal(type(words, {L"1,2"})));

    const Reading keyword = type(request(InputKind::Keyword), {L"x"});
    EXPECT_TRUE(refused(keyword));
    EXPECT_EQ(type(request(InputKind::Integer), {L"1.5"}).message, L"Requer um inteiro.");
    EXPECT_TRUE(refused(type(request(InputKind::Integer), {L"40000"})));
    EXPECT_EQ(type(request(InputKind::Integer), {L"-3"}).value.number, -3.0);
}

TEST_F(QuestionTest, textKeepsItsBlanksWhenAllowed) {
    InputRequest line = request(InputKind::Text);
    line.blanksAllowed = true;
    EXPECT_EQ(type(line, {L"duas palavras "}).value.text, L"duas palavras ");
    EXPECT_EQ(type(request(InputKind::Text), {L"duas palavras"}).value.text, L"duas");
    EXPECT_EQ(type(request(InputKind::Text), {L""}).value.status, RTNONE);
}

}  // namespace
