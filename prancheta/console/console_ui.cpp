// SPDX-License-Identifier: MIT
// Answers and dialog actions from a script's lines.
#include "prancheta/console/console_ui.h"

#include <cstdio>
#include <iostream>

#include "prancheta/base/event.h"
#include "prancheta/base/library.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/dialog.h"

namespace prancheta::console {

void ConsoleUi::show(std::string_view text) {
    if (m_transcript == Transcript::None) return;
    // Drawings, scripts and catalogues say what they like.
    const std::string safe = harmless(text);
    std::string_view utf8 = safe;
    // Prompts begin with a line feed; after an answer the cursor stands at a new line already.
    if (m_atLineStart && utf8.starts_with('\n')) utf8.remove_prefix(1);
    if (utf8.empty()) return;
    std::fwrite(utf8.data(), 1, utf8.size(), stdout);
    m_atLineStart = utf8.back() == '\n';
}

void ConsoleUi::print(std::wstring_view text) { show(toUtf8(text)); }

void ConsoleUi::alert(std::wstring_view text) {
    if (!m_atLineStart) show("\n");
    show("*** " + toUtf8(trim(text)) + "\n");
}

void ConsoleUi::scriptError(const std::string& what) {
    m_failed = true;
    record({"erro", {{"texto", {what}}}});
    if (!m_atLineStart) show("\n");
    std::fflush(stdout);
    std::cerr << m_script.name() << ":" << m_script.line() << ": " << harmless(what) << std::endl;
}

void ConsoleUi::complain(std::wstring_view text, Complaint kind) {
    // A person reads it and goes on; a script goes on too, but did not do what it was written for.
    if (m_script.interactive() || kind == Complaint::Again)
        show(toUtf8(text) + "\n");
    else
        scriptError(toUtf8(trim(text)));
}

// Nobody watches: there is no waiting, only whoever wants an end.
bool ConsoleUi::pass(std::chrono::milliseconds) {
    return endWish() == 0 && !(m_script.interactive() && takeInterrupt());
}

RawInput ConsoleUi::ask(const InputRequest& request) {
    // Without a prompt what was written last is the question.
    if (!m_atLineStart && !request.prompt.empty()) show("\n");
    show(toUtf8(request.prompt));
    if (m_script.interactive()) std::fflush(stdout);
    const auto line = m_script.next();
    if (!m_script.interactive()) show(line.value_or("") + "\n");
    m_atLineStart = true;
    RawInput input;
    if (!line) return input;
    input.kind = *line == "^C" ? RawInput::Kind::Cancel : RawInput::Kind::Text;
    if (input.kind == RawInput::Kind::Text) input.text = toWide(*line);
    return input;
}

Result<void> ConsoleUi::inspect(dcl::Dialog& dialog, const std::string& key) {
    const dcl::Tile* const tile = dialog.find(key);
    if (tile == nullptr) return Error{"o diálogo não tem o item \"" + key + "\"", {}, 0, 0};
    const bool usable = dcl::isUsable(*tile);
    const long long mode = usable ? MODE_ENABLE : MODE_DISABLE;
    record({"tile", {{"chave", {key}}, {"valor", {toUtf8(tile->value)}}, {"modo", {mode}}}});
    show("  " + key + " = \"" + toUtf8(tile->value) + "\"" + (usable ? "" : " (desabilitado)") +
         "\n");
    return {};
}

Result<void> ConsoleUi::act(dcl::Dialog& dialog, const std::string& line) {
    if (line.empty())
        return Error{"linha vazia num diálogo (escreva uma ação, por exemplo accept)", {}, 0, 0};
    if (line == "^C") {
        dialog.escape();
        return {};
    }
    if (line.starts_with('?'))
        return inspect(dialog, std::string(trim(std::string_view(line).substr(1))));
    const auto equals = line.find('=');
    if (equals == std::string::npos) return dialog.press(line);
    const std::string key(trim(std::string_view(line).substr(0, equals)));
    const bool twice = line.compare(equals, 2, "==") == 0;
    const std::string value(trim(std::string_view(line).substr(equals + (twice ? 2 : 1))));
    return twice ? dialog.doubleClick(key, value) : dialog.type(key, value);
}

void ConsoleUi::runDialog(dcl::Dialog& dialog) {
    if (!m_atLineStart) show("\n");
    while (!dialog.finished()) {
        if (m_script.interactive()) {
            show("[" + dialog.name() + "] ");
            std::fflush(stdout);
        }
        const auto line = m_script.next();
        if (!line) return dialog.abandon();
        if (!m_script.interactive()) show("[" + dialog.name() + "] " + *line + "\n");
        m_atLineStart = true;
        const auto done = act(dialog, *line);
        if (done) continue;
        if (m_script.interactive()) {
            show(done.error().text + "\n");
            continue;
        }
        scriptError(done.error().text);
        m_script.stop();
        return dialog.abandon();
    }
}

}  // namespace prancheta::console
