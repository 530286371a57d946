// SPDX-License-Identifier: MIT
// A front end for measuring.
#pragma once

#include <deque>
#include <string>

#include "prancheta/editor/user_interface.h"

/// Nobody reads, and nobody answers but what was typed before.
class Silent : public prancheta::UserInterface {
public:
    void print(std::wstring_view) override {}
    void alert(std::wstring_view) override {}
    prancheta::RawInput ask(const prancheta::InputRequest&) override {
        if (typed.empty()) return {};
        prancheta::RawInput input;
        input.kind = prancheta::RawInput::Kind::Text;
        input.text = std::move(typed.front());
        typed.pop_front();
        return input;
    }
    void runDialog(prancheta::dcl::Dialog&) override {}
    void complain(std::wstring_view, prancheta::Complaint) override {}

    std::deque<std::wstring> typed;
};
