// SPDX-License-Identifier: MIT
// REVCLOUD: a closed polyline of arcs that bulge outwards, about points or in an object's place.
#include <algorithm>
#include <cmath>

#include "dbpl.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/path.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/picking.h"

namespace prancheta::commands {

namespace {

constexpr Word kRevcloudWords[] = {{L"Arco", L"Arc"}, {L"Objeto", L"Object"}};
constexpr double kUsualArc = 8.0;  ///< chord on paper, mm
constexpr double kBulge = 0.5;     ///< tangent of a quarter of the arc's angle: 106 degrees
constexpr double kMostArcs = 5000.0;

using Points = std::vector<AcGePoint3d>;

double twiceArea(const Points& points) {
    double sum = 0.0;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const AcGePoint3d& a = points[i];
        const AcGePoint3d& b = points[(i + 1) % points.size()];
        sum +=
            (a.x - points[0].x) * (b.y - points[0].y) - (b.x - points[0].x) * (a.y - points[0].y);
    }
    return sum;
}

/// One arc from each point to the next.
std::unique_ptr<AcDbPolyline> cloudOf(const Points& points) {
    auto cloud = std::make_unique<AcDbPolyline>();
    const double bulge = twiceArea(points) >= 0.0 ? kBulge : -kBulge;
    unsigned index = 0;
    for (const AcGePoint3d& p : points) (void)cloud->addVertexAt(index++, {p.x, p.y}, bulge);
    (void)cloud->setClosed(true);
    return cloud;
}

/// Sides in equal chords of about that length.
Points alongSides(const Points& corners, double chord) {
    Points points;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const AcGeVector3d side = corners[(i + 1) % corners.size()] - corners[i];
        const int parts = std::max(1, static_cast<int>(std::lround(side.length() / chord)));
        for (int k = 0; k < parts; ++k)
            points.push_back(corners[i] + side * (static_cast<double>(k) / parts));
    }
    return points;
}

Points alongPath(const Path& path, double chord) {
    Points points;
    const int parts = std::max(3, static_cast<int>(std::lround(path.length() / chord)));
    for (int k = 0; k < parts; ++k) points.push_back(path.at(path.length() * k / parts).place);
    return points;
}

double lengthAround(const Points& corners) {
    double sum = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i)
        sum += corners[i].distanceTo(corners[(i + 1) % corners.size()]);
    return sum;
}

/// False, after saying so, for more arcs than a cloud is good for.
bool mayDraw(const CommandContext& context, double length, double chord) {
    if (length / chord <= kMostArcs) return true;
    context.editor().complain(L"Os arcos de " + toldLength(chord) +
                                  L" são pequenos demais para um contorno de " +
                                  toldLength(length) + L".",
                              Complaint::Refused);
    return false;
}

Task<CommandEnd> ofObject(CommandContext context, double chord) {
    for (;;) {
        const InputValue picked = co_await context.ask(
            Prompt(InputKind::Entity, L"\nSelecione o contorno fechado: ").required());
        if (picked.status == RTCAN) co_return CommandEnd::Cancelled;
        const std::optional<Path> path =
            picked.entities.empty() ? std::nullopt : Path::of(picked.entities.front());
        if (!path || !path->closed()) {
            context.editor().complain(
                L"Nenhum contorno fechado aí: selecione um círculo ou uma polilinha fechada.",
                Complaint::Refused);
            continue;
        }
        if (!mayDraw(context, path->length(), chord)) co_return CommandEnd::Failed;
        const AcDbObjectId cloud = addEntity(context, cloudOf(alongPath(*path, chord)));
        if (cloud.isNull()) co_return CommandEnd::Failed;
        (void)eraseAll(context, picked.entities);
        co_return CommandEnd::Done;
    }
}

/// How near to its first point a cloud is closed: by hand within the pick box.
double closingReach(const CommandContext& context) {
    return context.editor().runner().interactive() ? pickTolerance(context.editor()) : 1e-6;
}

Task<CommandEnd> ofPoints(CommandContext context, AcGePoint3d first, double chord) {
    Points corners{first};
    for (;;) {
        Prompt prompt(InputKind::Point, L"\nPróximo ponto <fechar>: ");
        prompt.from(corners.back());
        prompt.showing(context, [&corners, chord](const AcGePoint3d& at) {
            Points trial = corners;
            trial.push_back(at);
            return lengthAround(trial) / chord > kMostArcs ? nullptr
                                                           : cloudOf(alongSides(trial, chord));
        });
        const InputValue answer = co_await context.ask(prompt);
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        const bool closes =
            answer.status == RTNONE ||
            (corners.size() > 2 && answer.point.distanceTo(first) <= closingReach(context));
        if (!closes) {
            corners.push_back(answer.point);
        } else if (corners.size() < 3) {
            context.editor().complain(L"A nuvem precisa de três pontos ou mais.",
                                      Complaint::Refused);
        } else if (mayDraw(context, lengthAround(corners), chord)) {
            const AcDbObjectId cloud = addEntity(context, cloudOf(alongSides(corners, chord)));
            co_return cloud.isNull() ? CommandEnd::Failed : CommandEnd::Done;
        } else {
            co_return CommandEnd::Failed;
        }
    }
}

}  // namespace

CommandTask revcloud(CommandContext context) {
    double& typed = memory(context).cloudArc;
    for (;;) {
        const double arc =
            typed > 0.0 ? typed : kUsualArc * std::max(context.database().dimscale(), 1e-9);
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Point, L"\nPrimeiro ponto ou [comprimento do Arco/Objeto] <Objeto>: ")
                .words(kRevcloudWords));
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (answer.status == RTNORM) co_return co_await ofPoints(context, answer.point, arc);
        if (!isWord(answer, L"Arc")) co_return co_await ofObject(context, arc);
        const InputValue length = co_await context.ask(
            Prompt(InputKind::Distance, L"\nComprimento do arco <" + lengthText(arc) + L">: ")
                .bits(RSG_NOZERO | RSG_NONEG));
        if (length.status == RTCAN) co_return CommandEnd::Cancelled;
        if (length.status == RTNORM) typed = length.number;
    }
}

}  // namespace prancheta::commands
