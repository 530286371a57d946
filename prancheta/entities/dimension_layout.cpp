// SPDX-License-Identifier: MIT
// How a dimension stands: what all kinds share.
#include "prancheta/entities/dimension_layout.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "prancheta/base/text.h"
#include "prancheta/database/dim_variables.h"
#include "prancheta/database/object_access.h"
#include "prancheta/entities/annotation_size.h"
#include "prancheta/entities/common.h"
#include "prancheta/entities/listing.h"
#include "prancheta/graphics/text_metrics.h"

namespace prancheta {

namespace {

/// Bits of DIMZIN for decimal numbers.
constexpr int kSuppressLeadingZero = 4;
constexpr int kSuppressTrailingZeros = 8;

double positiveOr(double value, double otherwise) { return value > 0.0 ? value : otherwise; }

void setVariable(AcDbDimStyleValues& values, const DimVariable& variable, const RawTagView& tag,
                 const AcDbDatabase* database) {
    double number = 0.0;
    if (variable.real != nullptr && parseNumber(trim(tag.value), number))
        values.*variable.real = number;
    if (variable.integer != nullptr && parseNumber(trim(tag.value), number))
        values.*variable.integer = static_cast<Adesk::Int16>(std::clamp(number, -32768.0, 32767.0));
    if (variable.text != nullptr) values.*variable.text = toWide(tag.value);
    if (variable.block == nullptr || database == nullptr) return;
    const std::string_view text = trim(tag.value);
    Adesk::UInt64 handle = 0;
    (void)std::from_chars(text.data(), text.data() + text.size(), handle, 16);  // else 0: no block
    values.*variable.block = AcDbObjectId(database->core().find(handle));
}

/// Pairs of a code and a value between braces behind "DSTYLE", of application ACAD.
void readOverrides(const AcDbEntity& entity, const AcDbDatabase* database,
                   AcDbDimStyleValues& values) {
    const ObjectExtra* const extra = ObjectAccess::extra(entity);
    if (extra == nullptr) return;
    enum { Outside, InAcad, Named, Inside } where = Outside;
    const DimVariable* variable = nullptr;
    bool isCode = true;
    for (const RawTagView& tag : extra->xdata) {
        if (tag.code == 1001) {
            where = tag.value == "ACAD" ? InAcad : Outside;
        } else if (where == InAcad && tag.code == 1000 && tag.value == "DSTYLE") {
            where = Named;
        } else if (tag.code == 1002) {
            where = where == Named && tag.value == "{" ? Inside
                    : where == Outside                 ? Outside
                                                       : InAcad;
            isCode = true;
        } else if (where == Inside) {
            double code = 0.0;
            if (isCode)
                variable = parseNumber(trim(tag.value), code) ? dimVariable(static_cast<int>(code))
                                                              : nullptr;
            else if (variable != nullptr)
                setVariable(values, *variable, tag, database);
            isCode = !isCode;
        }
    }
}

}  // namespace

AcDbDimStyleValues styleValues(const AcDbDimension& dimension) {
    return styleValues(dimension, dimension.dimensionStyle(), dimension.ownDimscale());
}

AcDbDimStyleValues styleValues(const AcDbEntity& entity, AcDbObjectId style, double ownScale) {
    const AcDbDatabase* database = entity.database();
    if (database == nullptr) database = acdbHostApplicationServices()->workingDatabase();
    if (style.isNull() && database != nullptr) style = database->dimstyle();
    AcDbDimStyleValues values;
    const AcDbObjectPointer<AcDbDimStyleTableRecord> record(style, AcDb::kForRead);
    if (record.openStatus() == Acad::eOk) values = record->values();
    readOverrides(entity, style.database(), values);
    values.dimscale =
        positiveOr(ownScale, positiveOr(values.dimscale, 1.0)) * AnnotationSize::factor();
    return values;
}

std::size_t styleMark(const AcDbDimension& dimension) {
    const AcDbDimStyleValues values = styleValues(dimension);
    std::size_t mark = 0;
    const auto mix = [&mark](std::size_t part) { mark = mark * 1000003u ^ part; };
    for (const DimVariable& variable : dimVariables()) {
        if (variable.real != nullptr) mix(std::hash<double>()(values.*variable.real));
        if (variable.integer != nullptr) mix(static_cast<std::size_t>(values.*variable.integer));
        if (variable.text != nullptr) mix(std::hash<std::wstring>()(values.*variable.text));
        if (variable.block != nullptr)
            mix(std::hash<std::wstring>()(ObjectAccess::recordName(values.*variable.block)));
    }
    return mark;
}

void forgetOverrides(AcDbDimension& dimension) {
    const ObjectExtra* const extra = ObjectAccess::extra(dimension);
    if (extra == nullptr) return;
    RawTags kept;
    bool inside = false;
    for (const RawTagView& tag : extra->xdata) {
        const bool begins = tag.code == 1000 && tag.value == "DSTYLE";
        if (begins) inside = true;
        if (!inside) kept.push_back({tag.code, std::string(tag.value)});
        if (tag.code == 1002 && tag.value == "}") inside = false;
    }
    dimension.assertWriteEnabled();
    // An application that says nothing is none.
    std::erase_if(kept, [&](const RawTag& tag) {
        const std::size_t next = static_cast<std::size_t>(&tag - kept.data()) + 1;
        return tag.code == 1001 && (next == kept.size() || kept[next].code == 1001);
    });
    ObjectAccess::makeExtra(dimension).xdata = kept;
    ObjectAccess::dropEmptyExtra(dimension);
}

void setLengthFactor(AcDbDimension& dimension, double factor) {
    constexpr const char* kCode = "144";
    dimension.assertWriteEnabled();
    RawTags before;
    RawTags inside;  // pairs of a code and a value
    RawTags behind;
    enum { Before, Named, Inside, Behind } where = Before;
    if (const ObjectExtra* const extra = ObjectAccess::extra(dimension))
        for (const RawTagView& tag : extra->xdata) {
            if (where == Before && tag.code == 1000 && tag.value == "DSTYLE") {
                where = Named;
            } else if (where == Named || (where == Inside && tag.code == 1002)) {
                where = where == Named ? Inside : Behind;
            } else {
                RawTags& part = where == Inside ? inside : where == Before ? before : behind;
                part.push_back({tag.code, std::string(tag.value)});
            }
        }
    if (where == Before) before.push_back({1001, "ACAD"});
    before.insert(before.end(), {{1000, "DSTYLE"}, {1002, "{"}});
    for (std::size_t i = 0; i + 1 < inside.size(); i += 2)
        if (trim(inside[i].value) != kCode) before.insert(before.end(), {inside[i], inside[i + 1]});
    before.insert(before.end(), {{1070, kCode}, {1040, numberText(factor)}, {1002, "}"}});
    before.insert(before.end(), behind.begin(), behind.end());
    ObjectAccess::makeExtra(dimension).xdata = before;
}

DimensionSizes::DimensionSizes(const AcDbDimStyleValues& style)
    : arrow((style.dimtsz > 0.0 ? style.dimtsz : style.dimasz) * style.dimscale),
      extensionOffset(style.dimexo * style.dimscale),
      extensionBeyond(style.dimexe * style.dimscale),
      textHeight(style.dimtxt * style.dimscale),
      gap(std::abs(style.dimgap) * style.dimscale) {}

DimensionLayout::DimensionLayout(const AcDbDimension& dimension)
    : style(styleValues(dimension)),
      sizes(style),
      text(dimension.shownText()),
      textLength(textWidth(text, sizes.textHeight, 1.0)),
      userPosition(!dimension.isUsingDefaultTextPosition()),
      userRotation(dimension.textRotation()) {}

void DimensionLayout::line(const AcGePoint3d& a, const AcGePoint3d& b, DimensionPart::Kind kind) {
    if (!(b - a).isZeroLength()) parts.push_back({kind, a, b});
}

void DimensionLayout::arrow(const AcGePoint3d& tip, const AcGeVector3d& towards, int end) {
    parts.push_back({DimensionPart::Kind::Arrow, tip, tip - towards, 0.0, end});
}

void DimensionLayout::openLine(const AcGePoint3d& a, const AcGePoint3d& b, double opening) {
    const AcGeVector3d span = b - a;
    const double length = span.length();
    if (opening <= 0.0) return line(a, b);
    if (opening >= length) return;
    const AcGeVector3d piece = span * ((length - opening) / 2.0 / length);
    line(a, a + piece);
    line(b - piece, b);
}

void DimensionLayout::read(const AcGeVector3d& along, bool level) {
    const bool reads = along.x > 1e-9 || (along.x > -1e-9 && along.y > 0.0);
    reading = level ? AcGeVector3d::kXAxis : reads ? along : -along;
    if (userRotation != 0.0) reading = directionInPlane(userRotation, AcGeVector3d::kZAxis);
}

void DimensionLayout::putText(const AcGePoint3d& onLine, bool over) {
    const AcGeVector3d up = AcGeVector3d::kZAxis.crossProduct(reading);
    textMiddle = over ? onLine + up * (sizes.gap + sizes.textHeight / 2.0) : onLine;
}

bool DimensionLayout::textOnLine() const { return style.dimtad == 0; }

double DimensionLayout::opening(const AcGeVector3d& along) const {
    const double width = textLength + 2.0 * sizes.gap;
    const double height = sizes.textHeight + 2.0 * sizes.gap;
    const double cosine = std::abs(along.dotProduct(reading));
    const double sine = std::sqrt(std::max(0.0, 1.0 - cosine * cosine));
    return cosine * height > sine * width ? width / cosine : height / sine;
}

std::wstring withMeasure(std::wstring_view text, std::wstring_view measure) {
    constexpr std::wstring_view kMeasured = L"<>";
    std::wstring shown;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find(kMeasured, from)) != std::wstring::npos;
         from = at + kMeasured.size())
        shown.append(text, from, at - from).append(measure);
    return shown.append(text, from);
}

