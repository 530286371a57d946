// SPDX-License-Identifier: MIT
// A draughtsman who types from a list, and the drawing that results.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "dbdim.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/register.h"
#include "tests/reading.h"

namespace builtin {

using prancheta::InputRequest;
using prancheta::RawInput;
using tests::expectPoint;
using tests::Read;

class ScriptUi : public prancheta::UserInterface {
public:
    void print(std::wstring_view text) override { output += text; }
    void alert(std::wstring_view text) override { output += text; }
    void runDialog(prancheta::dcl::Dialog&) override { ADD_FAILURE() << "no dialog expected"; }
    void complain(std::wstring_view text, prancheta::Complaint) override {
        complaints.emplace_back(text);
    }
    bool attended() const override { return byHand; }
    RawInput ask(const InputRequest& request) override {
        prompts.push_back(request.prompt);
        last = request;
        if (inputs.empty()) return {};
        RawInput input = std::move(inputs.front());
        inputs.pop_front();
        return input;
    }

    std::deque<RawInput> inputs;
    std::wstring output;
    std::vector<std::wstring> prompts;
    std::vector<std::wstring> complaints;
    InputRequest last;
    bool byHand = true;
};

/// Each test has an editor with a new drawing.
class Builtin : public testing::Test {
protected:
    Builtin() {
        prancheta::registerEntityClasses();
        editor = std::make_unique<prancheta::Editor>(ui, prancheta::builtInCommands());
    }

    /// Types one line after the other; "" is Enter, "^C" is Esc. A command may be left waiting.
    void type(std::initializer_list<const wchar_t*> lines) {
        for (const wchar_t* line : lines) {
            RawInput input;
            input.kind =
                std::wstring_view(line) == L"^C" ? RawInput::Kind::Cancel : RawInput::Kind::Text;
            if (input.kind == RawInput::Kind::Text) input.text = line;
            ui.inputs.push_back(std::move(input));
        }
        while (!ui.inputs.empty()) editor->step();
    }
    void pick(double x, double y, std::vector<AcDbObjectId> entities = {}) {
        RawInput input;
        input.kind = RawInput::Kind::Pick;
        input.point = AcGePoint3d(x, y, 0);
        input.entities = std::move(entities);
        ui.inputs.push_back(std::move(input));
        editor->step();
    }

    std::vector<AcDbObjectId> entities() const { return editor->database().core().modelSpace(); }
    std::size_t count() const { return entities().size(); }
    AcDbObjectId last() const {
        return entities().empty() ? AcDbObjectId::kNull : entities().back();
    }
    /// A complaint is read on the command line, too.
    bool said(std::wstring_view text) const {
        const auto has = [text](const std::wstring& all) {
            return all.find(text) != std::wstring::npos;
        };
        return has(ui.output) || std::any_of(ui.complaints.begin(), ui.complaints.end(), has);
    }
    bool asked(std::wstring_view prompt) const {
        for (const std::wstring& each : ui.prompts)
            if (each.find(prompt) != std::wstring::npos) return true;
        return false;
    }
    std::wstring layerOf(AcDbObjectId id) const {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId(), AcDb::kForRead);
        const ACHAR* name = nullptr;
        return layer->getName(name) == Acad::eOk ? name : L"";
    }

    ScriptUi ui;
    std::unique_ptr<prancheta::Editor> editor;
};

inline void expectLine(AcDbObjectId id, double x1, double y1, double x2, double y2) {
    const Read<AcDbLine> line(id);
    if (line.object() == nullptr) return;
    expectPoint(line->startPoint(), x1, y1);
    expectPoint(line->endPoint(), x2, y2);
}

}  // namespace builtin
