// SPDX-License-Identifier: MIT
// What a large drawing costs to show and to point at: indexing, a screen, a pick, a snap, a change.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cmath>
#include <cstdlib>
#include <memory>
#include <numbers>

#include "bench/silent.h"
#include "dbdim.h"
#include "dbsymtb.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/editor/picking.h"
#include "prancheta/entities/register.h"

namespace {

using prancheta::Box2d;
using prancheta::DisplayList;

constexpr double kRight = std::numbers::pi / 2;
constexpr int kPieces = 100000;
/// Pieces of 1 m by 0.2 m stand in rows, each with its three dimensions.
constexpr int kRow = 316;
constexpr double kStepX = 2000.0;
constexpr double kStepY = 500.0;

AcGePoint3d placeOf(int piece) { return {kStepX * (piece % kRow), kStepY * (piece / kRow), 0.0}; }

AcDbObjectId append(AcDbEntity* entity) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(
        acdbHostApplicationServices()->workingDatabase()->currentSpaceId(), AcDb::kForWrite);
    entity->setDatabaseDefaults();
    if (space->appendAcDbEntity(id, entity) != Acad::eOk) std::abort();
    (void)entity->close();
    return id;
}

void addDimension(const AcGePoint3d& from, const AcGePoint3d& to, const AcGePoint3d& line) {
    (void)append(new AcDbAlignedDimension(from, to, line));
}

void makePiece(int piece) {
    AcGePoint3d at = placeOf(piece);
    auto* const made = new ZpUDobrado(at, ZpObject::ZpVistas(3), 200, 75, 75, 2.65, 2.65, kRight,
                                      kRight, 1000, 0, 0, 20);
    AcGePoint3d f[4];
    made->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    (void)append(made);
    addDimension(f[1], f[3], f[1] - AcGeVector3d(0, 10, 0));
    addDimension(f[0], f[1], f[0] - AcGeVector3d(10, 0, 0));
    addDimension(f[2], f[3], f[2] + AcGeVector3d(10, 0, 0));
}

Silent& front() {
    static Silent ui;
    return ui;
}

/// A host with the entity library and a drawing of kPieces pieces; one for the whole program.
prancheta::Editor& host() {
    static const auto editor = [] {
        prancheta::registerEntityClasses();
        auto made = std::make_unique<prancheta::Editor>(front(), prancheta::builtInCommands());
        if (!made->modules().load(HOUSE_BINARY_DIR "/bin/ZpObjects18.arx")) std::abort();
        made->database().core().undo().begin(L"bench");
        for (int piece = 0; piece < kPieces; ++piece) makePiece(piece);
        made->database().core().undo().end();
        return made;
    }();
    return *editor;
}

/// A screen that shows about `pieces` pieces in the middle of the drawing.
void look(int pieces) {
    prancheta::View view;
    view.centre = placeOf(kPieces / 2 + kRow / 2);
    view.height = std::sqrt(pieces * kStepX * kStepY * 3.0 / 4.0);
    host().screen().show(view);
    host().screen().resize(1200, 900);
}

Box2d screen() {
    const prancheta::View& view = host().screen().view();
    const double width = view.height * 4.0 / 3.0;
    return {view.centre.x - width / 2, view.centre.y - view.height / 2, view.centre.x + width / 2,
            view.centre.y + view.height / 2};
}

void indexing(benchmark::State& state) {
    AcDbDatabase& database = host().database();
    double bytes = 0.0;
    std::size_t items = 0;
    for (auto _ : state) {
        const auto before = mallinfo2();
        DisplayList list(database);
        items = list.size();
        const auto after = mallinfo2();
        bytes = static_cast<double>(after.uordblks + after.hblkhd) -
                static_cast<double>(before.uordblks + before.hblkhd);
    }
    state.counters["items"] = static_cast<double>(items);
    state.counters["bytes_per_item"] = bytes / static_cast<double>(items);
}
BENCHMARK(indexing)->Unit(benchmark::kMillisecond);

/// `state.range(0)` pieces on the screen, boxes only.
void screenQuery(benchmark::State& state) {
    look(static_cast<int>(state.range(0)));
    DisplayList& display = host().display();
    (void)display.size();
    std::size_t found = 0;
    for (auto _ : state) {
        found = 0;
        display.query(screen(), [&](const DisplayList::Item&) { ++found; });
    }
    state.counters["found"] = static_cast<double>(found);
}
BENCHMARK(screenQuery)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void screenPictures(benchmark::State& state) {
    look(static_cast<int>(state.range(0)));
    DisplayList& display = host().display();
    (void)display.size();
    for (auto _ : state)
        display.query(screen(), [&](const DisplayList::Item& item) {
            benchmark::DoNotOptimize(display.picture(item.id).size());
        });
}
BENCHMARK(screenPictures)->Arg(10)->Arg(1000)->Unit(benchmark::kMicrosecond);

