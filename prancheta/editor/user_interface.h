// SPDX-License-Identifier: MIT
// The only door between the editor and a front end (console, window).
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <initializer_list>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "dbmain.h"
#include "gemat3d.h"
#include "gepnt3d.h"

namespace prancheta {

class Clipboard;
class Picture;

namespace dcl {
class Dialog;
}

enum class InputKind {
    Command,  ///< "Comando:"
    Point,
    Corner,  ///< second corner of a box from `base`
    Distance,
    Angle,
    Integer,
    Real,
    Text,
    Keyword,
    Selection,  ///< "Selecione objetos:"
    Entity,     ///< one entity
    Drag,       ///< a jig: the front end may answer Move many times before the end
};

/// One option of a prompt: the local word, the global word; capitals are the abbreviation.
struct Keyword {
    std::wstring local;
    std::wstring global;
};

/// Options of a prompt. Copies share them: a request is copied often, its options never change.
class Keywords {
public:
    Keywords() = default;
    Keywords(std::initializer_list<Keyword> words) : Keywords(std::vector<Keyword>(words)) {}
    Keywords(std::vector<Keyword> words)
        : m_words(std::make_shared<const std::vector<Keyword>>(std::move(words))) {}

    const Keyword* begin() const { return m_words ? m_words->data() : nullptr; }
    const Keyword* end() const { return m_words ? m_words->data() + m_words->size() : nullptr; }

private:
    std::shared_ptr<const std::vector<Keyword>> m_words;
};

/// Entities that a prompt works on. Copies share them, as those of Keywords do.
class SharedIds {
public:
    SharedIds() = default;
    SharedIds(std::vector<AcDbObjectId> ids)
        : m_ids(std::make_shared<const std::vector<AcDbObjectId>>(std::move(ids))) {}

    bool empty() const { return m_ids == nullptr || m_ids->empty(); }
    const std::vector<AcDbObjectId>& ids() const {
        static const std::vector<AcDbObjectId> kNone;
        return m_ids ? *m_ids : kNone;
    }

private:
    std::shared_ptr<const std::vector<AcDbObjectId>> m_ids;
};

/// Text that a front end may let the user edit where it stands, instead of asking for it line by
/// line. World coordinates, drawing units.
struct TextFrame {
    AcGePoint3d corner;  ///< top left
    AcGeVector3d along = AcGeVector3d::kXAxis;
    double height = 2.5;  ///< of the letters
    double width = 0.0;   ///< at which lines break; 0 breaks none
    bool lines = false;   ///< more than one line may be typed
    std::wstring text;    ///< as it is before
};

/// A question. Points are in world coordinates.
struct InputRequest {
    InputKind kind = InputKind::Text;
    std::wstring prompt;
    std::optional<AcGePoint3d> base;  ///< of the rubber band and of direct distance entry
    Keywords keywords;
    int flags = 0;               ///< RSG_* bits
    bool nullAllowed = true;     ///< a bare Enter is an answer
    bool blanksAllowed = false;  ///< blanks belong to the text
    bool orthoAllowed = true;
    bool absoluteAngle = false;  ///< angles count from +X whatever ANGBASE says
    /// Snap modes (bits of OSMODE) that replace the running ones for this point; 0 = none.
    std::optional<int> snapModes;
    AcDbEntity* dragged = nullptr;  ///< entity that follows the pointer, for kind Drag
    bool rotating = false;          ///< angle prompt whose preview turns `selection` about `base`
    bool moving = false;            ///< point prompt whose preview moves `selection` from `base`
    SharedIds selection;
    /// Appends what the answer `pointer` would draw (world, after snap and ortho), for a front end
    /// that shows it while it waits. Good as long as the question waits; changes nothing. Of a
    /// distance without `base` the pointer is told from the first of the two points that give it.
    std::function<void(const AcGePoint3d& pointer, Picture& out)> preview;
    /// In the place of `preview` while Shift is held, where that gives another answer.
    std::function<void(const AcGePoint3d& pointer, Picture& out)> shiftPreview;
    /// What that answer would do to `selection`, for more than `moving` and `rotating` can say.
    std::function<AcGeMatrix3d(const AcGePoint3d& pointer)> transforming;
    /// For a text: the answer of who edits it in place is all its lines, each with its line end.
    std::shared_ptr<const TextFrame> inPlace;
};

/// What the user did, not yet interpreted.
struct RawInput {
    enum class Kind { Text, Pick, Move, Snap, Cancel, EndOfInput };
    Kind kind = Kind::EndOfInput;
    std::wstring text;  ///< typed line, empty = Enter
    int snapModes = 0;  ///< for Snap: they replace the running ones for the point that is asked for
    AcGePoint3d point;  ///< world coordinates, snapped, for Pick and Move
    std::vector<AcDbObjectId>
        entities;  ///< for Pick: what lies under the pointer, or inside a window
    /// For Pick: corners of the crossing frame that found the entities, world; empty without one.
    std::vector<AcGePoint3d> crossing;
    bool removes = false;  ///< for Pick: takes the entities out of a selection (Shift)
    /// Where the pointer stands while text is typed: gives direct distance entry its direction.
    /// World.
    std::optional<AcGePoint3d> pointer;
};

/// Again: Enter is no answer here, the question comes again. Refused: so does it after an answer
/// that made no sense. Failed: the command did not do what it was asked (unknown command, file that
/// could not be written).
enum class Complaint { Again, Refused, Failed };

/// What a drawing may be saved as.
struct FileFormat {
    const wchar_t* title;
    /// Put behind the drawing's name ("-r12") where the file is a copy that does not hold all of
    /// it; else empty.
    const wchar_t* mark;
};

/// A drawing's file that a command needs.
struct FileQuestion {
    enum class Purpose { Open, Save };
    Purpose purpose = Purpose::Open;
    std::filesystem::path suggestion = {};  ///< empty: none
    /// To choose between, the usual one first; empty: there is no choice.
    std::span<const FileFormat> formats = {};
    std::size_t* format = nullptr;  ///< where the number of the chosen one goes
};

/// What becomes of a file that another program changed since the drawing was read from it.
enum class ChangedFile { Replace, SaveElsewhere, Keep };

/// What a front end with windows may have instead of a command's questions.
enum class Tool { Properties, Layers, Plot, TextStyles, DimensionStyles };

class UserInterface {
public:
    virtual ~UserInterface() = default;

