// SPDX-License-Identifier: MIT
// The C-style interface: formatted output, variables, coordinate systems, input calls, numbers.
#include <cmath>

#include "geassign.h"
#include "prancheta/geometry/angles.h"
#include "support.h"

using namespace prancheta;

namespace {

class ApiTest : public editortest::EditorTest {
protected:
    template <class... Args>
    std::wstring printed(const wchar_t* format, Args... args) {
        ui.output.clear();
        EXPECT_EQ(acutPrintf(format, args...), RTNORM);
        return ui.output;
    }
};

TEST_F(ApiTest, formatsHaveTheMeaningThatModulesExpect) {
    EXPECT_EQ(printed(L"\n%s|%ls|%hs|%S", L"ação", L"dois", "três", "q"), L"\nação|dois|três|q");
    EXPECT_EQ(printed(L"%5d|%-5d|%05d|%+d|%u", 42, 42, 42, 42, 7u), L"   42|42   |00042|+42|7");
    EXPECT_EQ(printed(L"%.2f|%8.3f|%g|%e", 3.14159, 2.5, 0.5, 1.0),
              L"3.14|   2.500|0.5|1.000000e+00");
    EXPECT_EQ(printed(L"%x|%X|%#x|%c|%%", 255, 255, 255, L'é'), L"ff|FF|0xff|é|%");
    EXPECT_EQ(printed(L"%6s|%-6s|%.2s", L"ab", L"ab", L"abcdef"), L"    ab|ab    |ab");
    EXPECT_EQ(printed(L"%*d|%.*f", 4, 7, 1, 2.25), L"   7|2.2");
    EXPECT_EQ(printed(L"%lld|%I64d|%ld", -5LL, 6LL, 7L), L"-5|6|7");
    EXPECT_EQ(printed(L"%2$s-%1$d", 3, L"x"), L"x-3");
    EXPECT_EQ(printed(L"100%"), L"100%");
    EXPECT_EQ(printed(L"%s", static_cast<const wchar_t*>(nullptr)), L"(null)");
    EXPECT_EQ(printed(L"%q0a%q3|%d|%qd", 1, 2, 3, 4LL), L"a|3|4");
    EXPECT_EQ(kinds({"texto"}),
              "texto texto texto texto texto texto texto texto texto texto texto");
    EXPECT_EQ(acedAlert(L"\nCuidado"), RTNORM);
    EXPECT_EQ(ui.alerts, std::vector<std::wstring>{L"\nCuidado"});
}

TEST_F(ApiTest, variablesAreTyped) {
    resbuf value{};
    ASSERT_EQ(acedGetVar(L"osmode", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSHORT);
    EXPECT_EQ(value.resval.rint, 4133);
    value.resval.rint = 0;
    EXPECT_EQ(acedSetVar(L"OSMODE", &value), RTNORM);
    EXPECT_EQ(kinds({"variavel"}), "variavel");
    value.restype = RTREAL;
    value.resval.rreal = 1.0;
    EXPECT_EQ(acedSetVar(L"OSMODE", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"NADA", &value), RTERROR);
    EXPECT_EQ(acedSetVar(L"VIEWSIZE", &value), RTERROR);  // read-only
    EXPECT_EQ(kinds({"variavel"}), "variavel");
    EXPECT_EQ(editor->variables().number(L"OSMODE"), 0);

    value.restype = RT3DPOINT;
    ads_point_set(asDblArray(AcGePoint3d(1, 2, 3)), value.resval.rpoint);
    EXPECT_EQ(acedSetVar(L"lastpoint", &value), RTNORM);
    editortest::expectPoint(editor->lastPoint(), 1, 2, 3);
    ASSERT_EQ(acedGetVar(L"CLAYER", &value), RTNORM);
    EXPECT_EQ(value.restype, RTSTR);
    EXPECT_STREQ(value.resval.rstring, L"0");
    free(value.resval.rstring);
    ASSERT_EQ(acedGetVar(L"SCREENSIZE", &value), RTNORM);
    EXPECT_EQ(value.restype, RTPOINT);
    EXPECT_EQ(acedGetVar(L"NADA", &value), RTERROR);
}

TEST_F(ApiTest, transformsBetweenSystems) {
    AcGeMatrix3d ucs;
    ucs.setCoordSystem(AcGePoint3d(100, 0, 0), AcGeVector3d::kYAxis, -AcGeVector3d::kXAxis,
                       AcGeVector3d::kZAxis);
    editor->setUcs(ucs);
    resbuf world{};
    world.restype = RTSHORT;
    resbuf user = world;
    user.resval.rint = 1;
    ads_point p = {90, 5, 0};
    ASSERT_EQ(acedTrans(p, &world, &user, 0, p), RTNORM);  // in place
    editortest::expectPoint(asPnt3d(p), 5, 10);
    ASSERT_EQ(acedTrans(p, &user, &world, 1, p), RTNORM);
    editortest::expectPoint(asPnt3d(p), -10, 5);
    resbuf down{};
    down.restype = RT3DPOINT;
    down.resval.rpoint[Z] = -1;
    const ads_point q = {1, 2, 3};
    ads_point r;
    // Arbitrary axis rule for (0, 0, -1): x is -X of the world, y stays, z points down.
    ASSERT_EQ(acedTrans(q, &down, &world, 0, r), RTNORM);
    editortest::expectPoint(asPnt3d(r), -1, 2, -3);
    user.resval.rint = 9;
    EXPECT_EQ(acedTrans(q, &user, &world, 0, r), RTERROR);
    // Paper coordinates stand beside those of the view only.
    resbuf paper = world;
    paper.resval.rint = 3;
    resbuf view = world;
    view.resval.rint = 2;
    for (const resbuf* other : {&world, &down, &paper}) {
        EXPECT_EQ(acedTrans(q, &paper, other, 0, r), RTERROR);
        EXPECT_EQ(acedTrans(q, other, &paper, 0, r), RTERROR);
    }
    EXPECT_EQ(acedTrans(q, &paper, &view, 0, r), RTNORM);
    EXPECT_EQ(acedTrans(q, &view, &paper, 0, r), RTNORM);

    // Input comes in user coordinates, the rubber band goes out in world coordinates.
    ui.inputs = {editortest::typed(L"@1,0")};
    const ads_point base = {10, 0, 0};
    editor->setLastPoint(ucs * AcGePoint3d(10, 0, 0));
    ASSERT_EQ(acedGetPoint(base, L"?", r), RTNORM);
    editortest::expectPoint(asPnt3d(r), 11, 0);
    editortest::expectPoint(*ui.requests.back().base, 100, 10);
}

TEST_F(ApiTest, inputCallsAnswerWithTheirCodes) {
    ads_real number = 0;
    int whole = 0;
    ACHAR text[133];
    ui.inputs = {editortest::typed(L""), editortest::typed(L""), editortest::typed(L"-4"),
                 editortest::typed(L"4")};
    EXPECT_EQ(acedGetReal(L"?", &number), RTNONE);
    EXPECT_EQ(acedInitGet(RSG_NONULL | RSG_NONEG, nullptr), RTNORM);
    EXPECT_EQ(acedGetInt(L"?", &whole), RTNORM);  // Enter and -4 are asked again
    EXPECT_EQ(whole, 4);
    EXPECT_EQ(ui.complaints.size(), 2u);

    ui.inputs = {editortest::typed(L"s"), editortest::typed(L"s"), editortest::typed(L"_n")};
    acedInitGet(0, L"Sim Não _Yes No");
    EXPECT_EQ(acedGetDist(nullptr, L"?", &number), RTKWORD);
    EXPECT_EQ(acedGetInput(text), RTNORM);
    EXPECT_STREQ(text, L"Yes");
    acedInitGet(0, L"Sim Não _Yes No");
    EXPECT_EQ(acedGetKword(L"?", text), RTNORM);
    EXPECT_STREQ(text, L"Yes");
    EXPECT_EQ(acedGetKword(L"?", text),
              RTCAN);  // the list was for one call: `_n` is refused, then the input ends

    ui.inputs = {editortest::typed(L"duas palavras"), editortest::typed(L"")};
    EXPECT_EQ(acedGetString(1, L"?", text), RTNORM);
    EXPECT_STREQ(text, L"duas palavras");
    EXPECT_EQ(acedGetString(0, L"?", text), RTNORM);
    EXPECT_STREQ(text, L"");
    EXPECT_EQ(acedGetPoint(nullptr, nullptr, nullptr), RTERROR);
}

TEST_F(ApiTest, planeGeometry) {
    const ads_point a = {1, 1, 0};
    const ads_point b = {1, -1, 5};
    EXPECT_NEAR(acutAngle(a, b), 1.5 * kPi, 1e-15);
    EXPECT_NEAR(acutDistance(a, b), std::sqrt(29.0), 1e-12);
    ads_point r = {1, 1, 7};
    acutPolar(r, kPi / 2, 10, r);
    editortest::expectPoint(asPnt3d(r), 1, 11, 7);
    EXPECT_EQ(r[X], 1.0);  // exact at right angles
}

TEST_F(ApiTest, numbersAsTexts) {
    ACHAR text[400];
    const auto length = [&](double value, int unit, int precision) {
        EXPECT_EQ(acdbRToS(value, unit, precision, text), RTNORM);
        return std::wstring(text);
    };
    const auto angle = [&](double degrees, int unit, int precision) {
        EXPECT_EQ(acdbAngToS(degrees * kPi / 180, unit, precision, text), RTNORM);
        return std::wstring(text);
    };
    EXPECT_EQ(length(12.5, -1, -1), L"12.5000");
    EXPECT_EQ(length(-0.00001, 2, 2), L"0.00");
    EXPECT_EQ(length(1234.5, 1, 3), L"1.234E+03");
    EXPECT_EQ(length(3.25, 5, 4), L"3 1/4");
    EXPECT_EQ(length(30.5, 4, 4), L"2'-6 1/2\"");
    EXPECT_EQ(length(30.5, 3, 2), L"2'-6.50\"");
    // What rounds up to a foot or to a full turn is one.
    EXPECT_EQ(length(11.999, 3, 2), L"1'-0.00\"");
    EXPECT_EQ(length(-23.99, 4, 4), L"-2'-0\"");
    EXPECT_EQ(length(-0.001, 3, 2), L"0'-0.00\"");
    EXPECT_EQ(angle(359.7, 1, 0), L"0d");
    EXPECT_EQ(angle(30.7, 1, 0), L"31d");
    EXPECT_EQ(angle(359.999, 1, 2), L"0d0'");
    EXPECT_EQ(angle(45, -1, -1), L"45");
    EXPECT_EQ(angle(-90, 0, 1), L"270.0");
    EXPECT_EQ(angle(359.9999, 0, 2), L"0.00");
    EXPECT_EQ(angle(30.51, 1, 4), L"30d30'36\"");
    EXPECT_EQ(angle(90, 2, 1), L"100.0g");
    EXPECT_EQ(angle(180, 3, 4), L"3.1416r");
    EXPECT_EQ(acdbRToS(1, 9, 2, text), RTERROR);
    ads_real value = 0;
    EXPECT_EQ(acdbDisToF(L" 2.5 ", -1, &value), RTNORM);
    EXPECT_EQ(value, 2.5);
    EXPECT_EQ(acdbDisToF(L"2,5", -1, &value), RTERROR);
    EXPECT_EQ(acdbAngToF(L"45d30'", 0, &value), RTNORM);
    EXPECT_NEAR(value, 45.5 * kPi / 180, 1e-15);
}

}  // namespace
