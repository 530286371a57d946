// SPDX-License-Identifier: MIT
// Composes the paths of the installation; separators are backslashes on every system.
#include "perfis/dialogs/installation.h"

#include "acutads.h"
#include "perfis/base/portability.h"

namespace perfis {
namespace {
constexpr std::wstring_view kPerfis = L"\\Perfis\\";
constexpr std::wstring_view kListas = L"Listas\\";
constexpr std::wstring_view kSlides = L"Slides\\";
}  // namespace

std::optional<std::wstring> installationFolder() { return environmentText("ZPFORJA2010"); }

std::optional<std::wstring> requiredInstallationFolder() {
    std::optional<std::wstring> folder = installationFolder();
    if (!folder) (void)acutPrintf(L"\nA variável de ambiente ZPFORJA2010 não está definida.");
    return folder;
}

std::optional<std::wstring> composePath(std::initializer_list<std::wstring_view> parts) {
    std::wstring path;
    for (const std::wstring_view part : parts) path += part;
    if (path.size() >= kPathBuffer) return std::nullopt;
    return path;
}

std::optional<std::wstring> dialogPath(std::wstring_view folder, std::wstring_view file) {
    return composePath({folder, kPerfis, file});
}

std::optional<std::wstring> listPath(std::wstring_view folder, std::wstring_view file) {
    return composePath({folder, kPerfis, kListas, file});
}

std::optional<std::wstring> slidePath(std::wstring_view folder, std::wstring_view library,
                                      std::wstring_view slide) {
    if (library.empty()) return composePath({folder, kPerfis, kSlides, slide});
    return composePath({folder, kPerfis, kSlides, library, L"(", slide, L")"});
}

void reportLongPath() { (void)acutPrintf(L"\nCaminho muito longo: ZPFORJA2010."); }

}  // namespace perfis
