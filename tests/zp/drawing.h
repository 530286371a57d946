// SPDX-License-Identifier: MIT
// A drawing with the companions loaded, and pieces in it.
#pragma once

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <deque>
#include <functional>
#include <map>
#include <numbers>

#include "adslib.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbpl.h"
#include "dbsymtb.h"
#include "perfis/entities/zpentidades.h"
#include "prancheta/database/database_core.h"
#include "prancheta/dcl/dialog.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/editor/modules.h"
#include "prancheta/entities/register.h"
#include "tests/reading.h"

namespace zp_tests {

inline constexpr double kPi = std::numbers::pi;

using prancheta::RawInput;
using tests::expectPoint;
using tests::Read;

/// Answers from a list; keeps what was said and asked.
class Typist : public prancheta::UserInterface {
public:
    void print(std::wstring_view text) override { printed += text; }
    void alert(std::wstring_view text) override { printed += text; }
    /// Touches tiles, "key=value" or a button's key, until the dialog closes.
    void runDialog(prancheta::dcl::Dialog& dialog) override {
        while (!dialog.finished()) {
            if (keys.empty()) {
                ADD_FAILURE() << "no dialog expected: " << dialog.name();
                (void)dialog.press("cancel");
                return;
            }
            const std::string key = std::move(keys.front());
            keys.pop_front();
            const std::size_t equals = key.find('=');
            const auto done = equals == std::string::npos
                                  ? dialog.press(key)
                                  : dialog.type(key.substr(0, equals), key.substr(equals + 1));
            EXPECT_TRUE(static_cast<bool>(done)) << key;
        }
    }
    /// A test that expects one looks for it among what was printed.
    void complain(std::wstring_view text, prancheta::Complaint) override {
        if (!mayComplain) ADD_FAILURE() << testing::PrintToString(std::wstring(text));
        printed += L"\n" + std::wstring(text) + L"\n";
    }
    bool mayComplain = false;
    RawInput ask(const prancheta::InputRequest& request) override {
        questions.push_back(request.prompt);
        if (answers.empty()) return {};
        RawInput answer = std::move(answers.front());
        answers.pop_front();
        return answer;
    }

    std::deque<RawInput> answers;
    std::deque<std::string> keys;
    std::wstring printed;
    std::vector<std::wstring> questions;
};

class Drawing : public testing::Test {
protected:
    Drawing() {
        ::setenv("ZPFORJA2010", (std::filesystem::path(HOUSE_BINARY_DIR) / "instalacao").c_str(),
                 1);
        prancheta::registerEntityClasses();
        editor = std::make_unique<prancheta::Editor>(ui, prancheta::builtInCommands());
        for (const char* name : {"ZpObjects18.arx", "ZP__MaterialList18.arx", "trelica18.arx"}) {
            const auto loaded =
                editor->modules().load(std::filesystem::path(HOUSE_BINARY_DIR) / "bin" / name);
            EXPECT_TRUE(static_cast<bool>(loaded)) << name;
        }
    }

    /// Types one line after the other; "" is Enter.
    void type(std::initializer_list<const wchar_t*> rows) {
        for (const wchar_t* row : rows) {
            RawInput input;
            input.kind = RawInput::Kind::Text;
            input.text = row;
            ui.answers.push_back(std::move(input));
        }
        while (!ui.answers.empty()) editor->step();
    }
    void pick(double x, double y, std::vector<AcDbObjectId> picked = {}) {
        RawInput input;
        input.kind = RawInput::Kind::Pick;
        input.point = AcGePoint3d(x, y, 0);
        input.entities = std::move(picked);
        ui.answers.push_back(std::move(input));
        editor->step();
    }
    std::vector<AcDbObjectId> entities() const { return editor->database().core().modelSpace(); }
    bool said(std::wstring_view text) const { return ui.printed.find(text) != std::wstring::npos; }
    bool asked(std::wstring_view text) const {
        for (const std::wstring& p : ui.questions)
            if (p.find(text) != std::wstring::npos) return true;
        return false;
    }

