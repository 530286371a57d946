// SPDX-License-Identifier: MIT
// PEDIT, its vertices: a mark goes from one to the next, and what is said is done to the marked
// one.
#include <algorithm>

#include "prancheta/editor/commands/cut.h"
#include "prancheta/editor/commands/pedit.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"
#include "prancheta/graphics/picture.h"

namespace prancheta::commands {

namespace {

using Vertices = std::vector<PolylineVertex>;

constexpr Word kVertexWords[] = {{L"Próximo", L"Next"},   {L"Anterior", L"Previous"},
                                 {L"Inserir", L"Insert"}, {L"Mover", L"Move"},
                                 {L"aPagar", L"eRase"},   {L"Retificar", L"Straighten"},
                                 {L"Largura", L"Width"},  {L"Sair", L"eXit"}};
constexpr Word kEndWords[] = {
    {L"Próximo", L"Next"}, {L"Anterior", L"Previous"}, {L"Ir", L"Go"}, {L"Sair", L"eXit"}};

/// From the polyline's plane to the world.
AcGeMatrix3d planeOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbPolyline> polyline(id, AcDb::kForRead);
    if (polyline.openStatus() != Acad::eOk) return AcGeMatrix3d();
    return planeToWorld(polyline->normal()) *
           AcGeMatrix3d::translation({0.0, 0.0, polyline->elevation()});
}

/// The question shows a cross on the marked vertex.
Prompt markedPrompt(const CommandContext& context, InputKind kind, const std::wstring& question,
                    const AcGePoint3d& at) {
    constexpr double kHalf = 6.0;  // pixels
    const double half = kHalf * context.editor().screen().pixelSize();
    Prompt prompt(kind, question);
    prompt.preview([at, half](const AcGePoint3d&, Picture& out) {
        for (const double up : {half, -half})
            out.addPolyline({}, std::vector<AcGePoint3d>{{at.x - half, at.y - up, at.z},
                                                         {at.x + half, at.y + up, at.z}});
    });
    return prompt;
}

struct Marked {
    AcDbObjectId polyline;
    Vertices vertices;
    AcGeMatrix3d place;
    std::size_t at = 0;

    AcGePoint3d shown(std::size_t i) const {
        return place * AcGePoint3d(vertices[i].at.x, vertices[i].at.y, 0.0);
    }
    Vec2 inPlane(const AcGePoint3d& world) const {
        const AcGePoint3d p = place.inverse() * world;
        return {p.x, p.y};
    }
    std::size_t step(std::size_t from, bool on) const {
        const std::size_t n = vertices.size();
        return (from + (on ? 1 : n - 1)) % n;
    }
};

Task<int> moveVertex(CommandContext context, Marked* marked, bool inserts) {
    Prompt prompt(InputKind::Point,
                  inserts ? L"\nPosição do novo vértice: " : L"\nNova posição do vértice: ");
    prompt.from(marked->shown(marked->at)).required();
    const InputValue to = co_await context.ask(prompt);
    if (to.status != RTNORM) co_return RTCAN;
    if (inserts) {
        PolylineVertex vertex = marked->vertices[marked->at];
        vertex.bulge = 0.0;
        vertex.startWidth = vertex.endWidth;
        const auto place = marked->vertices.begin() + static_cast<std::ptrdiff_t>(marked->at) + 1;
        marked->vertices.insert(place, vertex);
        marked->vertices[marked->at].bulge = 0.0;
        ++marked->at;
    }
    marked->vertices[marked->at].at = marked->inPlane(to.point);
    co_return RTNORM;
}

bool eraseVertex(const CommandContext& context, Marked& marked) {
    if (marked.vertices.size() < 3) {
        refuse(context, L"Uma polilinha tem ao menos dois vértices.");
        return false;
    }
    marked.vertices.erase(marked.vertices.begin() + static_cast<std::ptrdiff_t>(marked.at));
    marked.at = std::min(marked.at, marked.vertices.size() - 1);
    return true;
}

/// All between the marked vertex and another one goes, and a straight segment takes its place.
Task<int> straighten(CommandContext context, Marked* marked) {
    std::size_t other = marked->at;
    for (;;) {
        const InputValue word =
            co_await context.ask(markedPrompt(context, InputKind::Keyword,
                                              L"\nAté o vértice " + std::to_wstring(other + 1) +
                                                  L" [Próximo/Anterior/Ir/Sair] <Próximo>: ",
                                              marked->shown(other))
                                     .words(kEndWords));
        if (word.status == RTCAN) co_return RTCAN;
        if (isWord(word, L"eXit")) co_return RTNONE;
        if (isWord(word, L"Go")) break;
        other = marked->step(other, !isWord(word, L"Previous"));
    }
    const auto [first, last] = std::minmax(marked->at, other);
    const auto begin = marked->vertices.begin();
    marked->vertices[first].bulge = 0.0;
    if (last > first + 1)
        marked->vertices.erase(begin + static_cast<std::ptrdiff_t>(first) + 1,
                               begin + static_cast<std::ptrdiff_t>(last));
    marked->at = first;
    co_return RTNORM;
}

Task<int> widen(CommandContext context, Marked* marked) {
    PolylineVertex& vertex = marked->vertices[marked->at];
    double start = vertex.startWidth;
    const InputValue first = co_await askKept(context, InputKind::Distance,
                                              L"Largura inicial do segmento", RSG_NONEG, start);
    if (first.status == RTCAN) co_return RTCAN;
    double end = start;
    const InputValue second = co_await askKept(context, InputKind::Distance,
                                               L"Largura final do segmento", RSG_NONEG, end);
    if (second.status == RTCAN) co_return RTCAN;
    vertex.startWidth = start;
    vertex.endWidth = end;
    co_return RTNORM;
}

/// RTNORM when the vertices are others now.
Task<int> changeVertex(CommandContext context, Marked* marked, std::wstring word) {
    if (word == L"eRase") co_return eraseVertex(context, *marked) ? RTNORM : RTNONE;
    if (word == L"Straighten") co_return co_await straighten(context, marked);
    if (word == L"Width") co_return co_await widen(context, marked);
    co_return co_await moveVertex(context, marked, word == L"Insert");
}

}  // namespace

Task<int> editVertices(CommandContext context, AcDbObjectId polyline) {
    Marked marked{polyline, verticesIn(polyline), planeOf(polyline)};
    bool on = true;
    while (marked.vertices.size() >= 2) {
        const InputValue word = co_await context.ask(
            markedPrompt(context, InputKind::Keyword,
                         L"\nVértice " + std::to_wstring(marked.at + 1) +
                             L" [Próximo/Anterior/Inserir/Mover/aPagar/Retificar/Largura/Sair] <" +
                             (on ? L"Próximo" : L"Anterior") + L">: ",
                         marked.shown(marked.at))
                .words(kVertexWords));
        if (word.status == RTCAN) co_return RTCAN;
        if (isWord(word, L"eXit")) co_return RTNORM;
        if (word.status == RTNONE || isWord(word, L"Next") || isWord(word, L"Previous")) {
            if (word.status == RTKWORD) on = isWord(word, L"Next");
            marked.at = marked.step(marked.at, on);
            continue;
        }
        const int status = co_await changeVertex(context, &marked, word.text);
        if (status == RTCAN) co_return RTCAN;
        if (status == RTNORM && !putVertices(context, polyline, marked.vertices)) co_return RTNORM;
    }
    co_return RTNORM;
}

}  // namespace prancheta::commands
