// SPDX-License-Identifier: MIT
// A host's dialogs for tests: remembers tiles, records what is done to them, plays a user.
#pragma once

#include <array>
#include <deque>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "adsdlg.h"

/// While one lives, the ads_ functions of this program work on it. Tiles come into being when they
/// are first touched.
class DialogStandIn {
public:
    DialogStandIn();
    ~DialogStandIn();
    DialogStandIn(const DialogStandIn&) = delete;
    DialogStandIn& operator=(const DialogStandIn&) = delete;

    ads_hdlg dialog();

    /// What the user does at the next opening that has no actions yet: "key=value" gives a tile its
    /// value and fires its callback, "key" alone fires it. A field for searching is left, unless
    /// its text ends with a line feed, the Enter key. A dialog whose actions are used up is
    /// cancelled.
    void play(std::vector<std::wstring> actions) { m_plays.push_back(std::move(actions)); }
    /// From now on the host knows no tile of this key.
    void forget(const std::wstring& key) { m_unknown.insert(key); }
    /// From now on this dialog cannot be opened.
    void lose(const std::wstring& dialogName) { m_lost.insert(dialogName); }
    /// Answer of the next distance prompt.
    void answerDistance(double distance) { m_distances.push_back(distance); }

    /// "valor key: text", "modo key: n", "lista key: a|b", "imagem key: slide", "abre name",
    /// "texto text", "alerta text", since the last call of clearEvents().
    const std::vector<std::wstring>& events() const { return m_events; }
    std::vector<std::wstring> eventsOf(const std::wstring& kind) const;
    void clearEvents() { m_events.clear(); }
    bool has(const std::wstring& event) const;

    std::wstring value(const std::wstring& key) { return m_tiles[key].value; }
    /// Enabled or disabled.
    int mode(const std::wstring& key) { return m_tiles[key].mode; }
    /// How often a dialog file was loaded.
    int loads() const { return m_loads; }

    struct Vector {
        std::array<short, 4> ends;  ///< x1, y1, x2, y2
        short color;
    };
    /// Of the image painted last.
    const std::vector<Vector>& vectors() const { return m_vectors; }

    struct Tile {
        std::wstring value;
        int mode = 0;
        CLIENTFUNC callback = nullptr;
        CLIENTDATA data = nullptr;
    };

private:
    friend struct StandInAccess;
    std::map<std::wstring, Tile> m_tiles;
    std::deque<std::vector<std::wstring>> m_plays;
    std::deque<double> m_distances;
    std::set<std::wstring> m_unknown;
    std::set<std::wstring> m_lost;
    std::vector<std::wstring> m_events;
    std::wstring m_listKey;
    std::wstring m_listRows;
    std::wstring m_imageKey;
    std::vector<Vector> m_vectors;
    int m_done = -100;
    int m_open = 0;  ///< dialogs, one in the other
    int m_loads = 0;
};
