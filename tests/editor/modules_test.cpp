// SPDX-License-Identifier: MIT
// Loading and unloading of modules by the host as it ships.
#include "prancheta/editor/modules.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <fstream>

#include "prancheta/database/database_core.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/host.h"

using namespace prancheta;

namespace {

class FakeUi : public UserInterface {
public:
    void print(std::wstring_view text) override { output += text; }
    void alert(std::wstring_view) override {}
    void runDialog(dcl::Dialog&) override {}
    void complain(std::wstring_view text, Complaint) override { complaints.emplace_back(text); }
    RawInput ask(const InputRequest&) override {
        if (lines.empty()) return {};
        RawInput input;
        input.kind = RawInput::Kind::Text;
        input.text = lines.front();
        lines.pop_front();
        return input;
    }
    std::deque<std::wstring> lines;
    std::wstring output;
    std::vector<std::wstring> complaints;
};

class ModulesTest : public testing::Test {
protected:
    ModulesTest() {
        HostOptions options;
        options.programFolder = std::filesystem::path(HOUSE_BINARY_DIR) / "bin";
        options.loadDefaultModules = false;
        host = std::make_unique<Host>(ui, options);
    }
    ModuleTable& modules() { return host->editor().modules(); }
    bool known(const wchar_t* command) const {
        return acedRegCmds->lookupGlobalCmd(command) != nullptr;
    }
    void type(std::initializer_list<const wchar_t*> lines) {
        for (const wchar_t* line : lines) ui.lines.emplace_back(line);
        while (!ui.lines.empty()) host->editor().step();
    }
    std::string refusal(std::wstring_view name) {
        const Result<void> result = modules().unload(name);
        return result ? "" : result.error().text;
    }

    FakeUi ui;
    std::unique_ptr<Host> host;
};

TEST_F(ModulesTest, whatAModuleIsLinkedToComesFirst) {
    const Result<void> loaded = modules().load("sonda.arx");
    ASSERT_TRUE(loaded) << loaded.error().message();
    EXPECT_EQ(ui.output, L"[base 1][base 3][sonda 1][sonda 3]");
    EXPECT_EQ(modules().find(std::wstring_view(L"SONDA"))->apiVersion, 18);
    EXPECT_TRUE(acrxAppIsLoaded(L"sonda_base.ARX"));
    EXPECT_TRUE(modules().load("SONDA"));
    EXPECT_EQ(modules().all().size(), 2u);
    EXPECT_TRUE(known(L"sdraw"));

    EXPECT_NE(refusal(L"sonda_base").find("sonda.arx"), std::string::npos);
    ui.output.clear();
    EXPECT_EQ(refusal(L"sonda.arx"), "");
    EXPECT_EQ(ui.output, L"[sonda 4][sonda 2]");
    EXPECT_FALSE(known(L"sdraw"));
    EXPECT_EQ(refusal(L"sonda_base"), "");
    EXPECT_FALSE(acrxAppIsLoaded(L"sonda_base.arx"));
    // Really out of memory, so that a new build of the file can be loaded.
    const std::string file = (std::filesystem::path(HOUSE_BINARY_DIR) / "bin/sonda.arx").string();
    EXPECT_EQ(dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD), nullptr);
    EXPECT_FALSE(refusal(L"sonda").empty());
    EXPECT_TRUE(modules().load("sonda"));
    EXPECT_TRUE(known(L"sdraw"));
}

TEST_F(ModulesTest, staysWhileItIsNeeded) {
    ASSERT_TRUE(modules().load("sonda"));
    type({L"sself"});
    EXPECT_NE(ui.output.find(L"ficou"), std::wstring::npos);
    EXPECT_TRUE(known(L"sself"));

    type({L"sdesenha"});
    EXPECT_EQ(host->editor().database().core().modelSpace().size(), 1u);
    EXPECT_EQ(refusal(L"sonda"), "");  // the class is the other module's
    EXPECT_NE(refusal(L"sonda_base").find("ProbeLine"), std::string::npos);
    // What undo took out may come back.
    host->editor().database().core().undo().undo();
    EXPECT_EQ(host->editor().database().core().modelSpace().size(), 0u);
    EXPECT_NE(refusal(L"sonda_base"), "");
    ASSERT_TRUE(host->editor().newDocument());
    EXPECT_EQ(refusal(L"sonda_base"), "");
}

