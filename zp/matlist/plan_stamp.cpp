// SPDX-License-Identifier: MIT
// Stamps as extended data.
#include "zp/matlist/plan_stamp.h"

#include <cstdint>
#include <map>

#include "acutads.h"
#include "dbents.h"
#include "texts/number.h"
#include "zp/buffer_chain.h"
#include "zp/matlist/summary.h"
#include "zp/objects/barra_data.h"

namespace zp::matlist {
namespace {

constexpr const ACHAR* kApplication = L"ZP_PLANO_CORTE";

/// FNV-1a, so that every build says the same.
std::wstring digestOf(const std::wstring& text) {
    std::uint64_t hash = 14695981039346656037U;
    for (const wchar_t c : text) hash = (hash ^ static_cast<std::uint32_t>(c)) * 1099511628211U;
    constexpr const wchar_t* kDigits = L"0123456789abcdef";
    std::wstring digest;
    for (int shift = 60; shift >= 0; shift -= 4) digest += kDigits[hash >> shift & 15U];
    return digest;
}

}  // namespace

PlanStamp planStampOf(int list, const std::vector<Linha>& rows) {
    std::wstring all;
    for (const Product& product : productsOf(rows)) {
        if (!product.bar) continue;
        all += product.designation + L'\t' + product.material;
        // Marks may change; which pieces are cut may not.
        std::map<std::wstring, long long> pieces;
        for (const Share& share : product.shares)
            pieces[texts::withPoint(share.row->comprimento, 3)] += share.pieces;
        for (const auto& [length, count] : pieces)
            all += L'\t' + length + L'*' + std::to_wstring(count);
        all += L'\n';
    }
    return {list, digestOf(all)};
}

void stamp(AcDbObjectId id, const PlanStamp& stamp) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.object() == nullptr || !registerApplication(*id.database(), kApplication)) return;
    const BufferChain list(acutBuildList(AcDb::kDxfRegAppName, kApplication,
                                         AcDb::kDxfXdAsciiString,
                                         std::to_wstring(stamp.list).c_str(),
                                         AcDb::kDxfXdAsciiString, stamp.products.c_str(), RTNONE));
    (void)entity->setXData(list.get());  // registered name, short
}

std::optional<PlanStamp> stampOf(const AcDbEntity& entity) {
    const BufferChain list(entity.xData(kApplication));
    std::vector<std::wstring> kept;
    for (const resbuf* r = list.get(); r != nullptr; r = r->rbnext)
        if (r->restype == AcDb::kDxfXdAsciiString) kept.emplace_back(r->resval.rstring);
    if (kept.size() != 2) return {};
    return PlanStamp{texts::toInt(kept[0]), kept[1]};
}

}  // namespace zp::matlist
