// SPDX-License-Identifier: MIT
// Numbers as texts, by the current units.
#include <cmath>
#include <cstdio>

#include "acedads.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/typed_input.h"
#include "prancheta/geometry/angles.h"

namespace {

using prancheta::Editor;
using prancheta::kPi;

constexpr int kMaxPrecision = 8;

std::string fixedText(double value, int precision, char form = 'f') {
    char buffer[400];
    const char format[] = {'%', '.', '*', form, 0};
    std::snprintf(buffer, sizeof buffer, format, precision, value);
    const bool zero = std::string_view(buffer).find_first_of("123456789") == std::string_view::npos;
    return zero && buffer[0] == '-' ? buffer + 1 : buffer;
}

/// "3 1/4": whole part and fraction with a denominator of 2^precision, reduced.
std::string fractionText(double value, int precision) {
    long long denominator = 1LL << precision;
    long long parts = std::llround(std::fabs(value) * static_cast<double>(denominator));
    std::string text = value < 0.0 && parts != 0 ? "-" : "";
    const long long whole = parts / denominator;
    parts %= denominator;
    while (parts != 0 && parts % 2 == 0) {
        parts /= 2;
        denominator /= 2;
    }
    if (whole != 0 || parts == 0) text += std::to_string(whole) + (parts != 0 ? " " : "");
    if (parts != 0) text += std::to_string(parts) + "/" + std::to_string(denominator);
    return text;
}

/// Feet and inches of a length in inches.
std::string feetText(double value, int precision, bool fractions) {
    const auto inchesText = [&](double inches) {
        return fractions ? fractionText(inches, precision) : fixedText(inches, precision);
    };
    const double size = std::fabs(value);
    double feet = std::floor(size / 12.0);
    std::string inches = inchesText(size - feet * 12.0);
    // Less than twelve that round up to it are one more foot.
    if (inches.starts_with("12")) {
        inches = inchesText(0.0);
        feet += 1.0;
    }
    const std::string text = fixedText(feet, 0) + "'-" + inches + "\"";
    const bool zero = text.find_first_of("123456789") == std::string::npos;
    return value < 0.0 && !zero ? "-" + text : text;
}

std::string degreesText(double degrees, int precision) {
    const int decimals = std::max(precision - 4, 0);
    const double unit = precision == 0   ? 1.0
                        : precision <= 2 ? 1.0 / 60.0
                                         : std::pow(10.0, -decimals) / 3600.0;
    double rest = std::round(degrees / unit) * unit;
    if (rest > 360.0 - unit / 2.0) rest = 0.0;
    const double whole = std::floor(rest + unit * 1e-3);
    if (precision == 0) return fixedText(whole, 0) + "d";
    rest = std::max((rest - whole) * 60.0, 0.0);
    if (precision <= 2) return fixedText(whole, 0) + "d" + fixedText(rest, 0) + "'";
    const double minutes = std::floor(rest + unit * 60.0 * 1e-3);
    const double seconds = std::max((rest - minutes) * 60.0, 0.0);
    return fixedText(whole, 0) + "d" + fixedText(minutes, 0) + "'" + fixedText(seconds, decimals) +
           "\"";
}

int settingOr(const Editor& editor, int value, std::wstring_view variable) {
    return value >= 0 ? value : editor.variables().number(variable);
}

int put(const std::string& from, ACHAR* to) {
    const std::wstring wide = prancheta::toWide(from);
    to[wide.copy(to, wide.size())] = 0;
    return RTNORM;
}

}  // namespace

int acdbRToS(ads_real value, int unit, int precision, ACHAR* text) {
    const Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr || !std::isfinite(value)) return RTERROR;
    unit = settingOr(*editor, unit, L"LUNITS");
    precision = std::min(settingOr(*editor, precision, L"LUPREC"), kMaxPrecision);
    switch (unit) {
        case 1:
            return put(fixedText(value, precision, 'E'), text);
        case 2:
            return put(fixedText(value, precision), text);
        case 3:
        case 4:
            return put(feetText(value, precision, unit == 4), text);
        case 5:
            return put(fractionText(value, precision), text);
        default:
            return RTERROR;
    }
}

int acdbAngToS(ads_real angle, int unit, int precision, ACHAR* text) {
    const Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr || !std::isfinite(angle)) return RTERROR;
    unit = settingOr(*editor, unit, L"AUNITS");
    precision = std::min(settingOr(*editor, precision, L"AUPREC"), kMaxPrecision);
    const double relative = angle - editor->variables().real(L"ANGBASE");
    const bool clockwise = editor->variables().number(L"ANGDIR") != 0;
    const double shown = prancheta::positiveAngle(clockwise ? -relative : relative);
    const double turn = unit == 2 ? 400.0 : unit == 3 ? 2.0 * kPi : 360.0;
    double number = shown / (2.0 * kPi) * turn;
    // What rounds up to a full turn is shown as none.
    if (number + 0.5 * std::pow(10.0, -precision) >= turn && unit != 1) number = 0.0;
    switch (unit) {
        case 0:
            return put(fixedText(number, precision), text);
        case 1:
            return put(degreesText(number, precision), text);
        case 2:
            return put(fixedText(number, precision) + "g", text);
        case 3:
            return put(fixedText(number, precision) + "r", text);
        default:
            return RTERROR;
    }
}

int acdbDisToF(const ACHAR* text, int, ads_real* value) {
    if (text == nullptr || value == nullptr) return RTERROR;
    const std::optional<double> read = prancheta::readNumber(prancheta::trim(text));
    if (!read) return RTERROR;
    *value = *read;
    return RTNORM;
}

int acdbAngToF(const ACHAR* text, int unit, ads_real* angle) {
    const Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr || angle == nullptr) return RTERROR;
    unit = settingOr(*editor, unit, L"AUNITS");
    const std::optional<double> read = prancheta::readAngle(prancheta::trim(text), unit);
    if (!read) return RTERROR;
    *angle = prancheta::directionOf(*read, editor->runner().inputFrame(prancheta::RawInput()));
    return RTNORM;
}
