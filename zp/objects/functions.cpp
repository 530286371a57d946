// SPDX-License-Identifier: MIT
// Free functions of the entity library.
#include "perfis/entities/zpfuncoes.h"

#include <array>
#include <filesystem>
#include <map>
#include <memory>
#include <numbers>
#include <string>

#include "acedads.h"
#include "dbsymtb.h"
#include "geassign.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/objects/layers.h"
#include "zp/objects/picture.h"
#include "zp/objects/watch.h"

namespace {

AcDbDatabase* workingDrawing() { return acdbHostApplicationServices()->workingDatabase(); }

/// The file as last read; read again when it changes, so that an edited file counts at the next
/// piece.
const std::map<std::wstring, std::wstring>& layers() {
    static std::filesystem::path file;
    static std::filesystem::file_time_type when;
    static std::map<std::wstring, std::wstring> read;
    const std::filesystem::path current = zp::layerFile();
    std::error_code error;
    const auto data = std::filesystem::last_write_time(current, error);
    if (current.native() == file.native() && data == when) return read;
    file = current;
    when = data;
    read = zp::readLayers(current);
    for (const std::wstring& fault : zp::layerFileFaults(current))
        acutPrintf(L"\n%ls\n", fault.c_str());
    return read;
}

void createLayer(const std::wstring& name, int colour, AcDb::LineWeight lineWeight) {
    AcDbDatabase* drawing = workingDrawing();
    if (drawing == nullptr) return;
    {
        const AcDbObjectPointer<AcDbLayerTable> table(drawing->layerTableId(), AcDb::kForRead);
        if (table.object() == nullptr || table->has(name.c_str())) return;
    }
    const AcDbObjectPointer<AcDbLayerTable> table(drawing->layerTableId(), AcDb::kForWrite);
    if (table.object() == nullptr) return;
    auto layer = std::make_unique<AcDbLayerTableRecord>();
    if (layer->setName(name.c_str()) != Acad::eOk) return;
    (void)layer->setColorIndex(static_cast<Adesk::UInt16>(colour));  // one of the constants, 1..255
    (void)layer->setLinetypeObjectId(drawing->continuousLinetype());
    (void)layer->setLineWeight(lineWeight);  // one that there is
    if (table->add(layer.get()) == Acad::eOk) (void)layer.release()->close();
}

/// Point of the user in world coordinates.
int askPoint(AcGePoint3d& point, const wchar_t* message, const double* base) {
    const resbuf world{nullptr, RTSHORT, {.rint = 0}};
    const resbuf user{nullptr, RTSHORT, {.rint = 1}};
    ads_point given;
    ads_point userBase;
    if (base != nullptr && acedTrans(base, &world, &user, 0, userBase) != RTNORM) return RTERROR;
    const int status = acedGetPoint(base != nullptr ? userBase : nullptr, message, given);
    if (status != RTNORM) return status;
    return acedTrans(given, &user, &world, 0, asDblArray(point));
}

}  // namespace

int append(AcDbEntity* entity, AcDbObjectId& id) {
    AcDbDatabase* drawing = workingDrawing();
    if (entity == nullptr || drawing == nullptr) return RTERROR;
    zp::watch::observe(drawing);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(drawing->currentSpaceId(), AcDb::kForWrite);
    if (space.object() == nullptr) return RTERROR;
    return space->appendAcDbEntity(id, entity) == Acad::eOk ? RTNORM : RTERROR;
}

wchar_t* ZpLayerToUsr(const wchar_t* standardName) {
    // Nodes of a map stay where they are, so the texts handed out stay valid.
    static std::map<std::wstring, std::wstring> given;
    const std::wstring standard = standardName != nullptr ? standardName : L"";
    const auto& read = layers();
    const auto found = read.find(texts::lower(standard));
    const zp::UserLayer user = found != read.end() ? zp::userLayer(found->second) : zp::UserLayer();
    const std::wstring& name = user.name.empty() ? standard : user.name;
    std::wstring& text = given.try_emplace(name, name).first->second;
    createLayer(text, zp::layerColour(standard),
                user.lineWeight.value_or(zp::layerLineWeight(standard)));
    return text.data();
}

int getWCSpoint(AcGePoint3d& point, const wchar_t* message) {
    return askPoint(point, message, nullptr);
}

int getWCSpointWithParam(AcGePoint3d& point, const wchar_t* message, double* base) {
    return askPoint(point, message, base);
}

double GetScale() {
    resbuf value{};
    if (acedGetVar(L"DIMSCALE", &value) != RTNORM || value.restype != RTREAL) return 1.0;
    return value.resval.rreal == 0.0 ? 1.0 : value.resval.rreal;
}

wchar_t* FormatInString(double value) {
    static std::array<std::wstring, 8> buffers;
    static std::size_t slot = 0;
    std::wstring& text = buffers[slot++ % buffers.size()];
    text = texts::withPoint(value, 6);
    return text.data();
}

double sex2rad(double degrees) { return degrees * std::numbers::pi / 180.0; }
