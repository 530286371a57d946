// SPDX-License-Identifier: MIT
// What a built-in command works with.
#include "prancheta/editor/editor.h"

namespace prancheta {
namespace {

InputRequest request(InputKind kind, std::wstring prompt, std::optional<AcGePoint3d> base,
                     Keywords keywords) {
    InputRequest result;
    result.kind = kind;
    result.prompt = std::move(prompt);
    result.base = base;
    result.keywords = std::move(keywords);
    return result;
}

}  // namespace

AcDbDatabase& CommandContext::database() const { return m_editor.database(); }

void CommandContext::print(std::wstring_view text) const {
    if (m_editor.echo()) m_editor.print(text);
}

InputAwaiter CommandContext::point(std::wstring prompt, std::optional<AcGePoint3d> base,
                                   Keywords keywords) const {
    return ask(request(InputKind::Point, std::move(prompt), base, std::move(keywords)));
}

InputAwaiter CommandContext::distance(std::wstring prompt, std::optional<AcGePoint3d> base,
                                      Keywords keywords) const {
    return ask(request(InputKind::Distance, std::move(prompt), base, std::move(keywords)));
}

InputAwaiter CommandContext::angle(std::wstring prompt, std::optional<AcGePoint3d> base,
                                   Keywords keywords) const {
    return ask(request(InputKind::Angle, std::move(prompt), base, std::move(keywords)));
}

InputAwaiter CommandContext::text(std::wstring prompt) const {
    InputRequest r = request(InputKind::Text, std::move(prompt), {}, {});
    r.blanksAllowed = true;
    return ask(std::move(r));
}

InputAwaiter CommandContext::keyword(std::wstring prompt, Keywords keywords) const {
    return ask(request(InputKind::Keyword, std::move(prompt), {}, std::move(keywords)));
}

}  // namespace prancheta
