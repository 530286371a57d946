// SPDX-License-Identifier: MIT
// Control characters as drawing files write them.
#include "prancheta/base/caret.h"

namespace prancheta {

void decodeCarets(std::wstring& text) {
    if (text.find(L'^') == std::wstring::npos) return;
    std::wstring out;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const wchar_t next = at + 1 < text.size() ? text[at + 1] : L'\0';
        if (text[at] == L'^' && next == L' ') {
            out.push_back(L'^');
            ++at;
        } else if (text[at] == L'^' && next >= L'@' && next <= L'_') {
            out.push_back(next - L'@');
            ++at;
        } else {
            out.push_back(text[at]);
        }
    }
    text = std::move(out);
}

}  // namespace prancheta
