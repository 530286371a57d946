// SPDX-License-Identifier: MIT
// Groups by the release that brought them.
#include "prancheta/dxf/releases.h"

#include <algorithm>

#include "prancheta/dxf/tag.h"
#include "prancheta/graphics/palette.h"

namespace prancheta::dxf {
namespace {

constexpr std::string_view k2004 = "AC1018";
constexpr std::string_view k2007 = "AC1021";
constexpr std::string_view k2010 = "AC1024";

struct NewGroups {
    std::string_view type;
    int first;
    int last;
    std::string_view since;
};

constexpr NewGroups kNew[] = {
    // True colour, its name, transparency; shadows, material, visual style.
    {kAnyEntity, 420, 449, k2004},
    {kAnyEntity, 284, 284, k2007},
    {kAnyEntity, 347, 348, k2007},
    {"LAYER", 420, 449, k2004},
    {"LAYER", 347, 348, k2007},
    // Fixed extension lines, jogs, ground and arc mark of texts, linetypes, direction of texts.
    {"DIMSTYLE", 49, 50, k2007},
    {"DIMSTYLE", 69, 69, k2007},
    {"DIMSTYLE", 90, 90, k2007},
    {"DIMSTYLE", 290, 290, k2007},
    {"DIMSTYLE", 345, 347, k2007},
    {"DIMSTYLE", 294, 294, k2010},
    // Units, exploding, scaling.
    {"BLOCK_RECORD", 70, 70, k2007},
    {"BLOCK_RECORD", 280, 281, k2007},
    // Gradients: what is left is a solid fill.
    {"HATCH", 63, 63, k2004},
    {"HATCH", 421, 421, k2004},
    {"HATCH", 450, 470, k2004},
    // Ground behind the text.
    {"MTEXT", 45, 45, k2004},
    {"MTEXT", 63, 63, k2004},
    {"MTEXT", 90, 90, k2004},
    {"MTEXT", 420, 449, k2004},
};

/// One group tells of each loss; what has the usual value is none.
struct Loss {
    std::string_view type;
    int code;
    std::optional<long long> usual;
    std::string_view since;
    std::string_view what;
};

constexpr Loss kLosses[] = {
    {kAnyEntity, 420, {}, k2004, "cor verdadeira"},
    {"LAYER", 420, {}, k2004, "cor verdadeira"},
    {kAnyEntity, 440, 0, k2004, "transparência"},
    {"LAYER", 440, 0, k2004, "transparência"},
    {"HATCH", 450, 0, k2004, "degradê"},
    {"MTEXT", 90, 0, k2004, "fundo do texto"},
};

}  // namespace

std::string_view lossOf(std::string_view acadVersion, std::string_view type, const RawTag& tag) {
    if (acadVersion >= k2004) return {};
    for (const Loss& loss : kLosses) {
        long long value = 0;
        if (loss.type == type && loss.code == tag.code &&
            !(parseInteger(tag.value, value) && value == loss.usual))
            return loss.what;
    }
    return {};
}

bool isUnknownGroup(std::string_view acadVersion, std::string_view type, int code) {
    return acadVersion < k2010 &&
           std::any_of(std::begin(kNew), std::end(kNew), [&](const NewGroups& groups) {
               return code >= groups.first && code <= groups.last && acadVersion < groups.since &&
                      groups.type == type;
           });
}

void dropUnknownGroups(std::string_view acadVersion, std::string_view type, RawTags& tags) {
    // Group 70 of a dimension style is its flags, and further on the colour of a text's ground.
    const bool oneFlag = type == "DIMSTYLE" && acadVersion < k2007;
    int flags = 0;
    std::erase_if(tags, [&](const RawTag& tag) {
        return isUnknownGroup(acadVersion, type, tag.code) ||
               (oneFlag && tag.code == 70 && flags++ > 0);
    });
}

std::optional<int> indexOfTrueColor(std::string_view acadVersion, const RawTags& tags,
                                    std::size_t first, std::size_t last) {
    if (acadVersion >= k2004) return {};
    for (std::size_t i = first; i < last; ++i) {
        long long color = 0;
        if (tags[i].code != 420 || !parseInteger(tags[i].value, color)) continue;
        return nearestIndex(rgbOf(color));
    }
    return {};
}

}  // namespace prancheta::dxf
