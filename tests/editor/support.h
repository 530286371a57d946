// SPDX-License-Identifier: MIT
// A front end that types from a list, and a few commands made for the tests.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

#include "acedads.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "prancheta/base/event.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/select.h"
#include "prancheta/entities/register.h"
#include "tests/reading.h"

namespace editortest {

using namespace prancheta;
using tests::expectPoint;

inline RawInput typed(std::wstring text) {
    RawInput input;
    input.kind = RawInput::Kind::Text;
    input.text = std::move(text);
    return input;
}

inline RawInput at(RawInput::Kind kind, double x, double y) {
    RawInput input;
    input.kind = kind;
    input.point = AcGePoint3d(x, y, 0.0);
    return input;
}

class FakeUi : public UserInterface {
public:
    void print(std::wstring_view text) override { output += text; }
    void alert(std::wstring_view text) override { alerts.emplace_back(text); }
    void runDialog(dcl::Dialog&) override { ADD_FAILURE() << "no dialog expected"; }
    void complain(std::wstring_view text, Complaint) override { complaints.emplace_back(text); }
    RawInput ask(const InputRequest& request) override {
        requests.push_back(request);
        if (inputs.empty()) return {};
        RawInput input = std::move(inputs.front());
        inputs.pop_front();
        return input;
    }

    std::deque<RawInput> inputs;
    std::wstring output;
    std::vector<std::wstring> alerts;
    std::vector<std::wstring> complaints;
    std::vector<InputRequest> requests;
};

inline AcDbObjectId addLine(AcDbDatabase& database, double x1, double y1, double x2, double y2) {
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    auto* line = new AcDbLine(AcGePoint3d(x1, y1, 0.0), AcGePoint3d(x2, y2, 0.0));
    line->setDatabaseDefaults(&database);
    AcDbObjectId id;
    EXPECT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    line->close();
    return id;
}

/// What the test command TURN did last: its selection and its angle.
struct Turned {
    std::size_t count = 0;
    AcGePoint3d base;
    double angle = 0.0;
    int runs = 0;
};
inline Turned& turned() {
    static Turned last;
    return last;
}

inline std::vector<Keyword> words(const wchar_t* local, const wchar_t* global) {
    return {{local, global}};
}

inline InputAwaiter asked(CommandContext context, InputKind kind, const wchar_t* prompt,
                          const std::optional<AcGePoint3d>& base = {}, Keywords keywords = {}) {
    InputRequest request;
    request.kind = kind;
    request.prompt = prompt;
    request.base = base;
    request.keywords = std::move(keywords);
    request.blanksAllowed = kind == InputKind::Text;
    return context.ask(std::move(request));
}

/// Selection, base point, angle; ends by drawing a line of length 1 in that direction.
inline CommandTask turn(CommandContext context) {
    context.print(L"Girando.\n");
    const Selection selection = co_await selectObjects(context);
    if (selection.status != RTNORM) co_return CommandEnd::Cancelled;
    const InputValue base =
        co_await asked(context, InputKind::Point, L"\nEspecifique o ponto base: ");
    if (base.status != RTNORM) co_return CommandEnd::Cancelled;
    const InputValue angle = co_await asked(context, InputKind::Angle, L"\nEspecifique o ângulo: ",
                                            base.point, words(L"Copiar", L"Copy"));
    if (angle.status != RTNORM) co_return CommandEnd::Cancelled;
    Turned& last = turned();
    last = {selection.ids.size(), base.point, angle.number, last.runs + 1};
    addLine(context.database(), base.point.x, base.point.y, base.point.x + 1.0, base.point.y);
    co_return CommandEnd::Done;
}

/// Draws a line from the origin to each point until Enter; `falha` makes it fail.
inline CommandTask rays(CommandContext context) {
    for (;;) {
        const InputValue point =
            co_await asked(context, InputKind::Point, L"\nPonto: ", {}, words(L"Falha", L"Fail"));
        if (point.status == RTKWORD) co_return CommandEnd::Failed;
        if (point.status == RTCAN) co_return CommandEnd::Cancelled;
        if (point.status != RTNORM) co_return CommandEnd::Done;
        addLine(context.database(), 0.0, 0.0, point.point.x, point.point.y);
    }
}

inline CommandTask look(CommandContext context) {
    const InputValue answer = co_await asked(context, InputKind::Text, L"\nOnde: ");
    context.print(L"Olhando " + answer.text + L".\n");
    co_return CommandEnd::Done;
}

inline constexpr BuiltInCommand kCommands[] = {
    {L"TURN", L"GIRAR", ACRX_CMD_USEPICKSET, turn},
    {L"RAYS", L"RAIOS", ACRX_CMD_MODAL, rays},
    {L"LOOK", L"OLHAR", ACRX_CMD_TRANSPARENT | ACRX_CMD_NO_UNDO_MARKER, look},
};

class EditorTest : public testing::Test {
protected:
    EditorTest() {
        registerEntityClasses();
        editor = std::make_unique<Editor>(ui, kCommands);
        turned() = {};
        setEventSink([this](const Event& event) { events.push_back(event); });
    }
    ~EditorTest() override { setEventSink({}); }

    /// Types one line after the other at the main loop; "^C" is Esc. A command may be left waiting.
    void type(std::initializer_list<const wchar_t*> lines) {
        for (const std::wstring_view line : lines) {
            ui.inputs.push_back(line == L"^C" ? at(RawInput::Kind::Cancel, 0, 0)
                                              : typed(std::wstring(line)));
        }
        while (!ui.inputs.empty()) editor->step();
    }
    /// Registers a module's command that runs the function.
    void registerCommand(const wchar_t* name, AcRxFunctionPtr function,
                         Adesk::Int32 flags = ACRX_CMD_TRANSPARENT) {
        ASSERT_EQ(acedRegCmds->addCommand(L"TESTE", name, name, flags, function), Acad::eOk);
    }
    std::size_t entityCount() const { return editor->database().core().modelSpace().size(); }
    AcDbObjectId line(double x1, double y1, double x2, double y2) {
        return addLine(editor->database(), x1, y1, x2, y2);
    }
    std::wstring lastPrompt() const {
        return ui.requests.empty() ? L"" : ui.requests.back().prompt;
    }
    /// Kinds of the recorded events that are asked for, in their order.
    std::string kinds(std::initializer_list<std::string_view> wanted) const {
        std::string all;
        for (const Event& event : events)
            for (const std::string_view kind : wanted)
                if (kind == event.kind) all += std::string(all.empty() ? "" : " ") + event.kind;
        return all;
    }
    static std::string textOf(const Event& event, std::string_view field) {
        for (const auto& [name, value] : event.fields)
            if (field == name && std::holds_alternative<std::string>(value.data))
                return std::get<std::string>(value.data);
        return {};
    }

    FakeUi ui;
    std::vector<Event> events;
    std::unique_ptr<Editor> editor;
};

}  // namespace editortest
