// SPDX-License-Identifier: MIT
// Keys that answer before the front end is asked: typed ahead by the user, or by a script.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "prancheta/editor/user_interface.h"

namespace prancheta {

class Editor;

/// Characters as a keyboard gives them: line ends and (outside texts) blanks end an answer; lines
/// that begin with `;` are comments.
class Typing {
public:
    explicit Typing(Editor& editor) : m_editor(editor) {}

    /// To be typed after what waits already. While a script runs they wait for its end.
    void add(std::wstring_view keys) { (m_inScript ? m_afterScript : m_keys).append(keys); }
    /// False when the next question goes to the front end.
    bool pending() const { return m_inScript || !m_keys.empty(); }
    /// Forgets what is typed ahead, as a complaint does; the rest of a script can be resumed.
    void stop();
    /// The answer to a question; nothing when the front end is to be asked.
    std::optional<RawInput> take(const InputRequest& request);

    /// Types a script before what was typed ahead; one that runs already gives way to it. What its
    /// commands do is undone in one step. It ends with its last key, or is interrupted by stop().
    /// False, and nothing is typed, when scripts have replaced each other too often.
    bool runScript(std::wstring keys);
    bool inScript() const { return m_inScript; }
    /// Goes on with the script that was interrupted last; false when there is none.
    bool resumeScript();

    /// To be called between two commands: here a script's step of undo begins and ends, and here
    /// the user interrupts it.
    void betweenCommands();
    /// The step of undo went with the former drawing.
    void drawingReplaced() { m_grouped = false; }

private:
    std::wstring_view rest() const { return std::wstring_view(m_keys).substr(m_used); }
    void begin(std::wstring keys);
    void use(std::size_t count);
    void skipComments();

    Editor& m_editor;
    std::wstring m_keys;
    std::size_t m_used = 0;  ///< so many of the keys are answers already; never all
    bool m_lineStart = true;
    bool m_inScript = false;      ///< the keys, or the last ones just now, are a script's
    int m_scriptsInARow = 0;      ///< so often a script gave way to another one
    bool m_grouped = false;       ///< an undo group for the script is open in the drawing
    std::wstring m_restOfScript;  ///< of the script that was interrupted
    std::wstring m_afterScript;   ///< typed ahead by the user of the script that runs
};

}  // namespace prancheta
