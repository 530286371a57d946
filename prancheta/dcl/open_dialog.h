// SPDX-License-Identifier: MIT
// The dialog behind the interface: what the program does with it, and what a person does.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "prancheta/dcl/dialog.h"
#include "prancheta/dcl/layout.h"

namespace prancheta::dcl {

/// What dialogs of the same definition and the same metrics have in common; the first one fills it.
struct DialogForm {
    std::vector<Box> boxes;                             ///< empty until laid out
    std::unordered_map<std::string, std::size_t> keys;  ///< place of the first tile with a key
};

/// Owns the tiles. Handles are made of `serial`, so that one of a closed dialog never means
/// another.
class OpenDialog final : public Dialog {
public:
    OpenDialog(std::uint32_t serial, std::unique_ptr<Tile> root, std::string name, std::string file,
               CLIENTFUNC fallback, const Metrics& metrics, std::shared_ptr<DialogForm> form);

    const std::string& name() const override { return m_name; }
    const std::string& file() const override { return m_file; }
    Tile& root() override { return *m_root; }
    Tile* find(std::string_view key) override;
    Tile* focus() override { return m_focus; }
    const Layout& layout() const override;
    const Metrics& metrics() const override { return m_metrics; }
    bool finished() const override { return m_finished; }
    int status() const override { return m_status; }

    Result<void> type(std::string_view key, std::string_view text) override;
    Result<void> doubleClick(std::string_view key, std::string_view row) override;
    Result<void> secondClick(std::string_view key) override;
    Result<void> press(std::string_view key, long x, long y) override;
    Result<void> edit(std::string_view key, std::string_view text) override;
    void leave() override;
    void focusOn(Tile& tile) override;
    Result<void> enter(std::string_view key) override;
    Result<void> drag(std::string_view key, std::string_view number) override;
    void escape() override;
    void abandon() override { finish(DLGCANCEL); }

    // What the program does.

    std::uint32_t serial() const { return m_serial; }
    ads_hdlg handle() const;
    ads_htile tileHandle(const Tile& tile) const;
    /// Null when the handle is of another dialog.
    const Tile* tileOf(ads_htile handle) const;
    /// Pixels, origin at the upper left corner of the dialog.
    const Box& box(const Tile& tile) const { return *layout().find(tile); }

    /// False when the mode means nothing for the tile.
    bool setMode(Tile& tile, short mode);
    /// Tells the front end, of the whole cluster where a radio button is concerned.
    void changed(Tile& tile);

    void start() { m_started = true; }
    bool started() const { return m_started; }
    /// Ends the dialog when the running callback returns; false when none runs.
    bool done(int status);
    /// Ends it with status -1, whatever the running callback says afterwards.
    void terminate();

private:
    void index(Tile& tile, bool isKnown);
    bool fire(Tile& tile, Reason reason, long x = 0, long y = 0);
    void finish(int status);

    Result<Tile*> touch(std::string_view key);
    Result<void> typeList(Tile& list, std::string_view text);
    Result<void> typeSlider(Tile& slider, std::string_view text, Reason reason);
    Result<void> typeRadio(Tile& tile, std::string_view text);
    Result<void> typeEdit(Tile& box, std::string_view text);
    Result<void> typeToggle(Tile& toggle, std::string_view text);
    void chooseRadio(Tile& button);
    void pressButton(Tile& button);
    void clickAgain(Tile& tile);
    Tile* buttonWith(const char* flag);

    bool setFocus(Tile& tile);
    bool isTabStop(const Tile& tile) const;
    void moveFocusFrom(const Tile& tile);

    std::uint32_t m_serial;
    std::unique_ptr<Tile> m_root;
    std::string m_name;
    std::string m_file;
    CLIENTFUNC m_fallback;
    Metrics m_metrics;
    mutable std::optional<Layout> m_layout;
    std::shared_ptr<DialogForm> m_form;
    std::vector<Tile*> m_tiles;  ///< in the order of the file

    Tile* m_focus = nullptr;
    Tile* m_editing = nullptr;  ///< typed into and not left yet
    int m_callbacks = 0;
    bool m_started = false;
    bool m_finished = false;
    bool m_terminated = false;
    int m_status = DLGCANCEL;
    std::optional<int> m_pending;
};

}  // namespace prancheta::dcl
