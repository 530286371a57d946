// SPDX-License-Identifier: MIT
// What LIST tells of every entity.
#include "acutads.h"
#include "acutmem.h"
#include "prancheta/base/text.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/object_access.h"

using namespace prancheta;

namespace {

constexpr const wchar_t* kIndent = L"\n                            ";

std::wstring taken(ACHAR* text) {
    std::wstring result = text;
    acutDelString(text);
    return result;
}

std::wstring spaceOf(const AcDbEntity& entity) {
    const AcDbDatabase* database = entity.database();
    if (database == nullptr) return L"(fora do desenho)";
    if (entity.ownerId() == database->core().modelSpaceId()) return L"Espaço do modelo";
    const std::wstring layout = tabOf(*database, entity.ownerId()).name;
    return layout.empty() ? L"Bloco" : L"Espaço do papel: " + layout;
}

std::wstring weightText(AcDb::LineWeight weight) {
    if (weight == AcDb::kLnWtByBlock) return L"PORBLOCO";
    if (weight == AcDb::kLnWtByLwDefault) return L"padrão";
    return numberTextWide(static_cast<int>(weight) / 100.0) + L" mm";
}

}  // namespace

void AcDbEntity::list() const {
    assertReadEnabled();
    subList();
}

void AcDbEntity::subList() const {
    const ACHAR* type = isA()->dxfName() != nullptr ? isA()->dxfName() : isA()->name();
    acutPrintf(L"\n                  %-10ls Camada: \"%ls\"", type, taken(layer()).c_str());
    acutPrintf(L"%ls%ls", kIndent, spaceOf(*this).c_str());
    if (!objectId().isNull()) {
        ACHAR handle[17];
        objectId().handle().getIntoAsciiBuffer(handle);
        acutPrintf(L"%lsIdentificador = %ls", kIndent, handle);
    }
    const std::optional<Rgb> rgb = ObjectAccess::trueColor(*this);
    if (rgb || m_color != 256) {
        const std::wstring color = rgb            ? rgbText(*rgb)
                                   : m_color == 0 ? L"PORBLOCO"
                                                  : std::to_wstring(m_color);
        acutPrintf(L"%lsCor: %ls", kIndent, color.c_str());
    }
    const AcDbObjectId byLayer =
        database() != nullptr ? database()->byLayerLinetype() : AcDbObjectId();
    if (m_linetype != nullptr && linetypeId() != byLayer)
        acutPrintf(L"%lsTipo de linha: \"%ls\"", kIndent, taken(linetype()).c_str());
    if (m_linetypeScale != 1.0)
        acutPrintf(L"%lsEscala do tipo de linha: %ls", kIndent,
                   numberTextWide(m_linetypeScale).c_str());
    if (m_lineWeight != AcDb::kLnWtByLayer)
        acutPrintf(L"%lsEspessura de linha: %ls", kIndent, weightText(lineWeight()).c_str());
    if (m_visibility != AcDb::kVisible) acutPrintf(L"%lsInvisível", kIndent);
}
