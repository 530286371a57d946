// SPDX-License-Identifier: MIT
// What it costs to hatch in a sheet of 10,000 lines.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>

#include "bench/silent.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/database/database_core.h"
#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/register.h"

namespace {

constexpr int kRow = 100;
constexpr double kCell = 100.0;
constexpr double kSide = kCell * kRow;

void append(AcDbDatabase& database, const AcGePoint3d& from, const AcGePoint3d& to) {
    auto* const line = new AcDbLine(from, to);
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    line->setDatabaseDefaults();
    if (space->appendAcDbEntity(id, line) != Acad::eOk) std::abort();
    (void)line->close();
}

/// A grid of 5,000 lines each way.
void drawGrid(AcDbDatabase& database) {
    for (int i = 0; i < kRow * kRow / 2; ++i) {
        append(database, {0, 2.0 * i, 0}, {kSide, 2.0 * i, 0});
        append(database, {2.0 * i, 0, 0}, {2.0 * i, kSide, 0});
    }
}

/// Short lines that touch nothing, in a frame.
void drawLoose(AcDbDatabase& database) {
    for (int i = 0; i < kRow * kRow; ++i) {
        const AcGePoint3d at(kCell * (i % kRow) + 10, kCell * (i / kRow) + 10, 0);
        append(database, at, at + AcGeVector3d(50, 30, 0));
    }
    const AcGePoint3d corners[] = {
        {0, 0, 0}, {kSide, 0, 0}, {kSide, kSide, 0}, {0, kSide, 0}, {0, 0, 0}};
    for (std::size_t side = 0; side < 4; ++side) append(database, corners[side], corners[side + 1]);
}

/// The cell of a grid that the lines make (0), or all of a frame in which they lie loose (1),
/// filled by a pattern of 1000 lines; from the name of the command to its end.
void hatch(benchmark::State& state) {
    prancheta::registerEntityClasses();
    Silent ui;
    prancheta::Editor editor(ui, prancheta::builtInCommands());
    AcDbDatabase& database = editor.database();
    database.core().undo().begin(L"bench");
    if (state.range(0) == 0)
        drawGrid(database);
    else
        drawLoose(database);
    database.core().undo().end();
    const auto run = [&](std::initializer_list<std::wstring> lines) {
        ui.typed.assign(lines);
        while (!ui.typed.empty()) (void)editor.step();
        (void)editor.display().size();
    };
    run({L"HPSCALE", L"3"});
    for (auto _ : state) {
        run({L"_hatch", L"5001,5001", L""});
        state.PauseTiming();
        run({L"_u"});
        state.ResumeTiming();
    }
}
BENCHMARK(hatch)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
