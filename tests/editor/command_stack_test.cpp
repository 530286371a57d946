// SPDX-License-Identifier: MIT
// Registration and look-up of commands.
#include "prancheta/editor/command_stack.h"

#include <memory>

#include "support.h"

using namespace prancheta;

namespace {

void nothing() {}
void other() {}

class StackTest : public editortest::EditorTest {
protected:
    Acad::ErrorStatus add(const wchar_t* group, const wchar_t* global, const wchar_t* local,
                          AcRxFunctionPtr f = nothing) {
        return acedRegCmds->addCommand(group, global, local, ACRX_CMD_TRANSPARENT, f);
    }
    std::wstring found(std::wstring_view typed) const {
        const StackCommand* command = editor->commands().find(TypedName(typed));
        return command != nullptr ? command->group + L":" + command->global : L"";
    }
};

TEST_F(StackTest, namesAreUniqueInAGroupOnly) {
    ASSERT_NE(acedRegCmds, nullptr);
    EXPECT_EQ(add(L"ZP", L"pudobrado", L"perfilu"), Acad::eOk);
    EXPECT_EQ(add(L"zp", L"PUDOBRADO", L"outro"), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"ZP", L"outro", L"PerfilU"), Acad::eDuplicateKey);
    EXPECT_EQ(add(L"ZQ", L"pudobrado", L"perfilu", other), Acad::eOk);
    EXPECT_EQ(add(L"ZP", L"", L"x"), Acad::eInvalidInput);
    EXPECT_EQ(found(L"PERFILU"), L"ZP:pudobrado");
    EXPECT_EQ(acedRegCmds->lookupGlobalCmd(L"PuDobrado"), acedRegCmds->lookupLocalCmd(L"perfilu"));
    EXPECT_EQ(acedRegCmds->removeGroup(L"ZP"), Acad::eOk);
    EXPECT_EQ(found(L"perfilu"), L"ZQ:pudobrado");
    EXPECT_EQ(acedRegCmds->removeGroup(L"ZP"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->removeCmd(L"ZQ", L"nada"), Acad::eKeyNotFound);
    EXPECT_EQ(acedRegCmds->removeCmd(L"ZQ", L"PUDOBRADO"), Acad::eOk);
    EXPECT_EQ(found(L"perfilu"), L"");
}

TEST_F(StackTest, marksBeforeTheName) {
    // A module's command of the same name stands before the built-in one.
    ASSERT_EQ(add(L"ZP", L"TURN", L"TURN"), Acad::eOk);
    ASSERT_EQ(add(L"ZP", L"xis", L"ípsilon"), Acad::eOk);
    EXPECT_EQ(found(L"girar"), L"PRANCHETA:TURN");
    EXPECT_EQ(found(L"turn"), L"ZP:TURN");
    EXPECT_EQ(found(L"_turn"), L"ZP:TURN");
    EXPECT_EQ(found(L"_.turn"), L"PRANCHETA:TURN");
    EXPECT_EQ(found(L"._turn"), L"PRANCHETA:TURN");
    EXPECT_EQ(found(L".girar"), L"PRANCHETA:TURN");
    EXPECT_EQ(found(L"_girar"), L"");
    EXPECT_EQ(found(L".ípsilon"), L"ZP:xis");
    EXPECT_EQ(found(L"_.xis"), L"ZP:xis");
    EXPECT_EQ(found(L"'_ÍPSILON"), L"");
    EXPECT_EQ(found(L"ÍPSILON"), L"ZP:xis");
    EXPECT_EQ(TypedName(L"_-layer").name, L"-layer");
    EXPECT_EQ(TypedName(L"-_layer").name, L"-layer");
    EXPECT_TRUE(TypedName(L"'zoom").transparent);
}

TEST_F(StackTest, iteratorVisitsGroupsInSearchOrder) {
    ASSERT_EQ(add(L"B", L"b1", L"b1"), Acad::eOk);
    ASSERT_EQ(add(L"A", L"a1", L"a1"), Acad::eOk);
    ASSERT_EQ(add(L"B", L"b2", L"b2"), Acad::eOk);
    std::wstring visited;
    const std::unique_ptr<AcEdCommandIterator> iterator(acedRegCmds->iterator());
    for (; !iterator->done(); iterator->next())
        visited += std::wstring(iterator->commandGroup()) + L"/" +
                   iterator->command()->globalName() + L" ";
    EXPECT_EQ(visited, L"B/b1 B/b2 A/a1 PRANCHETA/TURN PRANCHETA/RAYS PRANCHETA/LOOK ");
}

}  // namespace
