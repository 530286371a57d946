// SPDX-License-Identifier: MIT
// What the tests of the dialogs share: files, printed trees, a hand at the dialog, recorded events.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "prancheta/dcl/dialog.h"

namespace dcltest {

/// Everything printed on the command line since the last call.
std::string printed();

/// Folder of its own, gone at the end.
class Folder {
public:
    Folder();
    ~Folder();
    std::filesystem::path write(const std::string& name, std::string_view text) const;
    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Tiles with keys and attributes, one a line, indented. The attributes that the base library gives
/// by default are left out.
std::string printTree(const prancheta::dcl::Tile& tile);

/// Loads the text as a file and opens its dialog "d"; null when that fails.
ads_hdlg openText(std::string_view text, CLIENTFUNC fallback = nullptr);

using Hand = std::function<void(prancheta::dcl::Dialog&)>;

/// Starts the dialog with this hand as front end; the status, or the code of ads_start_dialog when
/// it is not RTNORM. The first reason why the hand could not do something is in `refused()`.
int run(ads_hdlg dialog, Hand hand);

/// Callback that writes "key:reason:value" into calls().
void note(ads_callback_packet* packet);
std::vector<std::string>& calls();

/// Value of a tile as the interface tells it.
std::string valueOf(ads_hdlg dialog, const wchar_t* key);

/// Records events as "kind(field=value, ...)" while it lives.
class Events {
public:
    Events();
    ~Events();
    std::vector<std::string> lines;
};

}  // namespace dcltest
