// SPDX-License-Identifier: MIT
// What a person types, read against a last point and a user system.
#include "prancheta/editor/typed_input.h"

#include <gtest/gtest.h>

#include <cmath>

#include "prancheta/geometry/angles.h"
#include "support.h"

using namespace prancheta;
using editortest::expectPoint;

namespace {

using Kind = TypedPoint::Kind;

TEST(TypedPoint, everySyntax) {
    InputFrame frame;
    frame.lastPoint = AcGePoint3d(100, 50, 2);
    struct Row {
        const wchar_t* text;
        double x, y, z;
    };
    const double half = std::sqrt(0.5);
    const Row rows[] = {
        {L"10,20", 10, 20, 0},
        {L"10,20,5", 10, 20, 5},
        {L"-.5,+1e3", -0.5, 1000, 0},
        {L"1/2,3/4", 0.5, 0.75, 0},
        {L"1,5", 1, 5, 0},  // the comma never is a decimal sign
        {L"@", 100, 50, 2},
        {L"@10,20", 110, 70, 2},
        {L"@10,20,-2", 110, 70, 0},
        {L"@50<90", 100, 100, 2},
        {L"@-50<90", 100, 0, 2},
        {L"50<180", -50, 0, 0},
        {L"10<405", 10 * half, 10 * half, 0},
        {L"@10<0,7", 110, 50, 9},
        {L"10<90<45", 0, 10 * half, 10 * half},
        {L"10<45d", 10 * half, 10 * half, 0},
        {L"10<100g", 0, 10, 0},
        {L"#10,20", 10, 20, 0},
        {L"*10,20", 10, 20, 0},
        {L"  10,20 ", 10, 20, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(toUtf8(row.text));
        const TypedPoint point = readPoint(row.text, frame);
        ASSERT_EQ(point.kind, Kind::Point);
        expectPoint(point.world, row.x, row.y, row.z);
    }
}

TEST(TypedPoint, refusesWhatIsNoPoint) {
    for (const wchar_t* text :
         {L"", L"abc", L"1,", L",1", L"1,2,3,4", L"1 2", L"10<", L"<", L"@5", L"1,x", L"1.2.3",
          L"10<20<30,5", L"inf,0", L"nan", L"1e999,0", L"1/0,0", L"@@1,2", L"10<<<<5"})
        EXPECT_EQ(readPoint(text, {}).kind, Kind::None) << toUtf8(text);
}

TEST(TypedPoint, numbersAndDirectionsAreToldApart) {
    const TypedPoint distance = readPoint(L"50", {});
    EXPECT_EQ(distance.kind, Kind::Distance);
    EXPECT_EQ(distance.number, 50.0);
    InputFrame turned;
    turned.angleBase = kPi / 2;
    turned.clockwise = true;
    const TypedPoint direction = readPoint(L"<30", turned);
    EXPECT_EQ(direction.kind, Kind::Direction);
    EXPECT_NEAR(direction.number, kPi / 3, 1e-15);
    // Two signs ignore base and direction of angles.
    EXPECT_NEAR(readPoint(L"<<30", turned).number, kPi / 6, 1e-15);
    expectPoint(readPoint(L"10<90", turned).world, 10, 0);
}

TEST(TypedPoint, userSystem) {
    InputFrame frame;
    // User x points up, user y to the left, origin at (1000, 0).
    frame.ucs.setCoordSystem(AcGePoint3d(1000, 0, 0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis,
                             AcGeVector3d::kZAxis);
    frame.lastPoint = AcGePoint3d(5, 0, 0);
    expectPoint(readPoint(L"10,20", frame).world, 980, 10);
    expectPoint(readPoint(L"@10<90", frame).world, 990, 5);
    expectPoint(readPoint(L"*10,20", frame).world, 10, 20);
    expectPoint(readPoint(L"@*10,20", frame).world, 1010, 25);
}

TEST(TypedNumber, anglesAndIntegers) {
    EXPECT_NEAR(*readAngle(L"45", 0), kPi / 4, 1e-15);
    EXPECT_NEAR(*readAngle(L"-90", 0), -kPi / 2, 1e-15);
    EXPECT_NEAR(*readAngle(L"<45", 0), kPi / 4, 1e-15);
    EXPECT_NEAR(*readAngle(L"50", 2), kPi / 4, 1e-15);
    EXPECT_NEAR(*readAngle(L"1.5", 3), 1.5, 0.0);
    EXPECT_NEAR(*readAngle(L"1.5r", 0), 1.5, 0.0);
    EXPECT_NEAR(*readAngle(L"-30d30'36\"", 0), -30.51 * kPi / 180, 1e-15);
    for (const wchar_t* text : {L"", L"x", L"45x", L"45d30", L"45d30'x", L"1,5", L"45rr"})
        EXPECT_FALSE(readAngle(text, 0)) << toUtf8(text);
    EXPECT_EQ(readInteger(L"-7"), -7);
    for (const wchar_t* text : {L"1.5", L"1e3", L"", L"-", L"99999999999"})
        EXPECT_FALSE(readInteger(text)) << toUtf8(text);
    EXPECT_EQ(readHandent(L"(handent \"2a\")"), 0x2Au);
    EXPECT_EQ(readHandent(L"(handent \"\")"), 0u);
    EXPECT_EQ(readHandent(L"(entlast)"), 0u);
}

std::wstring matched(std::wstring_view text, const std::vector<Keyword>& words) {
    const Keyword* k = matchKeyword(text, words);
    return k != nullptr ? k->global : L"";
}

TEST(Keywords, capitalsAbbreviateAndUnderscoreMeansGlobal) {
    const std::vector<Keyword> words = {{L"Copiar", L"Copy"},
                                        {L"mOdo", L"mOde"},
                                        {L"LIGar", L"ON"},
                                        {L"COR", L"Color"},
                                        {L"2P", L"2P"}};
    EXPECT_EQ(matched(L"c", words), L"Copy");
    EXPECT_EQ(matched(L"cop", words), L"Copy");
    EXPECT_EQ(matched(L"cor", words), L"Color");
    EXPECT_EQ(matched(L"_C", words), L"Copy");
    EXPECT_EQ(matched(L"o", words), L"mOde");
    EXPECT_EQ(matched(L"modo", words), L"mOde");
    EXPECT_EQ(matched(L"m", words), L"");
    EXPECT_EQ(matched(L"LI", words), L"");
    EXPECT_EQ(matched(L"lig", words), L"ON");
    EXPECT_EQ(matched(L"_on", words), L"ON");
    EXPECT_EQ(matched(L"_ligar", words), L"");
    EXPECT_EQ(matched(L"2p", words), L"2P");
    EXPECT_EQ(matched(L"copiarx", words), L"");
}

TEST(Keywords, wholeWordsCountBeforeBeginningsAndLocalOnesBeforeGlobalOnes) {
    const std::vector<Keyword> words = {
        {L"Meio", L"Middle"}, {L"ME", L"ML"}, {L"Tudo", L"All"}, {L"Atual", L"T"}};
    EXPECT_EQ(matched(L"me", words), L"ML");
    EXPECT_EQ(matched(L"mei", words), L"Middle");
    EXPECT_EQ(matched(L"m", words), L"Middle");
    EXPECT_EQ(matched(L"_ml", words), L"ML");
    EXPECT_EQ(matched(L"t", words), L"All");
    EXPECT_EQ(matched(L"_t", words), L"T");
    EXPECT_EQ(matched(L"", words), L"");
}

TEST(Keywords, accentsMayBeMissing) {
    const std::vector<Keyword> words = {
        {L"Prévio", L"Previous"}, {L"Ângulo", L"Turn"}, {L"Secao", L"Plain"}, {L"Seção", L"Cut"}};
    EXPECT_EQ(matched(L"PREVIO", words), L"Previous");
    EXPECT_EQ(matched(L"ang", words), L"Turn");
    EXPECT_EQ(matched(L"_ang", words), L"");
    EXPECT_EQ(matched(L"seção", words), L"Cut");
    EXPECT_EQ(matched(L"secao", words), L"Plain");
}

TEST(Keywords, listOfInitGet) {
    const std::vector<Keyword> both = readKeywordList(L"Sim Não _Yes No");
    ASSERT_EQ(both.size(), 2u);
    EXPECT_EQ(both[0].local, L"Sim");
    EXPECT_EQ(both[0].global, L"Yes");
    EXPECT_EQ(both[1].global, L"No");
    const std::vector<Keyword> spaced = readKeywordList(L"Sim Não _ Yes No");
    EXPECT_EQ(spaced[1].global, L"No");
    EXPECT_EQ(readKeywordList(L"Undo eXit")[1].global, L"eXit");
    EXPECT_TRUE(readKeywordList(L"  ").empty());
}

}  // namespace
