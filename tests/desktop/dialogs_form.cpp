// SPDX-License-Identifier: MIT
// Opening and running the small dialogs of the tests.
#include "dialogs_form.h"

#include <gtest/gtest.h>

#include <fstream>

#include "prancheta/base/text.h"
#include "prancheta/desktop/dialogs/run_dialog.h"

namespace dialogtest {

using namespace prancheta;

namespace {

void CALLB note(ads_callback_packet* packet) {
    const auto* key = static_cast<const wchar_t*>(packet->client_data);
    Form::calls().push_back(toUtf8(key) + " " + std::to_string(packet->reason) + " " +
                            toUtf8(packet->value));
}

}  // namespace

Form::Form(std::string_view dcl, const char* name) : m_ui(m_window) {
    calls().clear();
    m_window.resize(900, 700);
    m_window.show();
    desktop::announceMetrics(m_window);
    dcl::setDialogRunner([this](dcl::Dialog& dialog) { m_ui.runDialog(dialog); });
    const std::filesystem::path file = m_folder.path().toStdString() + "/form.dcl";
    std::ofstream(file) << dcl;
    EXPECT_EQ(ads_load_dialog(file.wstring().c_str(), &m_file), RTNORM);
    m_dialog = open(name);
}

Form::~Form() {
    dcl::discardDialogs();
    dcl::setDialogRunner({});
    (void)ads_unload_dialog(m_file);
    EXPECT_TRUE(m_ui.leftOpen.empty()) << "a dialog that should have closed";
}

ads_hdlg Form::open(const char* name) const {
    ads_hdlg dialog = nullptr;
    EXPECT_EQ(ads_new_dialog(toWide(name).c_str(), m_file, NULLCB, &dialog), RTNORM);
    return dialog;
}

void Form::listen(std::initializer_list<const wchar_t*> keys) {
    for (const wchar_t* key : keys) listen(key, note);
}

void Form::listen(const wchar_t* key, CLIENTFUNC callback) {
    EXPECT_EQ(ads_client_data_tile(m_dialog, key, const_cast<wchar_t*>(key)), RTNORM);
    EXPECT_EQ(ads_action_tile(m_dialog, key, callback), RTNORM);
}

int Form::run(const Hand& hand) {
    m_ui.hand = hand;
    int status = -99;
    EXPECT_EQ(ads_start_dialog(m_dialog, &status), RTNORM);
    return status;
}

std::string Form::value(const wchar_t* key) const {
    wchar_t text[512] = {};
    EXPECT_EQ(ads_get_tile(m_dialog, key, text, 511), RTNORM);
    return toUtf8(text);
}

std::vector<std::string>& Form::calls() {
    static std::vector<std::string> theCalls;
    return theCalls;
}

}  // namespace dialogtest
