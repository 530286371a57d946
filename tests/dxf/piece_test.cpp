// SPDX-License-Identifier: MIT
// Parametric pieces as block references: alive again, moved by others, without their module.
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/database/database_core.h"
#include "support.h"

using namespace dxftest;
using namespace prancheta;

namespace {

class Pieces : public testing::Test {
protected:
    std::unique_ptr<BarModule> module = std::make_unique<BarModule>();
    AcDbDatabase database{true, true};

    Bar* bar(double x = 0.0, double angle = 0.0) {
        auto* made = new Bar;
        made->start.set(x, 20.25, 0.0);
        made->angle = angle;
        made->mark = L"V1";
        append(database, made);
        return made;
    }
};

Bar* firstBar(AcDbDatabase& database) {
    for (AcDbEntity* entity : modelSpace(database))
        if (Bar* bar = Bar::cast(entity)) return bar;
    return nullptr;
}

/// Changes a group of the first INSERT; a group that is not there is added behind the point.
std::string withInsert(const std::string& text, const std::vector<Group>& changes) {
    Groups all = groupsOf(text);
    auto at = std::find(all.begin(), all.end(), Group{0, "INSERT"});
    for (const Group& change : changes) {
        const auto end = std::find_if(at + 1, all.end(),
                                      [](const Group& g) { return g.code >= 1000 || g.code == 0; });
        const auto found =
            std::find_if(at, end, [&](const Group& g) { return g.code == change.code; });
        if (found != end)
            found->value = change.value;
        else
            all.insert(end, change);
        at = std::find(all.begin(), all.end(), Group{0, "INSERT"});
    }
    return fileText(all);
}

}  // namespace

TEST_F(Pieces, StateComesBackToTheLastBit) {
    Bar* const one = bar(1.0 / 3.0, 0.1 + 0.2);
    one->length = 1e-300;
    one->height = -0.0;
    one->kind = 12;
    one->count = -2000000000;
    one->mark = L"aço ^ Ω \"x\"\tfim " + std::wstring(600, L'ç');
    one->values = {1.0 / 3.0, 1e300, 5e-324, -0.0, 123456789.123456789};
    const auto back = loadText(saved(database));
    ASSERT_NE(back, nullptr);
    ASSERT_NE(firstBar(*back), nullptr);
    EXPECT_TRUE(firstBar(*back)->sameState(*one));
    EXPECT_EQ(firstBar(*back)->objectId().handle(), one->objectId().handle());
}

TEST_F(Pieces, EqualPicturesShareOneBlock) {
    for (int i = 0; i < 20; ++i) bar(137.77 * i, 0.31 * i);
    bar(5.0)->length = 999.0;
    bar(6.0, 1.0)->mirrored = true;
    const Groups all = groupsOf(saved(database));
    EXPECT_EQ(countOf(all, "INSERT"), 22U);
    EXPECT_EQ(countOf(all, "BLOCK"), 4U) << "model, paper, and two lengths";
    const Groups line = record(all, "LINE", 62, "1");
    EXPECT_EQ(valueOf(line, 11), "1000.0") << "in the frame of the piece, without tails of digits";
    const Groups outline = record(all, "LWPOLYLINE");
    EXPECT_EQ(valueOf(outline, 8), "0");
    EXPECT_EQ(valueOf(outline, 62), "0") << "takes the colour of the reference";
    EXPECT_EQ(valueOf(record(all, "LINE"), 6), "HIDDEN");
    EXPECT_EQ(valueOf(record(all, "INSERT", 1040, "-1.0"), 41), "-1.0") << "mirrored";
}

