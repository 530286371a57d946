// SPDX-License-Identifier: MIT
// System variables at the command line.
#include "prancheta/editor/variables.h"

#include <cmath>

#include "adscodes.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/typed_input.h"

namespace prancheta {

namespace {

/// Radians of one unit of AUNITS.
double unitOf(int angleUnits) { return readAngle(L"1", angleUnits).value_or(1.0); }

}  // namespace

bool isAngleVariable(std::wstring_view name) {
    for (const std::wstring_view angle : {L"ANGBASE", L"LASTANGLE", L"POLARANG", L"SNAPANG"})
        if (equalNoCase(name, angle)) return true;
    return false;
}

std::wstring variableText(const VariableInfo& info, int angleUnits) {
    if (!isAngleVariable(info.name)) return variableText(info.value);
    // Nobody wants to see what the conversion does to the last digits.
    constexpr double kDigits = 1e10;
    constexpr double kWithDigits = 1e5;  // greater numbers have no such digits
    const double shown = std::get<double>(info.value) / unitOf(angleUnits);
    if (std::fabs(shown) > kWithDigits) return numberTextWide(shown);
    return numberTextWide(std::round(shown * kDigits) / kDigits);
}

std::wstring variableText(const VariableValue& value) {
    if (const short* number = std::get_if<short>(&value)) return numberTextWide(*number);
    if (const double* real = std::get_if<double>(&value)) return numberTextWide(*real);
    if (const std::wstring* text = std::get_if<std::wstring>(&value)) return *text;
    const AcGePoint3d& p = std::get<AcGePoint3d>(value);
    return numberTextWide(p.x) + L"," + numberTextWide(p.y) + L"," + numberTextWide(p.z);
}

Result<VariableValue> readVariable(const VariableInfo& info, std::wstring_view text,
                                   int angleUnits) {
    text = trim(text);
    if (isAngleVariable(info.name)) {
        const std::optional<double> angle = readAngle(text, angleUnits);
        if (!angle) return Error{"Requer um ângulo válido."};
        return VariableValue(*angle);
    }
    switch (info.value.index()) {
        case 0: {
            const std::optional<long> value = readInteger(text);
            if (!value || *value < -32768 || *value > 32767)
                return Error{"Requer um inteiro entre -32768 e 32767."};
            return VariableValue(static_cast<short>(*value));
        }
        case 1: {
            const std::optional<double> value = readNumber(text);
            if (!value) return Error{"Requer um valor numérico."};
            return VariableValue(*value);
        }
        case 3: {
            const TypedPoint typed = readPoint(text, InputFrame());
            if (typed.kind != TypedPoint::Kind::Point) return Error{"Ponto inválido."};
            return VariableValue(typed.world);
        }
        default:
            return VariableValue(std::wstring(text));
    }
}

CommandTask askVariable(CommandContext context, std::wstring name) {
    name = upperCase(name);
    const VariableInfo* info = context.editor().variable(name);
    if (info == nullptr) co_return CommandEnd::Failed;
    const int angleUnits = context.editor().variables().number(L"AUNITS");
    const std::wstring shown = variableText(*info, angleUnits);
    const std::wstring quoted = info->value.index() == 2 ? L"\"" + shown + L"\"" : shown;
    if (info->access == VariableAccess::ReadOnly) {
        context.print(name + L" = " + quoted + L" (somente leitura)\n");
        co_return CommandEnd::Done;
    }
    InputRequest request;
    request.kind = InputKind::Text;
    request.blanksAllowed = info->value.index() == 2;
    request.prompt = L"\nDigite novo valor para " + name + L" <" + quoted + L">: ";
    for (;;) {
        const InputValue answer = co_await context.ask(request);
        if (answer.status == RTCAN) co_return CommandEnd::Cancelled;
        if (answer.status != RTNORM) co_return CommandEnd::Done;
        // "." empties a text, which a bare Enter would leave as it is.
        const bool clear = info->value.index() == 2 && answer.text == L".";
        const Result<VariableValue> value =
            readVariable(*info, clear ? L"" : answer.text, angleUnits);
        const Result<void> set =
            value ? context.editor().variables().set(name, *value) : Result<void>(value.error());
        if (set) co_return CommandEnd::Done;
        context.editor().complain(toWide(set.error().message()), Complaint::Refused);
    }
}

}  // namespace prancheta
