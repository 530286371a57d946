// SPDX-License-Identifier: MIT
// Stack of open dialogs.
#include "prancheta/dcl/session.h"

#include "prancheta/dcl/build.h"

#include <algorithm>

#include "prancheta/base/event.h"
#include "prancheta/base/text.h"

namespace prancheta::dcl {

Session& session() {
    static Session theSession;
    return theSession;
}

OpenDialog* Session::dialog(ads_hdlg handle) const {
    for (const auto& d : open)
        if (d->handle() == handle) return d.get();
    return nullptr;
}

bool Session::isFrontmost(const OpenDialog& dialog) const {
    return !open.empty() && open.back().get() == &dialog;
}

std::shared_ptr<OpenDialog> Session::frontmost() const {
    return open.empty() ? nullptr : open.back();
}

OpenDialog& Session::push(const DefinitionPtr& definition, std::string name, std::string file,
                          CLIENTFUNC fallback) {
    constexpr std::size_t kMostForms = 100;
    if (m_forms.size() >= kMostForms) m_forms.clear();
    auto& form = m_forms[definition];
    if (form == nullptr) form = std::make_shared<DialogForm>();
    open.push_back(std::make_shared<OpenDialog>(nextSerial(), build(definition), std::move(name),
                                                std::move(file), fallback, m_metrics, form));
    return *open.back();
}

void Session::setMetrics(const Metrics& newMetrics) {
    m_metrics = newMetrics;
    m_forms.clear();
}

void Session::forget(const OpenDialog& dialog) {
    if (list.dialog == &dialog) list = {};
    if (image.dialog == &dialog) image = {};
    if (recording())
        record(
            {"fecha",
             {{"nome", {dialog.name()}}, {"status", {static_cast<long long>(dialog.status())}}}});
}

void Session::close(const OpenDialog& dialog) {
    const auto isIt = [&](const auto& d) { return d.get() == &dialog; };
    if (std::none_of(open.begin(), open.end(), isIt)) return;
    for (bool last = false; !last;) {
        const std::shared_ptr<OpenDialog> top = open.back();
        last = top.get() == &dialog;
        open.pop_back();
        forget(*top);
    }
}

void Session::discardAbove(const OpenDialog& dialog) {
    while (!open.empty() && open.back().get() != &dialog && !open.back()->started())
        close(*open.back());
}

void Session::discardUnstarted() {
    while (!open.empty() && !open.back()->started()) close(*open.back());
}

TileAddress tileAt(ads_hdlg handle, const ACHAR* key) {
    OpenDialog* dialog = session().dialog(handle);
    Tile* tile = dialog != nullptr && key != nullptr ? dialog->find(toUtf8(key)) : nullptr;
    if (tile == nullptr) return {};
    return {dialog, tile};
}

void copyOut(std::wstring_view text, ACHAR* out, int length) {
    if (out == nullptr || length < 0) return;
    const std::size_t count = std::min(text.size(), static_cast<std::size_t>(length));
    text.copy(out, count);
    out[count] = L'\0';
}

void setDialogRunner(DialogRunner runner) { session().runner = std::move(runner); }

int openDialogs() { return static_cast<int>(session().open.size()); }

void discardDialogs() {
    const std::vector<std::shared_ptr<OpenDialog>> all = session().open;
    for (const auto& dialog : all)
        if (!dialog->finished()) dialog->abandon();
    if (!all.empty()) session().close(*all.front());
}

void setMetrics(const Metrics& metrics) { session().setMetrics(metrics); }

}  // namespace prancheta::dcl
