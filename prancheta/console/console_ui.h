// SPDX-License-Identifier: MIT
// The front end without a window: a script answers.
#pragma once

#include <string>

#include "prancheta/console/script.h"
#include "prancheta/editor/user_interface.h"

namespace prancheta::console {

/// Whether the command history is written to standard output.
enum class Transcript { Shown, None };

/// Writes the command history and takes every answer from the script.
class ConsoleUi : public UserInterface {
public:
    explicit ConsoleUi(Script& script, Transcript transcript = Transcript::Shown)
        : m_script(script), m_transcript(transcript) {}

    void print(std::wstring_view text) override;
    void alert(std::wstring_view text) override;
    RawInput ask(const InputRequest& request) override;
    void runDialog(dcl::Dialog& dialog) override;
    void complain(std::wstring_view text, Complaint kind) override;
    bool pass(std::chrono::milliseconds time) override;
    bool attended() const override { return m_script.interactive(); }

    /// True when the script asked for something that could not be done.
    bool failed() const { return m_failed; }

private:
    void show(std::string_view text);
    void scriptError(const std::string& what);
    Result<void> act(dcl::Dialog& dialog, const std::string& line);
    Result<void> inspect(dcl::Dialog& dialog, const std::string& key);

    Script& m_script;
    Transcript m_transcript;
    bool m_failed = false;
    bool m_atLineStart = true;
};

}  // namespace prancheta::console
