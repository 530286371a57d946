// SPDX-License-Identifier: MIT
// Where is drawn: the model, a sheet, or the model through a viewport of a sheet.
#pragma once

#include <string>
#include <unordered_map>

#include "dbviewport.h"
#include "prancheta/database/layouts.h"
#include "prancheta/database/sysvars.h"
#include "prancheta/editor/screen.h"

namespace prancheta {

class Editor;

/// The tab that the screen shows. Through a viewport the screen's view is one of the model, such
/// that the viewport's frame stands where the sheet has it.
class Spaces {
public:
    explicit Spaces(Editor& editor) : m_editor(editor) {}

    /// Block of the model or of a sheet.
    AcDbObjectId tab() const;
    bool onSheet() const;
    /// The viewport that is drawn through; null when there is none.
    AcDbObjectId viewport() const { return m_viewport; }
    /// What is drawn has the size of paper: on a sheet, and not through a viewport.
    bool drawsOnPaper() const { return onSheet() && m_viewport.isNull(); }
    /// Of the tab: on a sheet in its coordinates, whatever is drawn through.
    View tabView() const;
    /// The view that the model's tab has or had.
    View modelView() const;

    /// Viewports of the sheet that is shown, in drawing order, without the sheet's own.
    std::vector<AcDbObjectId> viewports() const;
    /// Null when no viewport of the sheet has the number.
    AcDbObjectId viewportNumbered(int number) const;
    /// The topmost one that is on and has the point inside; null for none.
    AcDbObjectId viewportAt(const AcGePoint3d& onSheet) const;
    /// The one that was drawn through last, else the newest that can be; null for none.
    AcDbObjectId usualViewport() const;

    /// Shows a tab with the view that it had; of a sheet shown for the first time all of it.
    void show(const Tab& tab);
    /// Goes into a viewport of the sheet. Why not, in Portuguese; empty when done.
    std::wstring enter(AcDbObjectId viewport);
    /// Back to the sheet.
    void leave();
    /// The screen shows another view: the viewport that is drawn through follows; when it is
    /// locked, the sheet does.
    void viewChanged();
    /// The viewport that is drawn through was changed otherwise: the screen follows it.
    void viewportChanged();
    /// A tab has another name.
    void tabsChanged();
    /// What undo took away is shown no more.
    void settle();
    /// The drawing goes: of the next one the model is shown.
    void reset();

    /// Why CTAB, TILEMODE or CVPORT cannot have a value; nothing to say for others.
    Result<void> check(const VariableInfo& info, const VariableValue& value) const;
    void variableChanged(const VariableInfo& info);

private:
    void placeChanged();
    void tellVariables() const;
    View viewThrough(const AcDbViewport& viewport) const;

    Editor& m_editor;
    AcDbObjectId m_tab;  ///< null: the model's
    AcDbObjectId m_lastSheet;
    AcDbObjectId m_viewport;
    AcDbObjectId m_lastViewport;
    View m_sheetView;                             ///< while a viewport is drawn through
    std::unordered_map<AcDbStub*, View> m_views;  ///< of tabs that are not shown
    bool m_following = false;
};

}  // namespace prancheta
