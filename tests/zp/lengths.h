// SPDX-License-Identifier: MIT
// Trimming, extending and breaking of pieces as a host does it.
#pragma once

#include <string>

#include "acutmem.h"
#include "prancheta/editor/edit_group.h"
#include "protocol/attach.h"
#include "protocol/length.h"
#include "tests/zp/drawing.h"

namespace zp_tests {

inline const protocol::EntityLength* lengthOf(const AcDbEntity& entity) {
    return protocol::extensionOf<protocol::EntityLength>(entity, protocol::kEntityLengthClass);
}

/// One step of undo; the reason of a refusal, empty when there is none.
template <class F>
std::wstring changeLength(prancheta::Editor& editor, AcDbObjectId id, F f) {
    const prancheta::EditGroup group(editor, L"APARAR");
    const protocol::EntityLength* answering = lengthOf(*Read<ZpObject>(id).object());
    ACHAR* message = nullptr;
    const bool done = f(*answering, message);
    const std::wstring reason = message != nullptr ? message : L"";
    acutDelString(message);
    EXPECT_EQ(done, reason.empty());
    return reason;
}

inline std::wstring setEnds(prancheta::Editor& editor, AcDbObjectId id, double start, double end) {
    return changeLength(editor, id, [&](const protocol::EntityLength& l, ACHAR*& message) {
        return l.setEnds(id, start, end, message);
    });
}

inline std::wstring takeOut(prancheta::Editor& editor, AcDbObjectId id, double from, double to,
                            AcDbObjectId& rest) {
    return changeLength(editor, id, [&](const protocol::EntityLength& l, ACHAR*& message) {
        return l.takeOut(id, from, to, rest, message);
    });
}

}  // namespace zp_tests