std::wstring measuredText(const AcDbDimension& dimension) {
    AcDbDimStyleValues style = styleValues(dimension);
    if (dimension.isAngular()) {
        if (style.dimadec >= 0) style.dimdec = style.dimadec;
        style.dimrnd = 0.0;
        return measureText(dimension.measurement() * 180.0 / kPi, style) + L"°";
    }
    const double factor = style.dimlfac != 0.0 ? std::abs(style.dimlfac) : 1.0;
    const std::wstring measure = measureText(dimension.measurement() * factor, style);
    const std::size_t place = style.dimpost.find(L"<>");
    // A prefix of the style goes before the usual one's place.
    const bool prefixed = place != std::wstring::npos && place > 0;
    const std::wstring whole = (prefixed ? L"" : dimension.usualPrefix()) + measure;
    return place == std::wstring::npos ? whole + style.dimpost : withMeasure(style.dimpost, whole);
}

std::wstring measureText(double value, const AcDbDimStyleValues& style) {
    if (style.dimrnd > 0.0) value = std::floor(value / style.dimrnd + 0.5 + 1e-9) * style.dimrnd;
    // Halves go up, also when turning the piece has left them a hair below.
    std::wstring text = fixedText(value + 1e-9, std::clamp<int>(style.dimdec, 0, 8));
    const std::size_t point = text.find(L'.');
    if (point == std::wstring::npos) return text;
    if ((style.dimzin & kSuppressTrailingZeros) != 0) {
        text.erase(text.find_last_not_of(L'0') + 1);
        if (text.back() == L'.') {
            text.pop_back();
            return text;
        }
    }
    text[point] = style.dimdsep > 0 ? static_cast<wchar_t>(style.dimdsep) : L'.';
    if ((style.dimzin & kSuppressLeadingZero) != 0 && text.size() > 2 && text.front() == L'0')
        text.erase(0, 1);
    return text;
}

}  // namespace prancheta