    Typist ui;
    std::unique_ptr<prancheta::Editor> editor;

    AcDbObjectId put(AcDbEntity* entity) {
        AcDbObjectId id;
        EXPECT_EQ(append(entity, id), RTNORM);
        entity->close();
        return id;
    }
    /// Plain U 200x75x3 of length L, axis from (x, y) to the right.
    AcDbObjectId u(double x, double y, double L,
                   ZpObject::ZpVistas vista = ZpObject::kVistaDireita) {
        return put(new ZpUDobrado(AcGePoint3d(x, y, 0), vista, 200, 75, 75, 3, 3, 0.5 * kPi,
                                  0.5 * kPi, L, 0, 0, 0));
    }
    AcDbObjectId cota(double x1, double y1, double x2, double y2, double lx, double ly) {
        return put(new AcDbAlignedDimension(AcGePoint3d(x1, y1, 0), AcGePoint3d(x2, y2, 0),
                                            AcGePoint3d(lx, ly, 0)));
    }
    AcDbObjectId chapa(double x, double y, double d1, double d3) {
        return put(
            new ZpChapa(AcGePoint3d(x, y, 0), ZpObject::kVistaEsquerda, d1, 8, d3, 0, -0.5 * kPi));
    }
    template <class F>
    void change(AcDbObjectId id, F f) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForWrite);
        ASSERT_EQ(peca.openStatus(), Acad::eOk);
        f(*peca.object());
    }
    AcGePoint3d face(AcDbObjectId id, int index) {
        AcGePoint3d f[4];
        const Read<ZpObject> peca(id);
        peca->GetLimitPointsOfFaces(f[0], f[1], f[2], f[3]);
        return f[index];
    }
    /// Measured points and line of a dimension.
    void expectCota(AcDbObjectId id, double x1, double y1, double x2, double y2, double lx,
                    double ly) {
        const Read<AcDbAlignedDimension> c(id);
        if (c.object() == nullptr) return;
        expectNear(c->xLine1Point(), x1, y1);
        expectNear(c->xLine2Point(), x2, y2);
        expectNear(c->dimLinePoint(), lx, ly);
    }
    static void expectNear(const AcGePoint3d& p, double x, double y) {
        EXPECT_NEAR(p.x, x, 1e-8);
        EXPECT_NEAR(p.y, y, 1e-8);
    }
    /// How many entities of this class are in the drawing.
    template <class T>
    std::size_t countOf() const {
        std::size_t n = 0;
        for (const AcDbObjectId& id : entities())
            n += id.objectClass()->isDerivedFrom(T::desc()) ? 1u : 0u;
        return n;
    }
};

/// The same with the drawing commands and their dialogs.
class DrawingWithCommands : public Drawing {
protected:
    DrawingWithCommands() {
        const std::filesystem::path folder = HOUSE_BINARY_DIR;
        EXPECT_TRUE(static_cast<bool>(editor->modules().load(folder / "bin/ZpPerfis18.arx")));
        prancheta::dcl::setDialogRunner(
            [this](prancheta::dcl::Dialog& dialog) { ui.runDialog(dialog); });
    }
    ~DrawingWithCommands() override { prancheta::dcl::setDialogRunner({}); }
    using Keys = std::initializer_list<const char*>;
    /// Draws a piece along X: the first one that is new.
    AcDbObjectId draw(const wchar_t* command, Keys keys, const wchar_t* point = L"0,0") {
        const std::size_t before = entities().size();
        ui.keys.assign(keys.begin(), keys.end());
        type({command, point, L"0"});
        EXPECT_TRUE(ui.keys.empty()) << testing::PrintToString(ui.printed);
        const std::vector<AcDbObjectId> all = entities();
        for (std::size_t i = before; i < all.size(); ++i)
            if (all[i].objectClass()->isDerivedFrom(ZpObject::desc())) return all[i];
        return {};
    }
};

}  // namespace zp_tests
