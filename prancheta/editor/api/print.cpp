// SPDX-License-Identifier: MIT
// Output of the C-style interface.
#include <cstdarg>

#include "acedads.h"
#include "prancheta/editor/api/formatting.h"
#include "prancheta/editor/editor.h"

using prancheta::Editor;

int acutPrintf(const ACHAR* format, ...) {
    Editor* editor = Editor::current();
    if (editor == nullptr || format == nullptr) return RTERROR;
    std::va_list arguments;
    va_start(arguments, format);
    const std::wstring text = prancheta::formatText(format, arguments);
    va_end(arguments);
    editor->print(text);
    return RTNORM;
}

int acedPrompt(const ACHAR* text) {
    Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr) return RTERROR;
    editor->print(text);
    return RTNORM;
}

int acedAlert(const ACHAR* text) {
    Editor* editor = Editor::current();
    if (editor == nullptr || text == nullptr) return RTERROR;
    editor->alert(text);
    return RTNORM;
}

int acdbFail(const ACHAR* text) { return acedPrompt(text); }
