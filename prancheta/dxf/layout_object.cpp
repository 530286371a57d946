// SPDX-License-Identifier: MIT
// LAYOUT objects in files.
#include "prancheta/dxf/layout_object.h"

#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/database/layouts.h"

namespace prancheta::dxf {
namespace {

constexpr const char* kPlotMarker = "AcDbPlotSettings";
constexpr const char* kLayoutMarker = "AcDbLayout";

struct UsualGroup {
    int code;
    const char* value;
};

// 1:1 in millimetres on no printer yet; what the class holds is put in its place.
constexpr UsualGroup kUsual[] = {
    {100, kPlotMarker},
    {1, ""},
    {2, "none_device"},
    {4, ""},
    {6, ""},
    {40, "0.0"},
    {41, "0.0"},
    {42, "0.0"},
    {43, "0.0"},
    {44, "0.0"},
    {45, "0.0"},
    {46, "0.0"},
    {47, "0.0"},
    {48, "0.0"},
    {49, "0.0"},
    {140, "0.0"},
    {141, "0.0"},
    {142, "1.0"},
    {143, "1.0"},
    {70, "688"},
    {72, "1"},
    {73, "0"},
    {74, "5"},
    {7, ""},
    {75, "16"},
    {147, "1.0"},
    {148, "0.0"},
    {149, "0.0"},
    {100, kLayoutMarker},
    {1, ""},
    {70, "1"},
    {71, "0"},
    {10, "0.0"},
    {20, "0.0"},
    {11, "0.0"},
    {21, "0.0"},
    {12, "0.0"},
    {22, "0.0"},
    {32, "0.0"},
    {14, "1e+20"},
    {24, "1e+20"},
    {34, "1e+20"},
    {15, "-1e+20"},
    {25, "-1e+20"},
    {35, "-1e+20"},
    {146, "0.0"},
    {13, "0.0"},
    {23, "0.0"},
    {33, "0.0"},
    {16, "1.0"},
    {26, "0.0"},
    {36, "0.0"},
    {17, "0.0"},
    {27, "1.0"},
    {37, "0.0"},
    {76, "0"},
    {330, "0"},
};
constexpr const char* kModelFlags = "1712";  ///< of group 70: the same for the model

/// What a group says: the part of the record and the code.
struct Place {
    bool plot;
    int code;
    bool operator==(const Place&) const = default;
};

struct NumberAt {
    Place place;
    double value;
};

/// All numbers of the class where they stand in the record.
std::vector<NumberAt> numbersOf(const AcDbLayout& layout) {
    double size[2];
    double margins[4];
    layout.getPlotPaperSize(size[0], size[1]);
    layout.getPlotPaperMargins(margins[0], margins[1], margins[2], margins[3]);
    return {{{true, 40}, margins[0]},
            {{true, 41}, margins[1]},
            {{true, 42}, margins[2]},
            {{true, 43}, margins[3]},
            {{true, 44}, size[0]},
            {{true, 45}, size[1]},
            {{true, 73}, static_cast<double>(layout.plotRotation())},
            {{false, 71}, static_cast<double>(layout.tabOrder())}};
}

/// Corners of the sheet, which follow from the numbers above.
std::vector<NumberAt> limitsOf(const AcDbLayout& layout) {
    const Box2d sheet = sheetOf(layout);
    return {{{false, 10}, sheet.left},
            {{false, 20}, sheet.bottom},
            {{false, 11}, sheet.right},
            {{false, 21}, sheet.top}};
}

/// Calls visit(place, tag) for each group, markers among them.
template <class Groups, class Visit>
void visitGroups(const Groups& groups, Visit&& visit) {
    Place place{true, 0};
    for (const auto& tag : groups) {
        if (tag.code == 100) place.plot = trim(std::string_view(tag.value)) == kPlotMarker;
        place.code = tag.code;
        visit(place, tag);
    }
}

const NumberAt* find(const std::vector<NumberAt>& numbers, const Place& place) {
    const auto at = std::find_if(numbers.begin(), numbers.end(),
                                 [&](const NumberAt& each) { return each.place == place; });
    return at != numbers.end() ? &*at : nullptr;
}

bool says(std::string_view text, double value) {
    double read = 0.0;
    return parseReal(text, read) && read == value;
}

RawTags usualGroups(bool model) {
    RawTags tags;
    visitGroups(kUsual, [&](const Place& place, const UsualGroup& group) {
        const bool flags = model && place == Place{true, 70};
        tags.push_back({group.code, flags ? kModelFlags : group.value});
    });
    return tags;
}

}  // namespace

bool readLayout(const Tags& body, LoadNames& names, AcDbLayout& layout) {
    std::wstring name;
    std::wstring media;
    AcDbObjectId block;
    std::vector<NumberAt> numbers = numbersOf(layout);
    bool good = true;
    visitGroups(body, [&](const Place& place, const Tag& tag) {
        if (place == Place{false, 1}) name = names.text(tag.value);
        if (place == Place{true, 4}) media = names.text(tag.value);
        if (place == Place{false, 330} && block.isNull()) block = names.byHandle(tag.value);
        if (const NumberAt* const known = find(numbers, place))
            good = parseReal(tag.value,
                             numbers[static_cast<std::size_t>(known - numbers.data())].value) &&
                   good;
    });
    const AcDbStub* const stub = block;
    if (!good || stub == nullptr || AcDbBlockTableRecord::cast(stub->object) == nullptr)
        return false;
    const int rotation = static_cast<int>(numbers[6].value);
    if (layout.setLayoutName(name.c_str()) != Acad::eOk || rotation < 0 || rotation > 3)
        return false;
    if (layout.setPlotPaper(media.c_str(), numbers[4].value, numbers[5].value) != Acad::eOk)
        return false;
    (void)layout.setPlotPaperMargins(numbers[0].value, numbers[1].value, numbers[2].value,
                                     numbers[3].value);
    (void)layout.setPlotRotation(static_cast<AcDbLayout::PlotRotation>(rotation));
    (void)layout.setTabOrder(static_cast<int>(numbers[7].value));
    (void)layout.setBlockTableRecordId(block);
    return true;
}

void writeLayout(const AcDbLayout& layout, const RawTags& kept, Adesk::UInt64 block,
                 TagWriter& out) {
    const bool model = layout.tabOrder() == 0;
    const RawTags& tags = kept.empty() ? usualGroups(model) : kept;
    std::vector<NumberAt> numbers = numbersOf(layout);
    bool sameSheet = true;
    visitGroups(tags, [&](const Place& place, const RawTag& tag) {
        const NumberAt* const own = place.plot ? find(numbers, place) : nullptr;
        sameSheet = sameSheet && (own == nullptr || says(tag.value, own->value));
    });
    if (!sameSheet)
        for (const NumberAt& limit : limitsOf(layout)) numbers.push_back(limit);
    bool owned = false;
    visitGroups(tags, [&](const Place& place, const RawTag& tag) {
        const bool isName = place == Place{false, 1};
        const std::wstring& text = isName ? layout.layoutName() : layout.canonicalMediaName();
        const NumberAt* const own = find(numbers, place);
        if ((isName || place == Place{true, 4}) && decodeText(tag.value, Charset::Utf8) != text)
            return out.meaning(tag.code, text);
        if (place == Place{false, 330} && !std::exchange(owned, true))
            return out.handle(tag.code, block);
        if (own == nullptr || says(tag.value, own->value)) return out.raw(tag.code, tag.value);
        if (kindOf(tag.code) == ValueKind::Real) return out.real(tag.code, own->value);
        out.integer(tag.code, static_cast<long long>(own->value));
    });
}

}  // namespace prancheta::dxf
