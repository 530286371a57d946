// SPDX-License-Identifier: MIT
// The host's functions that a dialog calls, on a stand-in that records them.
#include "tests/perfis/dialog_stand_in.h"

#include <cstdarg>
#include <cwchar>

#include "acedads.h"

struct StandInAccess {
    static inline DialogStandIn* current = nullptr;
    static DialogStandIn& host() { return *current; }
    static void record(const std::wstring& event) { host().m_events.push_back(event); }

    static int set(const wchar_t* key, const wchar_t* value) {
        if (host().m_unknown.contains(key)) return RTERROR;
        host().m_tiles[key].value = value;
        record(L"valor " + std::wstring(key) + L": " + value);
        return RTNORM;
    }
    static int mode(const wchar_t* key, short mode) {
        if (host().m_unknown.contains(key)) return RTERROR;
        if (mode <= MODE_DISABLE) host().m_tiles[key].mode = mode;
        record(L"modo " + std::wstring(key) + L": " + std::to_wstring(mode));
        return RTNORM;
    }
    static int open(const wchar_t* name) {
        if (host().m_lost.contains(name)) return RTERROR;
        record(L"abre " + std::wstring(name));
        return RTNORM;
    }
    static void fire(const std::wstring& action) {
        const std::size_t equals = action.find(L'=');
        std::wstring key = action.substr(0, equals);
        DialogStandIn::Tile& tile = host().m_tiles[key];
        if (equals != std::wstring::npos) tile.value = action.substr(equals + 1);
        std::wstring value = tile.value;
        ads_callback_packet packet{};
        packet.dialog = host().dialog();
        packet.tile = reinterpret_cast<ads_htile>(key.data());
        packet.client_data = tile.data;
        const bool enter = value.ends_with(L'\n');
        if (enter) value.pop_back();
        packet.reason = enter || key != L"busca" ? CBR_SELECT : CBR_LOST_FOCUS;
        packet.value = value.data();
        if (tile.callback != nullptr) tile.callback(&packet);
    }
    static int run() {
        std::vector<std::wstring> actions;
        if (!host().m_plays.empty()) {
            actions = host().m_plays.front();
            host().m_plays.pop_front();
        }
        host().m_done = -100;
        ++host().m_open;
        for (const std::wstring& action : actions) {
            fire(action);
            if (host().m_done != -100) break;
        }
        // Whoever wired the tiles is gone when the outermost dialog has closed.
        if (--host().m_open == 0)
            for (auto& [key, tile] : host().m_tiles) tile.callback = nullptr;
        const int status = host().m_done == -100 ? 0 : host().m_done;
        host().m_done = -100;
        return status;
    }
    static void done(int status) { host().m_done = status; }
    static int& loads() { return host().m_loads; }
    static std::wstring& listKey() { return host().m_listKey; }
    static std::wstring& listRows() { return host().m_listRows; }
    static std::wstring& imageKey() { return host().m_imageKey; }
    static void startImage(const wchar_t* key) {
        host().m_imageKey = key;
        host().m_vectors.clear();
    }
    static void vector(const DialogStandIn::Vector& line) { host().m_vectors.push_back(line); }
    static bool knows(const wchar_t* key) { return !host().m_unknown.contains(key); }
    static DialogStandIn::Tile& tile(const wchar_t* key) { return host().m_tiles[key]; }
    static bool nextDistance(double& distance) {
        if (host().m_distances.empty()) return false;
        distance = host().m_distances.front();
        host().m_distances.pop_front();
        return true;
    }
};

using Access = StandInAccess;

DialogStandIn::DialogStandIn() { Access::current = this; }
DialogStandIn::~DialogStandIn() { Access::current = nullptr; }
ads_hdlg DialogStandIn::dialog() { return reinterpret_cast<ads_hdlg>(this); }

std::vector<std::wstring> DialogStandIn::eventsOf(const std::wstring& kind) const {
    std::vector<std::wstring> found;
    for (const std::wstring& event : m_events)
        if (event.starts_with(kind + L" ")) found.push_back(event.substr(kind.size() + 1));
    return found;
}

