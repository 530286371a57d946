// SPDX-License-Identifier: MIT
// State behind the dialog functions: loaded files, open dialogs, the list and the image begun.
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "prancheta/dcl/definition.h"
#include "prancheta/dcl/open_dialog.h"

namespace prancheta::dcl {

constexpr std::size_t kDeepestNestedDialog = 8;

struct LoadedFile {
    std::shared_ptr<const Library> library;  ///< null: the load failed
    std::string name;                        ///< without folder
};

/// Between ads_start_list and ads_end_list; `tile` is null otherwise.
struct ListInProgress {
    OpenDialog* dialog = nullptr;
    Tile* tile = nullptr;
    short operation = 0;
    std::size_t index = 0;
    std::size_t given = 0;  ///< rows
};

/// Between ads_start_image and ads_end_image; `tile` is null otherwise.
struct ImageInProgress {
    OpenDialog* dialog = nullptr;
    Tile* tile = nullptr;
    std::optional<short> color;
    std::optional<std::wstring> slide;
    bool found = true;  ///< the slide; true where there is none
};

/// The interface is a set of C functions, so there is one for the process; used from the main
/// thread only.
class Session {
public:
    /// Null for a handle of no open dialog.
    OpenDialog* dialog(ads_hdlg handle) const;
    bool isFrontmost(const OpenDialog& dialog) const;
    std::shared_ptr<OpenDialog> frontmost() const;

    OpenDialog& push(const DefinitionPtr& definition, std::string name, std::string file,
                     CLIENTFUNC fallback);
    void setMetrics(const Metrics& newMetrics);
    std::uint32_t nextSerial() { return ++m_lastSerial; }
    /// Closes the dialog and those above it, the frontmost first, and tells that they closed.
    void close(const OpenDialog& dialog);
    void discardAbove(const OpenDialog& dialog);
    /// Closes those that were never started.
    void discardUnstarted();

    std::vector<std::shared_ptr<OpenDialog>> open;
    std::map<int, LoadedFile> loaded;
    int lastId = 0;
    LoadedFile lastFailure;
    ListInProgress list;
    ImageInProgress image;
    DialogRunner runner;

private:
    void forget(const OpenDialog& dialog);

    Metrics m_metrics;
    /// The definitions are kept, so that their addresses stay theirs.
    std::map<DefinitionPtr, std::shared_ptr<DialogForm>> m_forms;
    std::uint32_t m_lastSerial = 0;
};

Session& session();

/// Tile of an open dialog by its handle and key; both null when there is none.
struct TileAddress {
    OpenDialog* dialog = nullptr;
    Tile* tile = nullptr;
    explicit operator bool() const { return tile != nullptr; }
};
TileAddress tileAt(ads_hdlg dialog, const ACHAR* key);

/// Copies at most `length` characters and the terminator.
void copyOut(std::wstring_view text, ACHAR* out, int length);

}  // namespace prancheta::dcl
