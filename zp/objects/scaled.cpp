// SPDX-License-Identifier: MIT
// Former and present designations of scaled pieces.
#include "zp/objects/scaled.h"

#include "acutads.h"
#include "zp/objects/peca.h"

namespace zp {

void Scaled::note(AcDbObjectId peca, const std::wstring& designacao) {
    m_pecas.try_emplace(peca.asOldId(), peca, designacao);
}

void Scaled::say() {
    constexpr std::size_t kMostLines = 5;
    std::map<std::wstring, int> lines;
    for (const auto& [key, scaled] : std::exchange(m_pecas, {})) {
        const auto& [id, was] = scaled;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        const std::wstring is = Access::of(*peca.object()).designacao();
        if (is != was) ++lines[was + L" passa a " + is];
    }
    std::size_t said = 0;
    for (const auto& [line, count] : lines)
        if (++said <= kMostLines)
            acutPrintf(L"\nA escala muda o aço: %ls (%d %ls).\n", line.c_str(), count,
                       count == 1 ? L"peça" : L"peças");
    if (lines.size() > kMostLines)
        acutPrintf(L"\nMais %d bitolas mudaram.\n", static_cast<int>(lines.size() - kMostLines));
}

}  // namespace zp
