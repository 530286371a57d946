// SPDX-License-Identifier: MIT
// Texts between the drawing and the toolkit.
#include "prancheta/desktop/panels/text.h"

#include <QLocale>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/entities/listing.h"
#include "protocol/order.h"

namespace prancheta::desktop {

std::wstring recordName(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
    const ACHAR* name = nullptr;
    return record.object() != nullptr && record->getName(name) == Acad::eOk ? name : L"";
}

QString takenText(ACHAR* text) {
    if (text == nullptr) return {};
    QString taken = qt(text);
    acutDelString(text);
    return taken;
}

QString shownNumber(QString text) { return text.replace(u',', QLocale().decimalPoint()); }

QString commaText(double value, int decimals) {
    return shownNumber(qt(prancheta::commaText(value, decimals)));
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
            return commaText(weight / 100.0, 2) + QStringLiteral(" mm");
    }
}

QString colorText(int color) {
    if (color == 256) return qt(kByLayer);
    if (color == 0) return qt(kByBlock);
    if (color >= kTrueColors) return qt(rgbText(rgbOf(color)));
    return qt(commands::colorName(color));
}

int colorNumber(const AcDbObject& object, int index) {
    const std::optional<Rgb> color = ObjectAccess::trueColor(object);
    return color ? kTrueColors + static_cast<int>(numberOf(*color)) : index;
}

int naturalCompare(const QString& a, const QString& b) {
    return protocol::naturalCompare(foldCase(a.toStdWString()), foldCase(b.toStdWString()));
}

}  // namespace prancheta::desktop
