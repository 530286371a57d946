// SPDX-License-Identifier: MIT
// A front end for measuring.
#pragma once

#include "prancheta/editor/user_interface.h"

/// Nobody answers and nobody reads.
class Silent : public prancheta::UserInterface {
public:
    void print(std::wstring_view) override {}
    void alert(std::wstring_view) override {}
    prancheta::RawInput ask(const prancheta::InputRequest&) override { return {}; }
    void runDialog(prancheta::dcl::Dialog&) override {}
    void complain(std::wstring_view, prancheta::Complaint) override {}
};
