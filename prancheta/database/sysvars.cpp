// SPDX-License-Identifier: MIT
// System variables.
#include "prancheta/database/sysvars.h"

#include <algorithm>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/variable_table.h"

namespace prancheta {
namespace {

/// Names are looked up at every step of the host: in alphabetical order, case ignored, nothing
/// copied.
bool isBefore(const VariableInfo& info, std::wstring_view name) {
    const auto upper = [](wchar_t c) {
        return c >= L'a' && c <= L'z' ? static_cast<wchar_t>(c - L'a' + L'A') : c;
    };
    return std::ranges::lexicographical_compare(info.name, name, {}, {}, upper);
}

bool sameValue(const VariableValue& a, const VariableValue& b) {
    const auto* p = std::get_if<AcGePoint3d>(&a);
    const auto* q = std::get_if<AcGePoint3d>(&b);
    if (p == nullptr || q == nullptr) return a == b;
    return p->x == q->x && p->y == q->y && p->z == q->z;
}

Error refusal(const VariableInfo& info, const std::string& why) {
    return {toUtf8(info.name) + ": " + why, {}, 0, 0};
}

std::string expectedType(const VariableValue& value) {
    static const char* const kTypes[] = {"um número inteiro", "um número", "um texto", "um ponto"};
    return std::string("o valor tem de ser ") + kTypes[value.index()] + ".";
}

Result<void> checkNumber(const VariableInfo& info, double number) {
    if (!std::isfinite(number)) return refusal(info, "o valor não é um número.");
    if (number >= info.minimum && number <= info.maximum) return {};
    std::string why = "o valor tem de ser ";
    if (info.maximum >= 1e300)
        why += info.minimum > 0.0 && info.minimum < 1e-200
                   ? "maior que zero."
                   : "maior ou igual a " + numberText(info.minimum) + ".";
    else
        why += "de " + numberText(info.minimum) + " a " + numberText(info.maximum) + ".";
    return refusal(info, why);
}

template <class T>
T valueOf(const VariableInfo* info) {
    const T* value = info != nullptr ? std::get_if<T>(&info->value) : nullptr;
    return value != nullptr ? *value : T();
}

}  // namespace

SystemVariables::SystemVariables() : m_all(variableTable()) {}

VariableInfo* SystemVariables::lookup(std::wstring_view name) {
    const auto at = std::lower_bound(m_all.begin(), m_all.end(), name, isBefore);
    return at != m_all.end() && equalNoCase(at->name, name) ? &*at : nullptr;
}

const VariableInfo* SystemVariables::find(std::wstring_view name) const {
    return const_cast<SystemVariables*>(this)->lookup(name);
}

Result<void> SystemVariables::set(std::wstring_view name, const VariableValue& value) {
    VariableInfo* info = lookup(name);
    if (info == nullptr) return Error{"Variável desconhecida: " + toUtf8(name) + ".", {}, 0, 0};
    if (info->access == VariableAccess::ReadOnly) return refusal(*info, "é somente de leitura.");
    if (value.index() != info->value.index()) return refusal(*info, expectedType(info->value));
    Result<void> good;
    if (const short* n = std::get_if<short>(&value)) good = checkNumber(*info, *n);
    if (const double* n = std::get_if<double>(&value)) good = checkNumber(*info, *n);
    if (const AcGePoint3d* p = std::get_if<AcGePoint3d>(&value)) {
        for (const double coordinate : {p->x, p->y, p->z})
            if (good) good = checkNumber(*info, coordinate);
    }
    if (good && info->home == VariableHome::Drawing && m_drawing.check)
        good = m_drawing.check(*info, value);
    if (good && m_check) good = m_check(*info, value);
    if (good) store(*info, value);
    return good;
}

void SystemVariables::force(std::wstring_view name, const VariableValue& value) {
    VariableInfo* info = lookup(name);
    if (info != nullptr && value.index() == info->value.index()) store(*info, value);
}

void SystemVariables::store(VariableInfo& info, const VariableValue& value) {
    if (sameValue(info.value, value)) return;
    const bool drawing = info.home == VariableHome::Drawing;
    if (drawing && m_drawing.before) m_drawing.before(info);
    info.value = value;
    if (drawing && m_drawing.changed) m_drawing.changed(info);
    if (m_changed) m_changed(info);
}

void SystemVariables::mirror(std::wstring_view name, VariableValue value) {
    VariableInfo* info = lookup(name);
    if (info != nullptr && value.index() == info->value.index()) info->value = std::move(value);
}

short SystemVariables::number(std::wstring_view name) const { return valueOf<short>(find(name)); }
double SystemVariables::real(std::wstring_view name) const { return valueOf<double>(find(name)); }
std::wstring SystemVariables::text(std::wstring_view name) const {
    return valueOf<std::wstring>(find(name));
}
AcGePoint3d SystemVariables::point(std::wstring_view name) const {
    return valueOf<AcGePoint3d>(find(name));
}

void SystemVariables::setHooks(Check check, Changed changed) {
    m_check = std::move(check);
    m_changed = std::move(changed);
}

}  // namespace prancheta