/// The pointer visits pieces all over the drawing, at the magnification at which `state.range(0)`
/// pieces fill the screen.
template <class Ask>
void pointAt(benchmark::State& state, Ask&& ask) {
    look(static_cast<int>(state.range(0)));
    (void)host().display().size();
    int piece = 0;
    for (auto _ : state) {
        piece = (piece + 7919) % kPieces;
        ask(placeOf(piece));
    }
}

void pick(benchmark::State& state) {
    pointAt(state,
            [](const AcGePoint3d& p) { benchmark::DoNotOptimize(prancheta::entityAt(host(), p)); });
}
BENCHMARK(pick)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void snap(benchmark::State& state) {
    constexpr int kModes = 1 + 2 + 4 + 32 + 128 + 512;
    pointAt(state, [](const AcGePoint3d& p) {
        benchmark::DoNotOptimize(
            prancheta::snapHits(host(), p, kModes, prancheta::SnapReach::Aperture));
    });
}
BENCHMARK(snap)->Arg(10)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);

void updateAfterMove(benchmark::State& state) {
    DisplayList& display = host().display();
    std::vector<DisplayList::Item> items = display.find(display.extents());
    const AcGeMatrix3d move = AcGeMatrix3d::translation(AcGeVector3d(10, 0, 0));
    std::size_t at = 0;
    for (auto _ : state) {
        state.PauseTiming();
        at = (at + 7919) % items.size();
        {
            const AcDbObjectPointer<AcDbEntity> entity(items[at].id, AcDb::kForWrite);
            (void)entity->transformBy(move);
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(display.revision());
    }
}
BENCHMARK(updateAfterMove)->Unit(benchmark::kMicrosecond);

/// From the name of the command to its end, all pieces being edges: a line through one row of them
/// or across the whole drawing is cut in its middle (0, 1), or goes on to the nearest (2). Then
/// undone.
void trim(benchmark::State& state) {
    look(1000);
    const bool across = state.range(0) == 1;
    const bool extends = state.range(0) == 2;
    const double right = extends ? -5000.0 : kStepX * kRow;
    const AcGePoint3d from(-9000.0, 50.0, 0.0);
    const AcGePoint3d to(right, across ? kStepY * kPieces / kRow : 50.0, 0.0);
    const AcDbObjectId line = append(new AcDbLine(from, to));
    const AcGePoint3d pick = extends ? to : from + (to - from) * 0.5;
    const std::wstring at = std::to_wstring(pick.x) + L"," + std::to_wstring(pick.y);
    (void)host().display().size();
    for (auto _ : state) {
        front().typed = {extends ? L"_extend" : L"_trim", L"", at, L""};
        while (!front().typed.empty()) (void)host().step();
        state.PauseTiming();
        front().typed = {L"_u"};
        while (!front().typed.empty()) (void)host().step();
        (void)host().display().size();
        state.ResumeTiming();
    }
    const AcDbObjectPointer<AcDbEntity> gone(line, AcDb::kForWrite);
    (void)gone->erase();
}
BENCHMARK(trim)->Arg(0)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);

/// The right ends of 10,000 lines or pieces, one above the other left of all else, go to and fro:
/// from the name of the command to its end.
void stretch(benchmark::State& state) {
    constexpr int kStretched = 10000;
    const double left = state.range(0) == 0 ? -1e6 : -2e6;
    host().database().core().undo().begin(L"bench");
    for (int i = 0; i < kStretched; ++i) {
        const AcGePoint3d at(left, 500.0 * i, 0.0);
        if (state.range(0) == 0)
            (void)append(new AcDbLine(at, at + AcGeVector3d(1000, 0, 0)));
        else
            (void)append(new ZpUDobrado(at, ZpObject::ZpVistas(3), 200, 75, 75, 2.65, 2.65, kRight,
                                        kRight, 1000, 0, 0, 20));
    }
    host().database().core().undo().end();
    (void)host().display().size();
    double by = 10.0;
    for (auto _ : state) {
        front().typed = {L"_stretch",
                         L"_c",
                         std::to_wstring(left + 900) + L",-1000",
                         std::to_wstring(left + 1500) + L",6000000",
                         L"",
                         L"0,0",
                         std::to_wstring(by) + L",0"};
        while (!front().typed.empty()) host().step();
        by = -by;
    }
}
BENCHMARK(stretch)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->Iterations(10);

}  // namespace

BENCHMARK_MAIN();