bool DialogStandIn::has(const std::wstring& event) const {
    for (const std::wstring& e : m_events)
        if (e == event) return true;
    return false;
}

int ads_load_dialog(const ACHAR*, int* id) { return *id = ++Access::loads(), RTNORM; }
int ads_unload_dialog(int) { return RTNORM; }
int ads_new_dialog(const ACHAR* name, int, CLIENTFUNC, ads_hdlg* dialog) {
    *dialog = Access::host().dialog();
    return Access::open(name);
}
int ads_start_dialog(ads_hdlg, int* status) { return *status = Access::run(), RTNORM; }
int ads_done_dialog(ads_hdlg, int status) { return Access::done(status), RTNORM; }
int ads_action_tile(ads_hdlg, const ACHAR* key, CLIENTFUNC callback) {
    if (Access::knows(key)) Access::tile(key).callback = callback;
    return RTNORM;
}
int ads_client_data_tile(ads_hdlg, const ACHAR* key, CLIENTDATA data) {
    if (Access::knows(key)) Access::tile(key).data = data;
    return RTNORM;
}
int ads_set_tile(ads_hdlg, const ACHAR* key, const ACHAR* value) { return Access::set(key, value); }
int ads_mode_tile(ads_hdlg, const ACHAR* key, short mode) { return Access::mode(key, mode); }
int ads_get_tile(ads_hdlg, const ACHAR* key, ACHAR* value, int comprimento) {
    const std::wstring text = Access::knows(key) ? Access::tile(key).value.substr(
                                                       0, static_cast<std::size_t>(comprimento))
                                                 : std::wstring();
    std::wcscpy(value, text.c_str());
    return Access::knows(key) ? RTNORM : RTERROR;
}
int ads_get_attr_string(ads_htile tile, const ACHAR*, ACHAR* value, int comprimento) {
    std::wcsncpy(value, reinterpret_cast<const wchar_t*>(tile),
                 static_cast<std::size_t>(comprimento));
    return RTNORM;
}
int ads_start_list(ads_hdlg, const ACHAR* key, short, short) {
    Access::listKey() = key;
    Access::listRows().clear();
    return Access::knows(key) ? RTNORM : RTERROR;
}
int ads_add_list(const ACHAR* item) {
    Access::listRows() += (Access::listRows().empty() ? L"" : L"|") + std::wstring(item);
    return RTNORM;
}
int ads_end_list(void) {
    Access::record(L"lista " + Access::listKey() + L": " + Access::listRows());
    return RTNORM;
}
int ads_dimensions_tile(ads_hdlg, const ACHAR*, short* cx, short* cy) {
    *cx = 99;
    *cy = 74;
    return RTNORM;
}
int ads_start_image(ads_hdlg, const ACHAR* key) { return Access::startImage(key), RTNORM; }
int ads_fill_image(short, short, short, short, short) { return RTNORM; }
int ads_slide_image(short, short, short, short, const ACHAR* slide) {
    const std::wstring path = slide;
    const std::wstring name = path.substr(path.find_last_of(L'\\') + 1);
    Access::record(L"imagem " + Access::imageKey() + L": " + name);
    return RTNORM;
}
int ads_vector_image(short x1, short y1, short x2, short y2, short color) {
    return Access::vector({{x1, y1, x2, y2}, color}), RTNORM;
}
int ads_end_image(void) { return RTNORM; }

int acedAlert(const ACHAR* text) { return Access::record(L"alerta " + std::wstring(text)), RTNORM; }
int acdbFail(const ACHAR* text) { return Access::record(L"texto " + std::wstring(text)), RTNORM; }
int acutPrintf(const ACHAR* format, ...) {
    wchar_t text[500];
    va_list arguments;
    va_start(arguments, format);
    std::vswprintf(text, 500, format, arguments);
    va_end(arguments);
    return Access::record(L"texto " + std::wstring(text)), RTNORM;
}
int acedGetDist(const ads_point, const ACHAR* prompt, ads_real* result) {
    Access::record(L"pede " + std::wstring(prompt));
    return Access::nextDistance(*result) ? RTNORM : RTCAN;
}
