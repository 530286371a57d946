// SPDX-License-Identifier: MIT
// CHAMFER: a straight line between two lines, a distance from their corner on each.
#include <cmath>
#include <limits>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/corner.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::commands {

namespace {

constexpr Word kChamferWords[] = {{L"Desfazer", L"Undo"},       {L"Polilinha", L"Polyline"},
                                  {L"DIstâncias", L"Distance"}, {L"âNgulo", L"Angle"},
                                  {L"Aparar", L"Trim"},         {L"Múltiplo", L"Multiple"}};

class Chamfer : public CornerMaker {
public:
    Chamfer(double first, double second) : m_first(first), m_second(second) {}
    std::wstring settings(const CommandContext& context) const override {
        return std::wstring(L"Configuração atual: ") +
               (trimsSides(context) ? L"Aparar" : L"Não aparar") + L", distâncias = " +
               toldLength(m_first) + L" e " + toldLength(m_second);
    }
    std::wstring prompt() const override {
        return L"\nPrimeiro objeto ou "
               L"[Desfazer/Polilinha/DIstâncias/âNgulo/Aparar/Múltiplo]: ";
    }
    std::span<const Word> words() const override { return kChamferWords; }
    Task<int> take(CommandContext context, std::wstring word) override {
        if (word != L"Distance" && word != L"Angle") co_return RTNORM;
        const InputValue first = co_await askLength(context, L"Primeira distância", m_first);
        if (first.status == RTCAN) co_return RTCAN;
        m_first = first.number;
        if (word == L"Angle") co_return co_await askAngle(context);
        const InputValue second = co_await askLength(context, L"Segunda distância", m_first);
        if (second.status == RTCAN) co_return RTCAN;
        m_second = second.number;
        m_angle = 0.0;
        context.editor().variables().force(L"CHAMFERA", m_first);
        context.editor().variables().force(L"CHAMFERB", m_second);
        co_return RTNORM;
    }
    CornerCut cut(double turn) const override {
        return {m_first, secondFor(kPi - std::abs(turn)), 0.0};
    }
    bool sharp() const override { return !(m_first > 0.0 || (m_angle == 0.0 && m_second > 0.0)); }
    std::optional<CornerPlan> plan(const CornerSide& first, const CornerSide& second,
                                   const wchar_t*& whyNot) const override {
        if (first.picked().isRound() || second.picked().isRound()) {
            whyNot = L"O chanfro precisa de dois segmentos retos.";
            return {};
        }
        const std::optional<Vec2> corner = meetingOf(first, second);
        if (!corner) {
            whyNot = L"As linhas são paralelas: não há canto a chanfrar.";
            return {};
        }
        const Vec2 one = towardsPick(first, *corner);
        const Vec2 other = towardsPick(second, *corner);
        const double between = std::atan2(std::abs(cross(one, other)), dot(one, other));
        const double aside = secondFor(between);
        if (!(aside >= 0.0) || !std::isfinite(aside)) {
            whyNot = L"Com esse ângulo o chanfro não alcança a segunda linha.";
            return {};
        }
        const Vec2 from = *corner + one * m_first;
        const Vec2 to = *corner + other * aside;
        return CornerPlan{from, to, Curve(straight(from, to))};
    }

private:
    static Task<InputValue> askLength(CommandContext context, std::wstring name, double byDefault) {
        InputValue answer = co_await context.ask(
            Prompt(InputKind::Distance, L"\n" + name + L" <" + lengthText(byDefault) + L">: ")
                .bits(RSG_NONEG));
        if (answer.status == RTNONE) answer.number = byDefault;
        co_return answer;
    }
    Task<int> askAngle(CommandContext context) {
        const InputValue angle =
            co_await context.ask(Prompt(InputKind::Angle, L"\nÂngulo com a primeira linha: ")
                                     .required()
                                     .bits(RSG_NOZERO | RSG_NONEG));
        if (angle.status == RTNORM) m_angle = angle.number;
        co_return angle.status;
    }
    /// Along the picked line from the corner, unit vector.
    static Vec2 towardsPick(const CornerSide& side, const Vec2& corner) {
        const Vec2 along = side.picked().u * (1.0 / side.picked().u.length());
        return dot(side.pick - corner, along) < 0.0 ? -along : along;
    }
    /// Law of sines in the triangle that is cut off; `between` is its angle at the corner.
    double secondFor(double between) const {
        if (m_angle == 0.0) return m_second;
        const double third = kPi - between - m_angle;
        return third > 1e-9 ? m_first * std::sin(m_angle) / std::sin(third)
                            : std::numeric_limits<double>::infinity();
    }

    double m_first;
    double m_second;
    double m_angle = 0.0;  // 0: by distances
};

}  // namespace

CommandTask chamfer(CommandContext context) {
    const SystemVariables& variables = context.database().core().variables();
    Chamfer maker(variables.real(L"CHAMFERA"), variables.real(L"CHAMFERB"));
    co_return co_await makeCorners(context, maker);
}

}  // namespace prancheta::commands
