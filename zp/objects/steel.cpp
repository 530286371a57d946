// SPDX-License-Identifier: MIT
// Kept in the drawing's dictionary.
#include "zp/objects/steel.h"

#include <memory>

#include "acutads.h"
#include "dbdict.h"
#include "dbxrecrd.h"
#include "zp/buffer_chain.h"
#include "zp/objects/member.h"

namespace zp {
namespace {

constexpr const ACHAR* kEntry = L"ZP_ACO";

AcDbObjectId recordIn(const AcDbDatabase& drawing) {
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> root(drawing.namedObjectsDictionaryId(),
                                                 AcDb::kForRead);
    if (root.object() != nullptr) (void)root->getAt(kEntry, id);  // null when there is none
    return id;
}

}  // namespace

std::wstring drawingSteel(const AcDbDatabase& drawing) {
    const AcDbObjectPointer<AcDbXrecord> record(recordIn(drawing), AcDb::kForRead);
    if (record.object() == nullptr) return {};
    resbuf* chain = nullptr;
    if (record->rbChain(&chain) != Acad::eOk) return {};
    const BufferChain holder(chain);
    return chain != nullptr && chain->restype == AcDb::kDxfText ? chain->resval.rstring : L"";
}

bool setDrawingSteel(AcDbDatabase& drawing, const std::wstring& name) {
    const AcDbObjectId present = recordIn(drawing);
    if (name.empty()) {
        const AcDbObjectPointer<AcDbObject> record(present, AcDb::kForWrite);
        return record.object() == nullptr || record->erase() == Acad::eOk;
    }
    const AcDbObjectPointer<AcDbDictionary> root(drawing.namedObjectsDictionaryId(),
                                                 AcDb::kForWrite);
    if (root.object() == nullptr) return false;
    const BufferChain chain(acutBuildList(AcDb::kDxfText, name.c_str(), RTNONE));
    auto record = std::make_unique<AcDbXrecord>();
    AcDbObjectId id;
    if (record->setFromRbChain(*chain.get()) != Acad::eOk ||
        root->setAt(kEntry, record.get(), id) != Acad::eOk)
        return false;
    (void)record.release()->close();
    return true;
}

std::wstring steelOf(const ZpObject& peca) {
    const std::wstring& own = member::of(peca).grade;
    if (!own.empty() || peca.database() == nullptr) return own;
    return drawingSteel(*peca.database());
}

}  // namespace zp
