// SPDX-License-Identifier: MIT
// The patterns that come with the program.
#include "prancheta/entities/hatch_patterns.h"

#include "prancheta/base/text.h"
#include "prancheta/geometry/angles.h"

namespace prancheta {

namespace {

/// Lines at an angle, `pitch` apart; the first one lies `aside` of the origin. Dashes of each line
/// begin `shift` after those of the one before.
HatchFamily lines(double degrees, double pitch, double aside = 0.0, double shift = 0.0,
                  std::vector<double> dashes = {}) {
    const double angle = degrees * kPi / 180.0;
    const auto [s, c] = sineCosine(angle);
    return {angle,
            {-aside * s, aside * c},
            {shift * c - pitch * s, shift * s + pitch * c, 0.0},
            std::move(dashes)};
}

// Spacings of the first three are those that drawings of metal sections usually have: an eighth of
// an inch, and pairs of lines every three eighths.
constexpr double kEighth = 3.175;

}  // namespace

std::span<const HatchPattern> hatchPatterns() {
    static const std::vector<HatchFamily> kIron = {lines(45, kEighth)};
    static const std::vector<HatchFamily> kSteel = {lines(45, 3 * kEighth),
                                                    lines(45, 3 * kEighth, -kEighth)};
    static const std::vector<HatchFamily> kCross = {lines(45, kEighth), lines(135, kEighth)};
    // Grains: short strokes in three directions that never fall into step, and sand between them.
    static const std::vector<HatchFamily> kConcrete = {
        lines(23, 11, 2, 7.3, {3.5, -19.0}),  lines(96, 13, 1, 8.9, {3.0, -23.5}),
        lines(151, 12, 4, 6.1, {4.0, -21.0}), lines(8, 5.5, 0, 3.7, {0.0, -8.3}),
        lines(67, 7.5, 3, 4.9, {0.0, -11.7}),
    };
    // Bundles of three strokes, lying and standing in turn.
    static const std::vector<HatchFamily> kEarth = {
        lines(0, 8, 1, 8, {6.0, -10.0}),    lines(0, 8, 3, 8, {6.0, -10.0}),
        lines(0, 8, 5, 8, {6.0, -10.0}),    lines(90, 8, -9, 8, {6.0, -10.0}),
        lines(90, 8, -11, 8, {6.0, -10.0}), lines(90, 8, -13, 8, {6.0, -10.0}),
    };
    static const HatchPattern kPatterns[] = {
        {L"ANSI31", L"ANSI31", L"corte em geral", kIron},
        {L"ANSI32", L"ANSI32", L"aço", kSteel},
        {L"ANSI37", L"ANSI37", L"linhas cruzadas", kCross},
        {L"CONCRETO", L"CONCRETE", L"concreto", kConcrete},
        {L"TERRA", L"EARTH", L"terra", kEarth},
        {L"SOLID", L"SOLID", L"cheia", {}},
    };
    return kPatterns;
}

const HatchPattern* hatchPattern(std::wstring_view name) {
    for (const HatchPattern& pattern : hatchPatterns())
        if (equalNoCase(name, pattern.name) || equalNoCase(name, pattern.global)) return &pattern;
    return nullptr;
}

void setPattern(AcDbHatch& hatch, const HatchPattern& pattern, double scale, double angle) {
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(angle, AcGeVector3d::kZAxis);
    std::vector<HatchFamily> families(pattern.families.begin(), pattern.families.end());
    for (HatchFamily& f : families) {
        const AcGePoint3d base = turn * AcGePoint3d(f.base.x * scale, f.base.y * scale, 0.0);
        f.angle = positiveAngle(f.angle + angle);
        f.base = {base.x, base.y};
        f.offset = turn * (f.offset * scale);
        for (double& dash : f.dashes) dash *= scale;
    }
    (void)hatch.setSolidFill(families.empty());
    (void)hatch.setPattern(1, pattern.name, angle, scale, false, std::move(families));
}

void scalePattern(AcDbHatch& hatch, double factor) {
    std::vector<HatchFamily> families = hatch.families();
    for (HatchFamily& f : families) {
        f.base = {f.base.x * factor, f.base.y * factor};
        f.offset *= factor;
        for (double& dash : f.dashes) dash *= factor;
    }
    (void)hatch.setPattern(hatch.patternType(), hatch.patternName(), hatch.patternAngle(),
                           hatch.patternScale() * factor, hatch.patternDouble(),
                           std::move(families));
}

}  // namespace prancheta
