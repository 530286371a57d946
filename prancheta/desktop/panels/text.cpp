// SPDX-License-Identifier: MIT
// Texts between the drawing and the toolkit.
#include "prancheta/desktop/panels/text.h"

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/entities/listing.h"

namespace prancheta::desktop {

std::wstring recordName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
    const ACHAR* name = nullptr;
    return record.object() != nullptr && record->getName(name) == Acad::eOk ? name : L"";
}

QString commaText(double value, int decimals) {
    return qt(fixedText(value, decimals)).replace(u'.', u',');
}

QString weightText(int weight) {
    switch (weight) {
        case AcDb::kLnWtByLayer:
            return qt(kByLayer);
        case AcDb::kLnWtByBlock:
            return qt(kByBlock);
        case AcDb::kLnWtByLwDefault:
            return QStringLiteral("Padrão");
        default:
            return qt(fixedText(weight / 100.0, 2)) + QStringLiteral(" mm");
    }
}

QString colorText(int color) {
    if (color == 256) return qt(kByLayer);
    if (color == 0) return qt(kByBlock);
    return qt(commands::colorName(color));
}

namespace {

bool digitAt(const QString& text, qsizetype i) {
    return i < text.size() && text[i] >= u'0' && text[i] <= u'9';
}

/// The digits from `i` on without leading zeros; `i` moves behind them.
QStringView takeNumber(const QString& text, qsizetype& i) {
    while (digitAt(text, i) && text[i] == u'0') ++i;
    const qsizetype begin = i;
    while (digitAt(text, i)) ++i;
    return QStringView(text).sliced(begin, i - begin);
}

int sign(qsizetype difference) { return difference < 0 ? -1 : difference > 0 ? 1 : 0; }

}  // namespace

int naturalCompare(const QString& a, const QString& b) {
    qsizetype i = 0;
    qsizetype j = 0;
    while (i < a.size() && j < b.size()) {
        if (digitAt(a, i) && digitAt(b, j)) {
            const QStringView left = takeNumber(a, i);
            const QStringView right = takeNumber(b, j);
            const qsizetype longer = left.size() - right.size();
            if (const int order = longer != 0 ? sign(longer) : sign(left.compare(right)))
                return order;
            continue;
        }
        const wchar_t left = foldCase(static_cast<wchar_t>(a[i++].unicode()));
        const wchar_t right = foldCase(static_cast<wchar_t>(b[j++].unicode()));
        if (left != right) return left < right ? -1 : 1;
    }
    return sign((a.size() - i) - (b.size() - j));
}

}  // namespace prancheta::desktop
