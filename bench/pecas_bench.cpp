// SPDX-License-Identifier: MIT
// Cost of a piece: made with its three dimensions in a live host, its section's properties; and of
// the file of its dialogs.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <numbers>

#include "bench/silent.h"
#include "dbdim.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/library_cache.h"
#include "prancheta/dcl/parser.h"
#include "prancheta/dxf/document.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/register.h"
#include "zp/objects/secao/secao.h"

namespace {

constexpr double kRight = std::numbers::pi / 2;

/// A host with the entity library loaded; one for the whole program.
prancheta::Editor& host() {
    static Silent ui;
    static const auto editor = [] {
        prancheta::registerEntityClasses();
        auto made = std::make_unique<prancheta::Editor>(ui, prancheta::builtInCommands());
        if (!made->modules().load(HOUSE_BINARY_DIR "/bin/ZpObjects18.arx")) std::abort();
        return made;
    }();
    return *editor;
}

void addDimension(ZpObject& piece, const AcGePoint3d& from, const AcGePoint3d& to,
                  const AcGePoint3d& line) {
    auto* const dimension = new AcDbAlignedDimension(from, to, line);
    dimension->setDatabaseDefaults();
    AcDbObjectId id;
    (void)append(dimension, id);
    (void)dimension->close();
    (void)piece.LinkDim(id);
}

/// A lipped U as a member, dimensioned on three sides.
AcDbObjectId makePiece(double x) {
    AcGePoint3d at(x, 0, 0);
    auto* const piece = new ZpUDobrado(at, ZpObject::ZpVistas(3), 200, 75, 75, 2.65, 2.65, kRight,
                                       kRight, 1000, 0, 0, 20);
    piece->setDatabaseDefaults();
    AcDbObjectId id;
    (void)append(piece, id);
    AcGePoint3d f[4];
    piece->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
    addDimension(*piece, f[1], f[3], f[1] - AcGeVector3d(0, 10, 0));
    addDimension(*piece, f[0], f[1], f[0] - AcGeVector3d(10, 0, 0));
    addDimension(*piece, f[2], f[3], f[2] + AcGeVector3d(10, 0, 0));
    (void)piece->close();
    return id;
}

/// What the end of a command does for the entity library: new pieces have their links checked.
/// Outside a command any change does it.
void settle(AcDbObjectId last) {
    const AcDbObjectPointer<ZpObject> piece(last, AcDb::kForWrite);
    (void)piece->AlteraComprimento(1001.0);
}

/// `state.range(0)` pieces in one command; time and heap are given for one piece.
void pieceWithThreeDimensions(benchmark::State& state) {
    const auto count = static_cast<int>(state.range(0));
    double bytes = 0.0;
    for (auto _ : state) {
        state.PauseTiming();
        if (!host().file().makeNew()) state.SkipWithError("no drawing");
        const auto before = mallinfo2().uordblks;
        state.ResumeTiming();
        host().database().core().undo().begin(L"bench");
        AcDbObjectId last;
        for (int i = 0; i < count; ++i) last = makePiece(2000.0 * i);
        settle(last);
        host().database().core().undo().end();
        bytes = static_cast<double>(mallinfo2().uordblks - before) / count;
    }
    state.SetItemsProcessed(state.iterations() * count);
    state.counters["bytes_per_piece"] = bytes;
}
BENCHMARK(pieceWithThreeDimensions)
    ->Arg(100)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond);

void sectionPropertiesUncached(benchmark::State& state) {
    using namespace zp::secao;
    std::vector<double> values = {200, 75, 75, 2.65, 2.65, kRight, kRight, 1000, 0, 0, 20};
    for (auto _ : state) {
        values[0] += 1e-6;
        const Secao secao(Kind::UDobrado, roleValuesOf(Kind::UDobrado, 1, values));
        benchmark::DoNotOptimize(secao.properties().ix);
    }
}
BENCHMARK(sectionPropertiesUncached);

void wholeSheetOfASection(benchmark::State& state) {
    using namespace zp::secao;
    std::vector<double> values = {200, 75, 75, 2.65, 2.65, kRight, kRight, 1000, 0, 0, 20};
    for (auto _ : state) {
        values[0] += 1e-6;
        const Secao secao(Kind::UDobrado, roleValuesOf(Kind::UDobrado, 1, values));
        benchmark::DoNotOptimize(secao.sheet().cw);
    }
}
BENCHMARK(wholeSheetOfASection);

void sectionFromTheCache(benchmark::State& state) {
    using namespace zp::secao;
    const std::vector<double> values = {200, 75, 75, 2.65, 2.65, kRight, kRight, 1000, 0, 0, 20};
    for (auto _ : state)
        benchmark::DoNotOptimize(secaoFrom(Kind::UDobrado, 1, values)->properties().ix);
}
BENCHMARK(sectionFromTheCache);

const std::filesystem::path kDialogs = HOUSE_BINARY_DIR "/instalacao/Perfis/perfis.dcl";

void dialogFileRead(benchmark::State& state) {
    for (auto _ : state) {
        const auto library = prancheta::dcl::parseFile(kDialogs);
        if (!library || library->definitions.empty()) state.SkipWithError("perfis.dcl");
    }
}
BENCHMARK(dialogFileRead);

/// Again, its date unchanged: what every command but the first one pays.
void dialogFileKept(benchmark::State& state) {
    for (auto _ : state)
        if (!prancheta::dcl::loadLibrary(kDialogs)) state.SkipWithError("perfis.dcl");
}
BENCHMARK(dialogFileKept);

}  // namespace

BENCHMARK_MAIN();
