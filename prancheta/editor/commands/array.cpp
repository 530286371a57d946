// SPDX-License-Identifier: MIT
// ARRAY: copies a selection in rows and columns, about a centre or along a path.
#include <algorithm>
#include <cmath>

#include "prancheta/display/display_list.h"
#include "prancheta/editor/commands/path.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kKindWords[] = {
    {L"Retangular", L"Rectangular"}, {L"Polar", L"Polar"}, {L"Caminho", L"PAth"}};
constexpr Word kPathWords[] = {{L"Dividir", L"Divide"}, {L"Medir", L"Measure"}};

using Matrices = std::vector<AcGeMatrix3d>;

/// Where the copies stand. `status` is RTNONE when there are to be none.
struct Places {
    Places(int s) : status(s) {}
    int status;
    Matrices matrices;
};

/// Centre of all that is selected, as displayed.
AcGePoint3d centreOf(const Editor& editor, const Ids& ids) {
    Box2d all;
    for (const AcDbObjectId& id : ids) all.add(boxOf(editor.display().picture(id).extents()));
    if (all.empty()) return AcGePoint3d::kOrigin;
    return {(all.left + all.right) / 2.0, (all.bottom + all.top) / 2.0, 0.0};
}

/// The question shows the copies that the pointer's place would give.
void showsCopies(Prompt& prompt, const CommandContext& context, const Ids& ids,
                 std::function<Matrices(const AcGePoint3d&)> places) {
    constexpr std::size_t kMostPrimitives = 4000;
    DisplayList* const display = &context.editor().display();
    prompt.preview([ids, display, places = std::move(places)](const AcGePoint3d& to, Picture& out) {
        for (const AcGeMatrix3d& matrix : places(to))
            for (const AcDbObjectId& id : ids) {
                if (out.size() > kMostPrimitives) return;
                out.append(display->picture(id), matrix);
            }
    });
}

/// Rows or columns; 1 by Enter.
Task<InputValue> askLines(CommandContext context, std::wstring name) {
    InputValue count = co_await context.ask(
        Prompt(InputKind::Integer, L"\n" + name + L" <1>: ").bits(RSG_NOZERO | RSG_NONEG));
    if (count.status == RTNONE) count.number = 1.0;
    co_return count;
}

struct Grid {
    int rows = 1;
    int columns = 1;
    double up = 0.0;
    double across = 0.0;
};

/// The original, the first of the first row, has none.
Matrices inGrid(const Grid& grid, const AcGeMatrix3d& ucs) {
    Matrices matrices;
    for (int row = 0; row < grid.rows; ++row)
        for (int column = row == 0 ? 1 : 0; column < grid.columns; ++column)
            matrices.push_back(AcGeMatrix3d::translation(
                ucs * AcGeVector3d(grid.across * column, grid.up * row, 0.0)));
    return matrices;
}

/// Nobody is asked for a single line; `grid`, with one line as long as its distance is not known,
/// gets `lines` and the distance. RTCAN after Esc.
Task<int> askSpacing(CommandContext context, Ids ids, std::wstring question, Grid* grid,
                     int Grid::*count, double Grid::*step, int lines) {
    if (lines < 2) co_return RTNORM;
    Prompt prompt(InputKind::Distance, question);
    prompt.required().bits(RSG_NOZERO);
    grid->*count = lines;
    const auto placesAt = [grid = *grid, step, ucs = context.editor().ucs()](const auto& to) {
        Grid shown = grid;
        shown.*step = (to - AcGePoint3d::kOrigin).length();
        return inGrid(shown, ucs);
    };
    showsCopies(prompt, context, ids, placesAt);
    const InputValue answer = co_await context.ask(prompt);
    grid->*step = answer.number;
    co_return answer.status;
}