    /// Command-line output as it is; line feeds where they stand.
    virtual void print(std::wstring_view text) = 0;
    virtual void alert(std::wstring_view text) = 0;
    /// Shows the prompt and waits. Text that makes no sense is asked again by the editor.
    virtual RawInput ask(const InputRequest& request) = 0;
    /// Serves an open dialog until it is finished.
    virtual void runDialog(dcl::Dialog& dialog) = 0;
    /// Shows why an input came to nothing. A script's front end makes an error of it, but for
    /// Again.
    virtual void complain(std::wstring_view text, Complaint kind) = 0;
    /// Lets the user choose a file in a window; an empty path: he chose none. For saving, a file
    /// that is there was confirmed. Nothing: there is no such window, the command asks by text.
    virtual std::optional<std::filesystem::path> chooseFile(const FileQuestion&) { return {}; }
    /// Asks in a window whether a drawing with unsaved changes may be left; it may have been saved
    /// in answer. Nothing: there is no such window, the command asks by text.
    virtual std::optional<bool> mayLeaveDrawing() { return {}; }
    /// Asks in a window what becomes of a drawing's file that another program changed. Nothing:
    /// there is no such window, the command asks by text.
    virtual std::optional<ChangedFile> replaceChangedFile() { return {}; }
    /// False when the answers come from a script: it gets no question that it does not expect.
    virtual bool attended() const { return true; }
    /// Asks in a window whether a module that a script wants is to be loaded. Without a window
    /// nobody is asked: an answer would be taken from the script.
    virtual bool mayLoad(const std::filesystem::path& module) {
        (void)module;
        return false;
    }
    /// Shows the window or panel that does the command's work. False: there is none, the command
    /// does with the command line.
    virtual bool showTool(Tool) { return false; }
    /// Lets so much time pass while windows stay alive; false when the user pressed Esc meanwhile.
    /// 0 only looks whether he did. A front end without windows does not wait.
    virtual bool pass(std::chrono::milliseconds) { return true; }
    /// The user copied: who has other programs beside it offers them what the clipboard holds.
    virtual void offerCopied(const Clipboard&) {}
    /// The user pastes: what another program, or another window, offers since then goes into the
    /// clipboard. Nothing changes when nobody does, or when it cannot be read.
    virtual void takeOffered(Clipboard&) {}
    /// Something visible changed; called after each command and each step of a drag.
    virtual void refresh() {}
};

}  // namespace prancheta