TEST_F(Pieces, FollowsWhoMovedTheReference) {
    bar(100.0, 0.25);
    const std::string text = saved(database);
    struct Case {
        const char* what;
        std::vector<Group> changes;
        double x, y, angle, length;
        bool mirrored;
    };
    const double turned = 90.0 + 0.25 * 180.0 / M_PI;
    const Case cases[] = {
        {"untouched", {}, 100.0, 20.25, 0.25, 1000.0, false},
        {"moved", {{10, "600.5"}, {20, "-10.0"}}, 600.5, -10.0, 0.25, 1000.0, false},
        {"turned", {{50, std::to_string(turned)}}, 100.0, 20.25, 0.25 + M_PI / 2, 1000.0, false},
        {"scaled", {{41, "2.0"}, {42, "2.0"}, {43, "2.0"}}, 100.0, 20.25, 0.25, 2000.0, false},
        {"scaled in the plane", {{41, "2.0"}, {42, "2.0"}}, 100.0, 20.25, 0.25, 2000.0, false},
        // Mirrored across its own transverse axis: the block's x axis is reversed.
        {"mirrored", {{41, "-1.0"}}, 100.0, 20.25, 0.25 - M_PI, 1000.0, true},
    };
    for (const Case& c : cases) {
        dxf::LoadReport report;
        const auto back = loadText(withInsert(text, c.changes), &report);
        ASSERT_NE(back, nullptr) << c.what;
        const Bar* const piece = firstBar(*back);
        ASSERT_NE(piece, nullptr) << c.what;
        EXPECT_NEAR(piece->start.x, c.x, 1e-6) << c.what;
        EXPECT_NEAR(piece->start.y, c.y, 1e-6) << c.what;
        EXPECT_NEAR(std::remainder(piece->angle - c.angle, 2 * M_PI), 0.0, 1e-6) << c.what;
        EXPECT_NEAR(piece->length, c.length, 1e-6) << c.what;
        EXPECT_EQ(piece->mirrored, c.mirrored) << c.what;
        EXPECT_TRUE(report.findings.empty()) << c.what;
    }
}

TEST_F(Pieces, StaysAReferenceWithoutItsModule) {
    bar(10.0)->values = {1.5};
    const std::string text = saved(database);
    const Groups before = record(groupsOf(text), "INSERT");
    module.reset();
    dxf::LoadReport report;
    auto back = loadText(text, &report);
    ASSERT_NE(back, nullptr);
    ASSERT_EQ(report.findings.size(), 1U);
    EXPECT_NE(report.findings[0].text.find("Bar"), std::string::npos);
    EXPECT_EQ(modelSpace(*back).at(0)->isA(), AcDbBlockReference::desc());
    const std::string kept = saved(*back);
    EXPECT_EQ(record(groupsOf(kept), "INSERT"), before);
    EXPECT_EQ(valueOf(record(groupsOf(kept), "LINE"), 6), "HIDDEN") << "the picture is there";
    module = std::make_unique<BarModule>();
    const auto again = loadText(kept);
    ASSERT_NE(firstBar(*again), nullptr) << "alive when the module is back";
    EXPECT_EQ(firstBar(*again)->values, std::vector<double>{1.5});
}

TEST_F(Pieces, DamagedOrNewerRecordsStayReferences) {
    bar(10.0);
    const std::string text = saved(database);
    const auto replaced = [&](const std::string& from, const std::string& to) {
        std::string out = text;
        out.replace(out.find(from), from.size(), to);
        return out;
    };
    const std::pair<const char*, std::string> cases[] = {
        {"a class of the host", replaced("1000\nBar\n", "1000\nAcDbLine\n")},
        {"newer layout", replaced("1071\n1\n", "1071\n2\n")},
        {"list of codes", replaced("40x3", "40x4")},
        {"no list of codes", replaced("=,70", "zz,70")},
        {"a value of another kind", replaced("1040\n1000.0\n", "1000\n1000.0\n")},
        {"refused by the class", replaced("1070\n3\n", "1070\n-3\n")},
        {"no frame", replaced("1002\n{\n", "1002\n}\n")},
        {"cut off", replaced("1002\n}\n", "")},
        {"unequal scales", withInsert(text, {{41, "2.0"}})},
        {"repeated in columns", withInsert(text, {{70, "3"}, {44, "50.0"}})},
        {"repeated in rows", withInsert(text, {{71, "2"}, {45, "50.0"}})},
    };
    for (const auto& [what, damaged] : cases) {
        dxf::LoadReport report;
        const auto back = loadText(damaged, &report);
        ASSERT_NE(back, nullptr) << what;
        EXPECT_EQ(firstBar(*back), nullptr) << what;
        ASSERT_EQ(report.findings.size(), 1U) << what;
        EXPECT_GT(report.findings[0].line, 0) << what;
        const Groups kept = record(groupsOf(saved(*back)), "INSERT");
        EXPECT_EQ(kept, record(groupsOf(damaged), "INSERT")) << what << ": nothing of it is lost";
        EXPECT_GT(countOf(groupsOf(saved(*back)), "LWPOLYLINE"), 0U) << what;
    }
}