Task<Places> rectangular(CommandContext context, Ids ids) {
    const InputValue rows = co_await askLines(context, L"Linhas");
    if (rows.status == RTCAN) co_return Places(RTCAN);
    const InputValue columns = co_await askLines(context, L"Colunas");
    if (columns.status == RTCAN) co_return Places(RTCAN);
    if (rows.number * columns.number < 2.0) {
        say(context, L"Uma linha e uma coluna são só o original: nada foi copiado.");
        co_return Places(RTNONE);
    }
    if (!mayCopy(context, rows.number * columns.number - 1.0, ids)) co_return Places(RTNONE);
    Grid grid;
    const int up = co_await askSpacing(context, ids, L"\nDistância entre linhas: ", &grid,
                                       &Grid::rows, &Grid::up, static_cast<int>(rows.number));
    if (up != RTNORM) co_return Places(RTCAN);
    const int across =
        co_await askSpacing(context, ids, L"\nDistância entre colunas: ", &grid, &Grid::columns,
                            &Grid::across, static_cast<int>(columns.number));
    if (across != RTNORM) co_return Places(RTCAN);
    Places places(RTNORM);
    places.matrices = inGrid(grid, context.editor().ucs());
    co_return places;
}

/// The original counted; at least 2.
Task<InputValue> askItems(CommandContext context) {
    for (;;) {
        const InputValue count = co_await context.ask(
            Prompt(InputKind::Integer, L"\nQuantos: ").required().bits(RSG_NOZERO | RSG_NONEG));
        if (count.status != RTNORM || count.number >= 2.0) co_return count;
        context.editor().complain(L"Requer um inteiro entre 2 e 32767: o original conta.",
                                  Complaint::Refused);
    }
}

/// A whole turn has no copy where it ends, on the original.
Matrices aboutCentre(const AcGePoint3d& centre, int items, double total) {
    const bool whole = std::abs(total) >= kTwoPi - 1e-9;
    const double step = total / (whole ? items : items - 1);
    Matrices matrices;
    for (int i = 1; i < items; ++i)
        matrices.push_back(AcGeMatrix3d::rotation(step * i, AcGeVector3d::kZAxis, centre));
    return matrices;
}

Task<InputValue> askTotalAngle(CommandContext context, AcGePoint3d centre, int items, Ids ids) {
    Prompt prompt(InputKind::Angle, L"\nÂngulo total <360>: ");
    prompt.from(centre).bits(RSG_NOZERO);
    const double turn = userTurn(context);
    showsCopies(prompt, context, ids, [centre, items, turn](const AcGePoint3d& to) {
        const AcGeVector3d arm = to - centre;
        return aboutCentre(centre, items, positiveAngle(std::atan2(arm.y, arm.x) - turn));
    });
    for (;;) {
        InputValue total = co_await context.ask(prompt);
        if (total.status == RTNONE) {
            total.status = RTNORM;
            total.number = kTwoPi;
        }
        if (total.status != RTNORM || std::abs(total.number) <= kTwoPi + 1e-9) co_return total;
        context.editor().complain(L"O ângulo total vai de -360 a 360 graus.", Complaint::Refused);
    }
}

Task<Places> polar(CommandContext context, Ids ids) {
    const InputValue centre =
        co_await context.ask(Prompt(InputKind::Point, L"\nCentro: ").required());
    if (centre.status != RTNORM) co_return Places(RTCAN);
    const InputValue count = co_await askItems(context);
    if (count.status != RTNORM) co_return Places(RTCAN);
    if (!mayCopy(context, count.number - 1.0, ids)) co_return Places(RTNONE);
    const int items = static_cast<int>(count.number);
    const InputValue total = co_await askTotalAngle(context, centre.point, items, ids);
    if (total.status != RTNORM) co_return Places(RTCAN);
    const InputValue turning = co_await askYesNo(context, L"\nGirar?", Choice::Yes);
    if (turning.status == RTCAN) co_return Places(RTCAN);
    Places places(RTNORM);
    places.matrices = aboutCentre(centre.point, items, total.number);
    if (turning.number != 0.0) co_return places;
    // All together go where the middle of the selection would be turned to.
    const AcGePoint3d middle = centreOf(context.editor(), ids);
    for (AcGeMatrix3d& matrix : places.matrices)
        matrix = AcGeMatrix3d::translation(matrix * middle - middle);
    co_return places;
}