TEST_F(ModulesTest, lockedModulesStay) {
    ASSERT_TRUE(modules().load("sonda"));
    type({L"slock"});
    EXPECT_NE(refusal(L"sonda"), "");
    type({L"sunlock"});
    EXPECT_EQ(refusal(L"sonda"), "");
    EXPECT_TRUE(ui.complaints.empty());
}

TEST_F(ModulesTest, refusalAndRubbish) {
    setenv("SONDA_RECUSA", "1", 1);
    EXPECT_FALSE(modules().load("sonda"));
    unsetenv("SONDA_RECUSA");
    EXPECT_EQ(modules().find(std::wstring_view(L"sonda")), nullptr);
    EXPECT_FALSE(known(L"sdraw"));
    const auto reason = [this](const char* file) { return modules().load(file).error().text; };
    EXPECT_NE(reason("nao_existe.arx").find("não existe"), std::string::npos);
    EXPECT_NE(reason("libprancheta.so").find("falta a função"), std::string::npos);
    const std::filesystem::path text = std::filesystem::path(testing::TempDir()) / "texto.arx";
    std::ofstream(text) << "isto é um texto";
    EXPECT_NE(reason(text.c_str()).find("não é um módulo deste sistema"), std::string::npos);
    std::filesystem::remove(text);
    EXPECT_TRUE(modules().load("sonda"));
}

TEST_F(ModulesTest, whoRefusesADrawingIsUnloadedUnlessItIsInUse) {
    const auto refusing = [this](AcRx::AppMsgCode message) {
        ui.output.clear();
        ui.complaints.clear();
        setenv("SONDA_RECUSA", std::to_string(message).c_str(), 1);
        modules().broadcast(message);
        unsetenv("SONDA_RECUSA");
        return modules().find(std::wstring_view(L"sonda")) != nullptr;
    };
    for (const AcRx::AppMsgCode message :
         {AcRx::kLoadDwgMsg, AcRx::kUnloadDwgMsg, AcRx::kSaveMsg}) {
        ASSERT_TRUE(modules().load("sonda"));
        EXPECT_FALSE(refusing(message)) << message;
        EXPECT_TRUE(ui.output.ends_with(L"[sonda 2]")) << message;
        EXPECT_FALSE(known(L"sdraw"));
        EXPECT_EQ(ui.complaints.size(), 1u);
    }
    ASSERT_TRUE(modules().load("sonda"));
    EXPECT_TRUE(refusing(AcRx::kPreQuitMsg));
    EXPECT_TRUE(ui.complaints.empty());
    // The other module needs this one.
    setenv("SONDA_BASE_RECUSA", std::to_string(AcRx::kSaveMsg).c_str(), 1);
    modules().broadcast(AcRx::kSaveMsg);
    unsetenv("SONDA_BASE_RECUSA");
    EXPECT_TRUE(acrxAppIsLoaded(L"sonda_base"));
    ASSERT_EQ(ui.complaints.size(), 1u);
    EXPECT_NE(ui.complaints[0].find(L"depende dele"), std::wstring::npos);
}

TEST_F(ModulesTest, newDrawingsAndTheEndAreTold) {
    ASSERT_TRUE(modules().load("sonda_base"));
    ui.output.clear();
    ASSERT_TRUE(host->editor().newDocument());
    EXPECT_EQ(ui.output, L"[base 4][base 3]");
    ui.output.clear();
    host.reset();
    EXPECT_EQ(ui.output, L"[base 13][base 4][base 2]");
}

}  // namespace
