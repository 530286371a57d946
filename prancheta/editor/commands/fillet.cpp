// SPDX-License-Identifier: MIT
// FILLET: an arc that touches two objects, or the sharp corner of both.
#include <cmath>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/corner.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/commands/tangent_circle.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kFilletWords[] = {{L"Desfazer", L"Undo"},
                                 {L"Polilinha", L"Polyline"},
                                 {L"Raio", L"Radius"},
                                 {L"Aparar", L"Trim"},
                                 {L"Múltiplo", L"Multiple"}};

AcGePoint3d inPlan(const Vec2& p) { return {p.x, p.y, 0.0}; }

TouchedCurve touched(const CornerSide& side) {
    const Segment& s = side.picked();
    return {
        inPlan(s.origin), {s.u.x, s.u.y, 0.0}, s.isRound() ? s.radius() : 0.0, inPlan(side.pick)};
}

/// Where a circle of this centre touches the picked line or circle.
Vec2 touchPoint(const CornerSide& side, const Vec2& center, double radius) {
    const Segment& s = side.picked();
    if (!s.isRound()) return s.origin + s.u * (dot(center - s.origin, s.u) / dot(s.u, s.u));
    const Vec2 arm = center - s.origin;
    // A circle that goes around the other touches it on the far side.
    const bool around = std::abs(radius - s.radius() - arm.length()) <= 1e-9 * radius;
    return s.origin + arm * ((around ? -s.radius() : s.radius()) / arm.length());
}

/// From `a` to `b` about the centre, the shorter way.
Curve arcBetween(const Vec2& center, const Vec2& a, const Vec2& b) {
    const Vec2 arm = a - center;
    const Vec2 other = b - center;
    return Curve(
        Segment{center, arm, arm.left(), 0.0, std::atan2(cross(arm, other), dot(arm, other))});
}

class Fillet : public CornerMaker {
public:
    explicit Fillet(double radius) : m_radius(radius) {}
    std::wstring settings(const CommandContext& context) const override {
        return std::wstring(L"Configuração atual: ") +
               (trimsSides(context) ? L"Aparar" : L"Não aparar") + L", raio = " +
               toldLength(m_radius);
    }
    std::wstring prompt() const override {
        return L"\nPrimeiro objeto ou [Desfazer/Polilinha/Raio/Aparar/Múltiplo]: ";
    }
    std::span<const Word> words() const override { return kFilletWords; }
    Task<int> take(CommandContext context, std::wstring word) override {
        if (word != L"Radius") co_return RTNORM;
        const InputValue answer = co_await context.ask(
            Prompt(InputKind::Distance, L"\nRaio da concordância <" + lengthText(m_radius) + L">: ")
                .bits(RSG_NONEG));
        if (answer.status == RTNORM) {
            m_radius = answer.number;
            context.editor().variables().force(L"FILLETRAD", m_radius);
        }
        co_return answer.status;
    }
    CornerCut cut(double turn) const override {
        const double off = m_radius * std::tan(std::abs(turn) / 2.0);
        return {off, off, turn};
    }
    bool sharp() const override { return !(m_radius > 0.0); }
    std::optional<CornerPlan> plan(const CornerSide& first, const CornerSide& second,
                                   const wchar_t*& whyNot) const override {
        const Segment& a = first.picked();
        const Segment& b = second.picked();
        if (!a.isRound() && !b.isRound() &&
            std::abs(cross(a.u, b.u)) <= 1e-9 * a.u.length() * b.u.length())
            return halfCircle(first, second, whyNot);
        const auto found = centerTouching(touched(first), touched(second), m_radius);
        if (!found) {
            whyNot = L"Nenhum arco desse raio toca os dois objetos.";
            return {};
        }
        const Vec2 center = seen(*found);
        const Vec2 atFirst = touchPoint(first, center, m_radius);
        const Vec2 atSecond = touchPoint(second, center, m_radius);
        return CornerPlan{atFirst, atSecond, arcBetween(center, atFirst, atSecond)};
    }

private:
    /// Parallel lines: from the first one's end that is nearer to the pick.
    static std::optional<CornerPlan> halfCircle(const CornerSide& first, const CornerSide& second,
                                                const wchar_t*& whyNot) {
        const Segment& a = first.picked();
        const Segment& b = second.picked();
        const bool start = distance(a.at(0.0), first.pick) < distance(a.at(1.0), first.pick);
        const Vec2 end = a.at(start ? 0.0 : 1.0);
        const Vec2 out = start ? -a.u : a.u;
        const Vec2 foot = b.origin + b.u * (dot(end - b.origin, b.u) / dot(b.u, b.u));
        const Vec2 arm = (end - foot) * 0.5;
        if (!(arm.length() > 1e-9 * a.u.length())) {
            whyNot = L"As linhas estão uma sobre a outra: não há arco entre elas.";
            return {};
        }
        const double sweep = cross(arm, out) > 0.0 ? kPi : -kPi;
        return CornerPlan{end, foot, Curve(Segment{foot + arm, arm, arm.left(), 0.0, sweep})};
    }

    double m_radius;
};

}  // namespace

CommandTask fillet(CommandContext context) {
    Fillet maker(context.database().core().variables().real(L"FILLETRAD"));
    co_return co_await makeCorners(context, maker);
}

}  // namespace prancheta::commands