Task<std::optional<Path>> askPath(CommandContext context) {
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nCaminho: ").required());
        if (picked.status == RTCAN) co_return std::nullopt;
        if (!picked.entities.empty()) {
            std::optional<Path> path = Path::of(picked.entities.front());
            if (path) co_return path;
        }
        context.editor().complain(
            L"Nenhum caminho aí: selecione uma linha, um arco, um círculo ou uma polilinha.",
            Complaint::Refused);
    }
}

/// Items at equal steps; the first one is the original.
Matrices onPath(const Path& path, double step, int items) {
    Matrices matrices;
    const Path::Place first = path.at(0.0);
    for (int i = 1; i < items; ++i) {
        const Path::Place next = path.at(step * i);
        const double turn =
            std::atan2(next.along.y, next.along.x) - std::atan2(first.along.y, first.along.x);
        matrices.push_back(AcGeMatrix3d::translation(next.place - first.place) *
                           AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, first.place));
    }
    return matrices;
}

/// As many as the path has room for.
double itemsAt(const Path& path, double step) {
    const double parts = path.length() / step;
    return path.closed() ? std::ceil(parts - 1e-9) : std::floor(parts + 1e-9) + 1.0;
}

/// Distance from item to item, `number`, and how many there are, `point.x`.
Task<InputValue> askSteps(CommandContext context, const Path* path, Ids ids) {
    constexpr double kMostShown = 500.0;
    const double length = path->length();
    const bool closed = path->closed();
    const InputValue how = co_await context.ask(
        Prompt(InputKind::Keyword, L"\n[Dividir/Medir] <Dividir>: ").words(kPathWords));
    if (how.status == RTCAN) co_return how;
    if (!isWord(how, L"Measure")) {
        InputValue items = co_await askItems(context);
        items.point.x = items.number;
        items.number = length / (closed ? items.number : items.number - 1.0);
        co_return items;
    }
    Prompt prompt(InputKind::Distance, L"\nDistância: ");
    prompt.required().bits(RSG_NOZERO | RSG_NONEG);
    const auto placesAt = [path = *path, length](const AcGePoint3d& to) {
        const double step = (to - AcGePoint3d::kOrigin).length();
        if (step <= length / kMostShown) return Matrices();
        return onPath(path, step, static_cast<int>(itemsAt(path, step)));
    };
    showsCopies(prompt, context, ids, placesAt);
    for (;;) {
        InputValue step = co_await context.ask(prompt);
        if (step.status != RTNORM) co_return step;
        step.point.x = itemsAt(*path, step.number);
        if (step.point.x >= 2.0) co_return step;
        context.editor().complain(
            L"O caminho tem " + toldLength(length) + L": a distância não cabe nele.",
            Complaint::Refused);
    }
}

/// The original is the first item and stands at the end of the path that is nearer to it; the
/// others stand to the path as it does.
Task<Places> alongPath(CommandContext context, Ids ids) {
    std::optional<Path> path = co_await askPath(context);
    if (!path) co_return Places(RTCAN);
    const AcGePoint3d middle = centreOf(context.editor(), ids);
    if (path->end().distanceTo(middle) < path->start().distanceTo(middle)) path->reverse();
    const InputValue step = co_await askSteps(context, &*path, ids);
    if (step.status != RTNORM) co_return Places(RTCAN);
    if (!mayCopy(context, step.point.x - 1.0, ids)) co_return Places(RTNONE);
    Places places(RTNORM);
    places.matrices = onPath(*path, step.number, static_cast<int>(step.point.x));
    co_return places;
}

}  // namespace

CommandTask array(CommandContext context) {
    Selection chosen = co_await selectForChange(context);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    const InputValue kind = co_await context.ask(
        Prompt(InputKind::Keyword, L"\n[Retangular/Polar/Caminho] <Retangular>: ")
            .words(kKindWords));
    if (kind.status == RTCAN) co_return CommandEnd::Cancelled;
    Places places(RTNONE);
    if (isWord(kind, L"Polar"))
        places = co_await polar(context, chosen.ids);
    else if (isWord(kind, L"PAth"))
        places = co_await alongPath(context, chosen.ids);
    else
        places = co_await rectangular(context, chosen.ids);
    for (const AcGeMatrix3d& matrix : places.matrices) (void)copyAll(context, chosen.ids, matrix);
    co_return endOf(places.status);
}

}  // namespace prancheta::commands
