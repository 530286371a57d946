// SPDX-License-Identifier: MIT
// A dialog of a few lines of DCL, opened without a host and worked by hand.
#pragma once

#include <QMainWindow>
#include <QTemporaryDir>

#include <string>
#include <string_view>
#include <vector>

#include "adsdlg.h"
#include "dialogs_hands.h"

namespace dialogtest {

class Form {
public:
    explicit Form(std::string_view dcl, const char* name = "d");
    ~Form();

    /// A further dialog of the same file.
    ads_hdlg open(const char* name) const;
    ads_hdlg handle() const { return m_dialog; }
    /// Callbacks of these tiles write "key reason value" into `calls`.
    void listen(std::initializer_list<const wchar_t*> keys);
    void listen(const wchar_t* key, CLIENTFUNC callback);
    /// Starts the dialog; its status.
    int run(const Hand& hand);
    std::string value(const wchar_t* key) const;

    /// What the callbacks saw, oldest first.
    static std::vector<std::string>& calls();

private:
    QTemporaryDir m_folder;
    QMainWindow m_window;
    HandUi m_ui;
    int m_file = -1;
    ads_hdlg m_dialog = nullptr;
};

}  // namespace dialogtest
