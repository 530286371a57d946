// SPDX-License-Identifier: MIT
// Cost of a material list: entering all pieces of a drawing, its rows, numbering it anew, one edit
// among them, comparing it with another drawing of it. The pieces have a hundred sections and a
// thousand lengths.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <memory>
#include <numbers>

#include "bench/silent.h"
#include "perfis/entities/zpentidades.h"
#include "perfis/entities/zpfuncoes.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/drawing_file.h"
#include "prancheta/editor/edit_group.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/register.h"
#include "zp/matlist/book.h"
#include "zp/matlist/compare.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/group.h"

namespace {

constexpr double kRight = std::numbers::pi / 2;

/// A drawing with n pieces, not listed.
struct Job {
    explicit Job(int n) {
        prancheta::registerEntityClasses();
        editor = std::make_unique<prancheta::Editor>(ui, prancheta::builtInCommands());
        for (const char* name : {"ZpObjects18.arx", "ZP__MaterialList18.arx"})
            if (!editor->modules().load(std::filesystem::path(HOUSE_BINARY_DIR) / "bin" / name))
                std::abort();
        const prancheta::EditGroup group(*editor, L"DESENHA");
        for (int i = 0; i < n; ++i) {
            auto* const piece =
                new ZpUDobrado(AcGePoint3d(i % 317 * 7000.0, i / 317 * 400.0, 0),
                               ZpObject::kVistaDireita, 100 + i % 100, 75, 75, 2.65, 2.65, kRight,
                               kRight, 500 + i / 100 % 1000 * 5, 0, 0, 20);
            piece->setDatabaseDefaults();
            AcDbObjectId id;
            (void)append(piece, id);
            (void)piece->close();
            pecas.push_back(id);
        }
    }
    void list() {
        const prancheta::EditGroup group(*editor, L"MARCAS");
        const auto made = zp::matlist::newList(editor->database(), L"Perfil");
        (void)zp::matlist::groupPecas(*made, pecas);
        zp::matlist::settle(editor->database());
        id = made->id;
    }

    Silent ui;
    std::unique_ptr<prancheta::Editor> editor;
    std::vector<AcDbObjectId> pecas;
    AcDbObjectId id;
};

void group(benchmark::State& state) {
    for (auto _ : state) {
        state.PauseTiming();
        auto job = std::make_unique<Job>(static_cast<int>(state.range(0)));
        state.ResumeTiming();
        job->list();
        state.PauseTiming();
        job.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// Drawings end before the modules' own data do.
std::unique_ptr<Job> g_listed;
std::unique_ptr<Job> g_unlisted;

/// One drawing with its list, kept for what only reads or comes back.
Job& listed(int n) {
    if (!g_listed || g_listed->pecas.size() != static_cast<std::size_t>(n)) {
        g_listed.reset();
        g_listed = std::make_unique<Job>(n);
        g_listed->list();
    }
    return *g_listed;
}

/// Members that have their marks already.
void groupAgain(benchmark::State& state) {
    Job& job = listed(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const prancheta::EditGroup step(*job.editor, L"MARCAS");
        const auto list = zp::matlist::materialLists(job.editor->database()).front();
        benchmark::DoNotOptimize(zp::matlist::groupPecas(list, job.pecas));
        zp::matlist::settle(job.editor->database());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void rows(benchmark::State& state) {
    Job& job = listed(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(zp::matlist::rows(job.id).size());
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void renumber(benchmark::State& state) {
    Job& job = listed(static_cast<int>(state.range(0)));
    zp::matlist::Numbering numbering;
    for (auto _ : state) {
        // The other order each time, so that marks do change.
        numbering.order = numbering.order == zp::matlist::Order::Place
                              ? zp::matlist::Order::Comprimento
                              : zp::matlist::Order::Place;
        const prancheta::EditGroup step(*job.editor, L"MARCAS");
        for (const zp::matlist::MaterialList& list :
             zp::matlist::materialLists(job.editor->database()))
            benchmark::DoNotOptimize(zp::matlist::renumber(list, numbering));
        zp::matlist::settle(job.editor->database());
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

/// A piece among the others becomes longer and shorter, with a list or without one.
void edit(benchmark::State& state, Job& job) {
    double comprimento = 7000;
    for (auto _ : state) {
        const prancheta::EditGroup step(*job.editor, L"ESTICA");
        const AcDbObjectPointer<ZpObject> piece(job.pecas[job.pecas.size() / 2], AcDb::kForWrite);
        comprimento = comprimento == 7000 ? 7001 : 7000;
        (void)piece->AlteraComprimento(comprimento);
    }
}
void editListed(benchmark::State& state) { edit(state, listed(static_cast<int>(state.range(0)))); }
void editUnlisted(benchmark::State& state) {
    if (!g_unlisted) g_unlisted = std::make_unique<Job>(100000);
    edit(state, *g_unlisted);
}

/// The drawing against its own file, both in memory, the earlier one not looked at before: Arg(1)
/// moves every member by a millimetre.
void compare(benchmark::State& state) {
    Job& job = listed(static_cast<int>(state.range(0)));
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "lista_bench.dxf";
    (void)job.editor->file().saveCopy(file);
    AcDbDatabase before(false, true);
    if (before.dxfIn(file.wstring().c_str()) != Acad::eOk) std::abort();
    std::filesystem::remove(file);
    for (auto _ : state) {
        auto now = zp::matlist::membersOf(job.editor->database());
        if (state.range(1) != 0)
            for (zp::matlist::JobMember& m : now) m.start.x += 1.0, m.end.x += 1.0;
        benchmark::DoNotOptimize(
            zp::matlist::compareMembers(zp::matlist::membersOf(before), now).size());
        zp::matlist::Book::forget(&before);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

BENCHMARK(compare)
    ->Args({10000, 0})
    ->Args({10000, 1})
    ->Args({100000, 0})
    ->Args({100000, 1})
    ->Unit(benchmark::kMillisecond);
BENCHMARK(group)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond)->Iterations(1);
BENCHMARK(groupAgain)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(rows)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(renumber)
    ->Arg(1000)
    ->Arg(10000)
    ->Arg(100000)
    ->Unit(benchmark::kMillisecond)
    ->Iterations(2);
BENCHMARK(editListed)->Arg(1000)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(editUnlisted)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    g_listed.reset();
    g_unlisted.reset();
}
