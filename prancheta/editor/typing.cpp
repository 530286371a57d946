// SPDX-License-Identifier: MIT
// Keys that answer before the front end is asked.
#include "prancheta/editor/typing.h"

#include <algorithm>
#include <utility>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/editor.h"

namespace prancheta {

/// Scripts that call each other would go on for ever.
constexpr int kMostScriptsInARow = 100;

void Typing::begin(std::wstring keys) {
    m_keys = std::move(keys);
    m_used = 0;
    m_lineStart = true;
}

void Typing::use(std::size_t count) {
    m_used += count;
    if (m_used < m_keys.size()) return;
    m_keys.clear();
    m_used = 0;
}

void Typing::skipComments() {
    while (m_lineStart && rest().starts_with(L';'))
        use(std::min(rest().find(L'\n'), rest().size() - 1) + 1);
}

std::optional<RawInput> Typing::take(const InputRequest& request) {
    skipComments();
    if (m_inScript && m_keys.empty()) {
        m_inScript = false;
        begin(std::exchange(m_afterScript, {}));
        skipComments();
    }
    if (m_keys.empty()) return {};
    const std::wstring_view keys = rest();
    const bool wholeLine = request.kind == InputKind::Text && request.blanksAllowed;
    const bool quoted = !wholeLine && keys.front() == L'"';
    std::size_t end = quoted ? keys.find(L'"', 1) : 0;
    end = keys.find_first_of(wholeLine ? L"\n" : L" \n", end == keys.npos ? 0 : end);
    RawInput input;
    input.kind = RawInput::Kind::Text;
    input.text = keys.substr(0, end);
    std::erase(input.text, L'\r');
    if (quoted) std::erase(input.text, L'"');
    m_lineStart = end == keys.npos || keys[end] == L'\n';
    use(end == keys.npos ? keys.size() : end + 1);
    if (m_inScript) m_editor.print(request.prompt + input.text + L"\n");
    return input;
}

void Typing::stop() {
    if (m_inScript) m_restOfScript = rest();
    m_inScript = false;
    m_afterScript.clear();
    begin({});
}

bool Typing::runScript(std::wstring keys) {
    m_scriptsInARow = m_inScript ? m_scriptsInARow + 1 : 0;
    if (m_scriptsInARow > kMostScriptsInARow) return false;
    if (!m_inScript) m_afterScript = rest();
    m_restOfScript.clear();
    begin(std::move(keys));
    m_inScript = true;
    return true;
}

bool Typing::resumeScript() {
    return !m_restOfScript.empty() && runScript(std::exchange(m_restOfScript, {}));
}

// Here no command's own undo group is cut in two.
void Typing::betweenCommands() {
    if (m_inScript && !m_editor.ui().pass(std::chrono::milliseconds(0))) {
        stop();
        m_editor.print(L"*Cancelar*\n");
    }
    if (m_inScript) skipComments();
    const bool running = m_inScript && !m_keys.empty();
    if (running == m_grouped) return;
    m_grouped = running;
    UndoLog& undo = m_editor.database().core().undo();
    running ? undo.beginScriptGroup() : undo.endScriptGroup();
}

}  // namespace prancheta
