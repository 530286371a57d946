// SPDX-License-Identifier: MIT
// Helpers of the dialog tests, and the command line that they write to.
#include "support.h"

#include <unistd.h>

#include <cstdarg>
#include <fstream>
#include <map>

#include "acutads.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/dcl/definition.h"
#include "prancheta/dcl/kinds.h"

namespace fs = std::filesystem;
using namespace prancheta;

namespace {
std::string commandLine;
}

/// The dialog functions print one text with "\n%ls" only.
int acutPrintf(const ACHAR* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    if (std::wstring_view(format) == L"\n%ls")
        commandLine += toUtf8(va_arg(arguments, const wchar_t*)) + "\n";
    va_end(arguments);
    return RTNORM;
}

namespace dcltest {

std::string printed() { return std::exchange(commandLine, {}); }

Folder::Folder() {
    static int count = 0;
    m_path = fs::temp_directory_path() /
             ("dcl_" + std::to_string(getpid()) + "_" + std::to_string(++count));
    fs::create_directories(m_path);
}
Folder::~Folder() {
    std::error_code error;
    fs::remove_all(m_path, error);
}
fs::path Folder::write(const std::string& name, std::string_view text) const {
    fs::create_directories((m_path / name).parent_path());
    std::ofstream(m_path / name, std::ios::binary) << text;
    return m_path / name;
}

std::string printTree(const dcl::Tile& tile) {
    std::string out(dcl::kindName(tile.kind));
    if (!tile.key.empty()) out += " " + tile.key;
    for (const auto& [name, value] : tile.definition->attributes)
        if (name != "key" && name.rfind("fixed_", 0) != 0) out += " " + name + "=" + value->text;
    out += '\n';
    for (const auto& child : tile.children) {
        std::string below = printTree(*child);
        for (std::size_t at = 0; at < below.size(); at = below.find('\n', at) + 1) {
            below.insert(at, "  ");
        }
        out += below;
    }
    return out;
}

ads_hdlg openText(std::string_view text, CLIENTFUNC fallback) {
    const Folder folder;
    int id = 0;
    (void)ads_load_dialog(folder.write("t.dcl", text).wstring().c_str(), &id);
    ads_hdlg dialog = nullptr;
    (void)ads_new_dialog(L"d", id, fallback, &dialog);
    (void)ads_unload_dialog(id);
    return dialog;
}

int run(ads_hdlg dialog, Hand hand) {
    dcl::setDialogRunner(std::move(hand));
    int status = -99;
    const int result = ads_start_dialog(dialog, &status);
    dcl::setDialogRunner(nullptr);
    return result == RTNORM ? status : result;
}

std::vector<std::string>& calls() {
    static std::vector<std::string> list;
    return list;
}

void note(ads_callback_packet* packet) {
    wchar_t key[80];
    ads_get_attr_string(packet->tile, L"key", key, 79);
    calls().push_back(toUtf8(key) + ":" + std::to_string(packet->reason) + ":" +
                      toUtf8(packet->value));
}

std::string valueOf(ads_hdlg dialog, const wchar_t* key) {
    wchar_t value[200];
    return ads_get_tile(dialog, key, value, 199) == RTNORM ? toUtf8(value) : "RTERROR";
}

namespace {

std::string show(const EventValue& value) {
    if (const auto* text = std::get_if<std::string>(&value.data)) return *text;
    if (const auto* number = std::get_if<long long>(&value.data)) return std::to_string(*number);
    if (const auto* flag = std::get_if<bool>(&value.data)) return *flag ? "true" : "false";
    if (const auto* list = std::get_if<EventList>(&value.data)) {
        std::string out = "[";
        for (const EventValue& item : *list) out += (out.size() > 1 ? "|" : "") + show(item);
        return out + "]";
    }
    return "null";
}

}  // namespace

Events::Events() {
    setEventSink([this](const Event& event) {
        std::string line = event.kind;
        for (const auto& [name, value] : event.fields)
            line += std::string(" ") + name + "=" + show(value);
        lines.push_back(std::move(line));
    });
}
Events::~Events() { setEventSink(nullptr); }

}  // namespace dcltest
