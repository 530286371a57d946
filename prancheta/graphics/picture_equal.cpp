// SPDX-License-Identifier: MIT
// Equality of pictures: coordinates rounded to steps far above the noise of moving a piece to its
// own frame and far below anything drawn.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cwchar>

#include "prancheta/graphics/picture.h"

namespace prancheta {

namespace {

constexpr double kLengthSteps = 1e6;
constexpr double kAngleSteps = 1e9;

double rounded(double value, double steps) { return std::nearbyint(value * steps) + 0.0; }

/// Radius and height are lengths, all other numbers are bulges, angles, factors and unit vectors.
double stepsOf(PrimitiveKind kind, std::size_t index) {
    const bool curve = kind == PrimitiveKind::Circle || kind == PrimitiveKind::Arc;
    const bool length = (curve && index == 3) || (kind == PrimitiveKind::Text && index == 6);
    return length ? kLengthSteps : kAngleSteps;
}

bool samePoint(const AcGePoint3d& a, const AcGePoint3d& b) {
    return rounded(a.x, kLengthSteps) == rounded(b.x, kLengthSteps) &&
           rounded(a.y, kLengthSteps) == rounded(b.y, kLengthSteps) &&
           rounded(a.z, kLengthSteps) == rounded(b.z, kLengthSteps);
}

bool sameTraits(const PictureTraits& a, const PictureTraits& b) {
    return a.layer == b.layer && a.linetype == b.linetype && a.color == b.color &&
           a.trueColor == b.trueColor && a.lineWeight == b.lineWeight &&
           rounded(a.linetypeScale, kAngleSteps) == rounded(b.linetypeScale, kAngleSteps);
}

class Mixer {
public:
    void add(std::uint64_t value) {
        m_state = (m_state ^ value) * 0x9E3779B97F4A7C15ULL;
        m_state ^= m_state >> 29;
    }
    void add(double value, double steps) {
        add(std::bit_cast<std::uint64_t>(rounded(value, steps)));
    }
    void add(const AcGePoint3d& p) {
        add(p.x, kLengthSteps);
        add(p.y, kLengthSteps);
        add(p.z, kLengthSteps);
    }
    std::size_t state() const { return m_state; }

private:
    std::uint64_t m_state = 0x2545F4914F6CDD1DULL;
};

}  // namespace

bool Picture::operator==(const Picture& other) const {
    if (size() != other.size() || m_points.size() != other.m_points.size() ||
        m_numbers.size() != other.m_numbers.size() || m_text != other.m_text)
        return false;
    for (std::size_t i = 0; i < size(); ++i) {
        const PrimitiveView a = (*this)[i];
        const PrimitiveView b = other[i];
        if (a.kind() != b.kind() || a.closed() != b.closed() || !sameTraits(a.traits(), b.traits()))
            return false;
        if (!std::ranges::equal(a.points(), b.points(), samePoint)) return false;
        const auto mine = a.numbers();
        const auto theirs = b.numbers();
        if (mine.size() != theirs.size()) return false;
        for (std::size_t k = 0; k < mine.size(); ++k) {
            const double steps = stepsOf(a.kind(), k);
            if (rounded(mine[k], steps) != rounded(theirs[k], steps)) return false;
        }
    }
    return true;
}

std::size_t Picture::hash() const {
    Mixer mixer;
    for (const PrimitiveView p : *this) {
        const PictureTraits& traits = p.traits();
        mixer.add(static_cast<std::uint64_t>(p.kind()) * 2U + (p.closed() ? 1U : 0U));
        mixer.add(static_cast<std::uint64_t>(traits.layer.asOldId()));
        mixer.add(static_cast<std::uint64_t>(traits.linetype.asOldId()));
        mixer.add(traits.color * 0x10000ULL + static_cast<std::uint16_t>(traits.lineWeight));
        mixer.add(static_cast<std::uint64_t>(traits.trueColor ? numberOf(*traits.trueColor) : -1));
        mixer.add(traits.linetypeScale, kAngleSteps);
        for (const AcGePoint3d& point : p.points()) mixer.add(point);
        const auto numbers = p.numbers();
        for (std::size_t k = 0; k < numbers.size(); ++k)
            mixer.add(numbers[k], stepsOf(p.kind(), k));
    }
    for (const wchar_t c : m_text) mixer.add(static_cast<std::uint64_t>(c));
    return mixer.state();
}

}  // namespace prancheta
