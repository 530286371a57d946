// SPDX-License-Identifier: MIT
// Copies of pieces: written and found.
#include "prancheta/dxf/piece_copy.h"

#include <algorithm>

#include "dbents.h"
#include "prancheta/database/object_access.h"
#include "protocol/attach.h"
#include "protocol/copies.h"

namespace prancheta::dxf {
namespace {

constexpr std::wstring_view kBeginning = L"PRANCHETA-1 ";

}  // namespace

std::wstring copyTextOf(const AcDbEntity& piece) {
    const auto* const copies =
        protocol::extensionOf<protocol::EntityCopy>(piece, protocol::kEntityCopyClass);
    const std::wstring own = copies != nullptr ? copies->textOf(piece) : std::wstring();
    if (own.empty()) return {};
    std::wstring text = std::wstring(kBeginning) + piece.isA()->name() + L' ' + own;
    const bool plain = std::all_of(text.begin(), text.end(),
                                   [](wchar_t c) { return c >= L' ' && c <= L'~' && c != L'^'; });
    return plain && text.size() <= kMostCopyBytes ? text : std::wstring();
}

std::optional<PieceCopy> copyIn(std::wstring_view text) {
    if (!text.starts_with(kBeginning)) return {};
    text.remove_prefix(kBeginning.size());
    const std::size_t blank = text.find(L' ');
    if (blank == text.npos) return {};
    return PieceCopy{std::wstring(text.substr(0, blank)), std::wstring(text.substr(blank + 1))};
}

std::optional<BlockCopy> copyOfBlock(const AcDbBlockTableRecord& block) {
    if (block.isErased() || block.isLayout()) return {};
    for (const AcDbObjectId id : ObjectAccess::entities(block)) {
        if (id.isErased() || id.objectClass() != AcDbText::desc()) continue;
        const AcDbStub* const stub = id;
        if (auto copy = copyIn(static_cast<const AcDbText&>(*stub->object).textStringConst()))
            return BlockCopy{id, std::move(*copy)};
    }
    return {};
}

}  // namespace prancheta::dxf
