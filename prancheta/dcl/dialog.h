// SPDX-License-Identifier: MIT
// An open dialog: its tiles, and what a person can do with them.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adsdlg.h"
#include "prancheta/base/result.h"

namespace prancheta::dcl {

enum class TileKind {
    Dialog,
    Row,
    Column,
    BoxedRow,
    BoxedColumn,
    RadioRow,
    RadioColumn,
    BoxedRadioRow,
    BoxedRadioColumn,
    Concatenation,
    Paragraph,
    Button,
    EditBox,
    ListBox,
    PopupList,
    RadioButton,
    Toggle,
    Slider,
    ImageButton,
    Image,
    Text,
    TextPart,
    Spacer,
};

/// One thing painted into an image tile; coordinates in the tile's pixels, origin upper left, y
/// down.
struct Paint {
    enum class Kind { Fill, Vector, Slide };
    Kind kind;
    short x1, y1, x2, y2;  ///< Fill and Slide: corner and size
    short color = 0;       ///< Fill and Vector
    std::wstring slide;    ///< as the program named it
    bool found = false;    ///< the slide exists and could be read
};

struct Definition;

/// A tile of an open dialog. Attributes stay in its definition, which all dialogs made of it share;
/// `value`, `enabled`, `rows` and `paints` are the state at run time.
struct Tile {
    TileKind kind = TileKind::Column;
    std::string key;
    std::shared_ptr<const Definition> definition;  ///< null: no attributes
    std::size_t place = 0;                         ///< in the order of the file, the dialog is 0
    std::vector<std::unique_ptr<Tile>> children;
    Tile* parent = nullptr;

    std::wstring value;
    bool enabled = true;
    std::vector<std::wstring> rows;
    std::vector<Paint> paints;
    bool highlighted = false;  ///< frame flipped by ads_mode_tile 4
    CLIENTFUNC action = nullptr;
    CLIENTDATA clientData = nullptr;

    /// Attribute as its DCL text (UTF-8), or the given default.
    std::string attribute(std::string_view name, std::string_view fallback = {}) const;
};

enum class Reason {
    Select = CBR_SELECT,
    LostFocus = CBR_LOST_FOCUS,
    Drag = CBR_DRAG,
    DoubleClick = CBR_DOUBLE_CLICK
};

/// Font and widgets of the front end, by which dialogs are laid out before a window exists; pixels.
struct Metrics {
    double characterWidth = 7.0;
    double characterHeight = 16.0;
    /// Width of a text in the dialog's font; empty: one character width for each character.
    std::function<double(std::wstring_view)> textWidth = {};
    /// The same in bold.
    std::function<double(std::wstring_view)> boldWidth = {};

    /// What widgets need at least: the height of one line, the width besides the text. 0: nothing
    /// beyond the layout's own figures.
    struct Widget {
        double height = 0;
        double frame = 0;
    };
    Widget button = {}, edit = {}, popup = {}, choice = {}, slider = {};
    /// Least distances that suit those widgets; 0: the layout's own.
    double dialogMargin = 0;
    double columnGap = 0;
    double rowGap = 0;
    double fixedLine = 0;  ///< height of a line in the fixed-pitch font
    double titleGap = 0;   ///< between a title and what stands below it
};

struct Layout;

/// Built by ads_new_dialog, served by a front end from ads_start_dialog until finished().
class Dialog {
public:
    virtual ~Dialog() = default;

    virtual const std::string& name() const = 0;
    /// Without folder.
    virtual const std::string& file() const = 0;
    virtual Tile& root() = 0;
    /// Null when there is none.
    virtual Tile* find(std::string_view key) = 0;

    /// Tile with the keyboard, by initial_focus, the tab order and ads_mode_tile; null when none
    /// can have it.
    virtual Tile* focus() = 0;

    /// Where every tile stands, as it was told to the program; and the metrics behind it.
    virtual const Layout& layout() const = 0;
    virtual const Metrics& metrics() const = 0;

    virtual bool finished() const = 0;
    virtual int status() const = 0;

    /// What a person does. Each fires the callbacks that a hand would fire and answers with the
    /// Portuguese reason when a person could not do it (no such tile, disabled, no such row, wrong
    /// kind of tile).
    ///
    /// `type`: edit box: types the text and leaves the field (reason 2); toggle "0"/"1" (a click
    /// only when it changes); list box and popup: row index (reason 1), several with blanks between
    /// where the list takes them; radio cluster: the button's key; radio button "1"; slider: the
    /// number.
    virtual Result<void> type(std::string_view key, std::string_view text) = 0;
    /// List box: selects the row (reason 1) and double-clicks it (reason 4), then the default
    /// button when the tile has allow_accept. Image button: the same without a row.
    virtual Result<void> doubleClick(std::string_view key, std::string_view row) = 0;
    /// The second click of a double click alone (reason 4 and what follows), on what the first one
    /// selected or pressed.
    virtual Result<void> secondClick(std::string_view key) = 0;
    /// Button, image button, radio button, `accept` and `cancel`; x and y in pixels of an image
    /// button.
    virtual Result<void> press(std::string_view key, long x = 0, long y = 0) = 0;
    /// Edit box: types without leaving the field; with reports_typing that is reason 3. Reason 2
    /// follows when something else is touched, before the callback of that.
    virtual Result<void> edit(std::string_view key, std::string_view text) = 0;
    /// Leaves the field of the last edit() (the Tab key).
    virtual void leave() = 0;
    /// The keyboard went to the tile (Tab, a click): the field of the last edit() is left, unless a
    /// callback is running, which moved the keyboard itself.
    virtual void focusOn(Tile& tile) = 0;
    /// Enter: in the edit box `key` its callback (reason 1), then the default button when it has
    /// allow_accept; anywhere else (empty key) the default button.
    virtual Result<void> enter(std::string_view key = {}) = 0;
    /// Slider on its way (reason 3).
    virtual Result<void> drag(std::string_view key, std::string_view number) = 0;
    /// Esc: presses the cancel button; without one, closes with status 0.
    virtual void escape() = 0;
    /// Closes with status 0 whatever the dialog's callbacks would say: the input is gone.
    virtual void abandon() = 0;

    /// Called when the program changes a tile, so that a window can show it.
    std::function<void(Tile&)> onTileChanged;
    /// Focus asked for by ads_mode_tile 2 and 3.
    std::function<void(Tile&, short mode)> onFocus;
};

/// Door of the dialog functions to the front end; set once by the host before any dialog opens.
using DialogRunner = std::function<void(Dialog&)>;
void setDialogRunner(DialogRunner runner);

/// Number of dialogs that are open: user input and commands are refused while it is not 0.
int openDialogs();

/// Closes all open dialogs, those that were started with status 0; the editor calls it when a
/// module's command ends, so that input is not refused for ever.
void discardDialogs();

/// Enabled, and so are all the clusters around it.
bool isUsable(const Tile& tile);
/// The file hides the tile, or a cluster around it (`is_hidden`, an attribute of our own): it takes
/// no room and no window shows it; programs and scripts reach it as any other.
bool isHidden(const Tile& tile);

void setMetrics(const Metrics& metrics);

}  // namespace prancheta::dcl