TEST_F(Pieces, LinksAndDataOfOthersComeBack) {
    Bar* const first = bar(0.0);
    Bar* const second = bar(500.0);
    first->link = second->objectId();  // the one that stands behind it in the file
    second->link = first->objectId();
    ASSERT_EQ(database.core().ensureRegApp(L"ZPGBARRA").isNull(), false);
    AcDbObjectPointer<AcDbEntity> open(second->objectId(), AcDb::kForWrite);
    resbuf* const data = acutBuildList(1001, L"ZPGBARRA", 1000, L"dado é", 1040, 2.5, RTNONE);
    ASSERT_EQ(open->setXData(data), Acad::eOk);
    acutRelRb(data);
    ASSERT_EQ(open->addPersistentReactor(first->objectId()), Acad::eOk);
    (void)open.close();
    const std::string text = saved(database);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    const auto entities = modelSpace(*back);
    ASSERT_EQ(entities.size(), 2U);
    EXPECT_EQ(Bar::cast(entities[0])->link, entities[1]->objectId());
    EXPECT_EQ(Bar::cast(entities[1])->link, entities[0]->objectId());
    resbuf* const kept = entities[1]->xData(L"ZPGBARRA");
    ASSERT_NE(kept, nullptr);
    EXPECT_STREQ(kept->rbnext->resval.rstring, L"dado é");
    acutRelRb(kept);
    EXPECT_EQ(entities[1]->xData(L"PRANCHETA"), nullptr)
        << "the record is not the piece's own data";
    EXPECT_TRUE(saved(*back) == text);

    AcDbObjectPointer<AcDbEntity> gone(first->objectId(), AcDb::kForWrite);
    gone->erase();
    (void)gone.close();
    const Groups alone = groupsOf(saved(database));
    EXPECT_EQ(valueOf(record(alone, "INSERT"), 1005), "0")
        << "a link to what is gone leads nowhere";
}

TEST_F(Pieces, LongTextsAreCutByWhatTheyTakeInTheFile) {
    Bar* const one = bar(7.5);
    one->mark = std::wstring(300, L'Ω') + std::wstring(300, L'é') + L"\U0001F600";
    const std::string text = saved(database);
    for (const Group& group : groupsOf(text))
        EXPECT_TRUE(group.code != 1000 || group.value.size() <= 255) << group.value.size();
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    ASSERT_NE(firstBar(*back), nullptr);
    EXPECT_EQ(firstBar(*back)->mark, one->mark);
}

TEST_F(Pieces, LongRecordGoesToTheExtensionDictionary) {
    Bar* const one = bar(7.5);
    for (int i = 0; i < 3000; ++i) one->values.push_back(i / 7.0);
    bar(9.0);
    const std::string text = saved(database);
    const Groups all = groupsOf(text);
    EXPECT_EQ(valueOf(record(all, "XRECORD"), 40).empty(), false);
    EXPECT_LT(record(all, "INSERT").size(), 40U);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    ASSERT_NE(firstBar(*back), nullptr);
    EXPECT_TRUE(firstBar(*back)->sameState(*one));
    EXPECT_TRUE(saved(*back) == text);
    EXPECT_TRUE(firstBar(*back)->extensionDictionary().isNull()) << "it was only for the file";
}

TEST_F(Pieces, PieceInABlockAndSharedPictureInUseElsewhere) {
    bar(0.0);
    std::string text = saved(database);
    // Somebody else placed the picture's block once more, as an ordinary reference.
    const std::string other = "0\nINSERT\n8\n0\n2\n*U1\n10\n50.0\n20\n0.0\n30\n0.0\n";
    text.insert(text.find("0\nINSERT\n"), other);
    const auto back = loadText(text);
    ASSERT_NE(back, nullptr);
    const auto entities = modelSpace(*back);
    ASSERT_EQ(entities.size(), 2U);
    EXPECT_EQ(entities[0]->isA(), AcDbBlockReference::desc());
    EXPECT_NE(Bar::cast(entities[1]), nullptr);
    const Groups all = groupsOf(saved(*back));
    EXPECT_EQ(countOf(all, "BLOCK"), 4U) << "the kept one, and the piece's own beside it";
    const std::string kept = valueOf(record(all, "INSERT", 10, "50.0"), 2);
    EXPECT_EQ(kept, "*U1");
    EXPECT_NE(valueOf(record(all, "INSERT", 1001, "PRANCHETA"), 2), kept);
}
