// SPDX-License-Identifier: MIT
// Section previews: seven slide names, the same in every library.
#include "perfis/dialogs/secao_preview.h"

#include <iterator>

#include "perfis/dialogs/tiles.h"

namespace perfis {
namespace {
constexpr const wchar_t* kSlides[] = {L"secao", L"flecha", L"ip0", L"ip1", L"ip2", L"ip3", L"ip4"};
}

const wchar_t* secaoSlide(int index) {
    const bool known = index >= 0 && index < static_cast<int>(std::size(kSlides));
    return kSlides[known ? index : kSecaoSlide];
}

void showSecao(ads_hdlg dialog, std::wstring_view library, int index) {
    showSlide(dialog, L"showall", library, secaoSlide(index));
}

}  // namespace perfis
