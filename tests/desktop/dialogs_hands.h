// SPDX-License-Identifier: MIT
// Somebody at the window: types at the command line from a list, and works dialogs by hand.
#pragma once

#include <QDialog>
#include <QPushButton>
#include <QWidget>

#include <deque>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "prancheta/editor/host.h"
#include "prancheta/editor/user_interface.h"

namespace dialogtest {

/// What is done at an open dialog, in its own event loop. A dialog that still stands afterwards is
/// closed and told in `leftOpen`.
using Hand = std::function<void(QDialog&)>;

class HandUi : public prancheta::UserInterface {
public:
    explicit HandUi(QWidget& parent) : m_parent(parent) {}

    void print(std::wstring_view text) override { output += text; }
    void alert(std::wstring_view text) override { alerts.emplace_back(text); }
    void complain(std::wstring_view text, prancheta::Complaint) override {
        complaints.emplace_back(text);
    }
    prancheta::RawInput ask(const prancheta::InputRequest& request) override;
    void runDialog(prancheta::dcl::Dialog& dialog) override;

    std::deque<std::wstring> lines;  ///< typed; the input ends with them
    Hand hand;
    std::vector<std::string> leftOpen;
    std::wstring output;
    std::vector<std::wstring> alerts;
    std::vector<std::wstring> complaints;

private:
    QWidget& m_parent;
};

/// Host with the default modules of the build, on a copy of the installation folder below `folder`.
prancheta::HostOptions hostOn(const std::filesystem::path& folder);

/// Widget of a tile; a failure of the caller's when there is none.
QWidget& tile(QDialog& dialog, const char* key);
void press(QDialog& dialog, const char* key);
/// Clicks the row of a list box.
void pick(QDialog& dialog, const char* key, int row);
/// Clicks into an edit box and types over what is there.
void retype(QDialog& dialog, const char* key, const char* text);

}  // namespace dialogtest
