// SPDX-License-Identifier: MIT
// Extended data of objects.
#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/database/xdata.h"

using namespace prancheta;

namespace {

std::wstring applicationOf(const RawTag& tag) { return foldCase(toWide(tag.value)); }

bool allRegistered(const RawTags& tags, AcDbDatabase* database) {
    if (database == nullptr) return false;
    AcDbObject* table = nullptr;
    if (AcDbStub* stub = database->regAppTableId()) table = stub->object;
    if (table == nullptr) return false;
    for (const RawTag& tag : tags) {
        if (tag.code != 1001) continue;
        const auto& apps = static_cast<const AcDbSymbolTable&>(*table);
        if (ObjectAccess::lookup(apps, toWide(tag.value)).isNull()) return false;
    }
    return true;
}

bool contains(const RawTags& tags, const std::wstring& application) {
    for (const RawTag& tag : tags)
        if (tag.code == 1001 && applicationOf(tag) == application) return true;
    return false;
}

/// What stays of `old` beside `fresh`, then `fresh`; an application without data has none.
RawTags merged(const RawTags& old, const RawTags& fresh) {
    RawTags result;
    bool keep = false;
    for (const RawTag& tag : old) {
        if (tag.code == 1001) keep = !contains(fresh, applicationOf(tag));
        if (keep) result.push_back(tag);
    }
    for (std::size_t i = 0; i < fresh.size(); ++i) {
        const bool alone =
            fresh[i].code == 1001 && (i + 1 == fresh.size() || fresh[i + 1].code == 1001);
        if (!alone) result.push_back(fresh[i]);
    }
    return result;
}

}  // namespace

resbuf* AcDbObject::xData(const ACHAR* application) const {
    if (!m_extra) return nullptr;
    return listOfTags(m_extra->xdata, application).release();
}

Acad::ErrorStatus AcDbObject::setXData(const resbuf* data) {
    if (!isWriteEnabled()) return Acad::eNotOpenForWrite;
    RawTags fresh;
    const Acad::ErrorStatus es = tagsOfList(data, fresh);
    if (es != Acad::eOk) return es;
    AcDbDatabase* where =
        m_stub != nullptr ? m_stub->database : acdbHostApplicationServices()->workingDatabase();
    if (!allRegistered(fresh, where)) return Acad::eRegappIdNotFound;
    RawTags all = merged(m_extra ? RawTags(m_extra->xdata) : RawTags(), fresh);
    if (xdataSize(all) > kMaxXdataBytes) return Acad::eOutOfRange;
    assertWriteEnabled();
    ObjectAccess::makeExtra(*this).xdata = all;
    ObjectAccess::dropEmptyExtra(*this);
    return Acad::eOk;
}

void AcDbEntity::xDataTransformBy(const AcGeMatrix3d& m) {
    const ObjectExtra* extra = ObjectAccess::extra(*this);
    if (extra == nullptr || extra->xdata.empty()) return;
    assertWriteEnabled();
    RawTags tags = extra->xdata;
    transformXdata(tags, m);
    ObjectAccess::makeExtra(*this).xdata = tags;
}
