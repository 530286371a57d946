// SPDX-License-Identifier: MIT
// Dynamic libraries by the loader of Windows.
#include <io.h>
#include <windows.h>

#include <shellapi.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "prancheta/base/file.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"

namespace prancheta {
namespace fs = std::filesystem;
namespace {

HMODULE moduleOf(const void* address) {
    HMODULE module = nullptr;
    constexpr DWORD kFlags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    const auto place = reinterpret_cast<LPCWSTR>(const_cast<void*>(address));
    return GetModuleHandleExW(kFlags, place, &module) != 0 ? module : nullptr;
}

fs::path fileOf(HMODULE module) {
    std::wstring name(32768, L'\0');
    const DWORD length = GetModuleFileNameW(module, name.data(), static_cast<DWORD>(name.size()));
    name.resize(length);
    return fs::path(name);
}

/// Import directory of a loaded image; null when it imports nothing.
const IMAGE_IMPORT_DESCRIPTOR* importsOf(const char* base) {
    const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    if (directory.Size == 0) return nullptr;
    return reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(base + directory.VirtualAddress);
}

}  // namespace

void* openLibrary(const fs::path& file, std::string& reason) {
    // The folder of the library counts, so that modules find those beside them.
    HMODULE const module =
        LoadLibraryExW(fs::absolute(file).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module != nullptr) return module;
    const DWORD error = GetLastError();
    std::error_code ignored;
    if (!fs::exists(file, ignored))
        reason = errnoText(ENOENT);
    else if (error == ERROR_BAD_EXE_FORMAT)
        reason = "não é um módulo deste sistema";
    else if (error == ERROR_MOD_NOT_FOUND || error == ERROR_PROC_NOT_FOUND)
        reason = "falta algo de que ele depende";
    else
        reason = "erro " + std::to_string(error) + " do sistema";
    return nullptr;
}

void closeLibrary(void* library) { FreeLibrary(static_cast<HMODULE>(library)); }

void* symbolOf(void* library, const char* name) {
    return reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name));
}

const void* libraryOf(const void* address) { return moduleOf(address); }

fs::path libraryFileOf(const void* address) {
    HMODULE const module = moduleOf(address);
    return module != nullptr ? fileOf(module) : fs::path();
}

std::vector<fs::path> neededModules(void* library) {
    std::vector<fs::path> modules;
    const char* const base = static_cast<const char*>(library);
    const IMAGE_IMPORT_DESCRIPTOR* import = importsOf(base);
    for (; import != nullptr && import->Name != 0; ++import) {
        const std::string_view needed = base + import->Name;
        if (!needed.ends_with(".arx")) continue;
        HMODULE const module = GetModuleHandleW(toWide(needed).c_str());
        if (module != nullptr) modules.push_back(fileOf(module));
    }
    return modules;
}

fs::path folderOfProgram() { return fileOf(nullptr).parent_path(); }

std::string environment(const char* name) {
    const wchar_t* const value = _wgetenv(toWide(name).c_str());
    return value != nullptr ? toUtf8(value) : std::string();
}

void setEnvironment(const char* name, const std::string& utf8Value) {
    _wputenv_s(toWide(name).c_str(), toWide(utf8Value).c_str());
}

std::vector<std::string> programArguments(int argc, const char* const* argv) {
    // Those of main() have lost what the system's code page does not have.
    int count = 0;
    wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
    if (words == nullptr) return {argv, argv + argc};
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) arguments.push_back(toUtf8(words[i]));
    LocalFree(static_cast<HLOCAL>(words));
    return arguments;
}

void useUtf8Terminal() {
    SetConsoleOutputCP(CP_UTF8);
    SetConsoleCP(CP_UTF8);
}

bool inputIsTerminal() { return _isatty(_fileno(stdin)) != 0; }
bool errorIsTerminal() { return false; }  // old ones show what moves the cursor

void ignoreBrokenPipes() {}
void catchInterrupts() {}
bool takeInterrupt() { return false; }
void waitForInput() {}
void catchEndWishes() {}
int endWish() { return 0; }
int endWishDescriptor() { return -1; }

}  // namespace prancheta
