// SPDX-License-Identifier: MIT
// Loading and unloading of modules by the host as it ships.
#include "prancheta/editor/modules.h"

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <deque>
#include <fstream>

#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/editor/command_stack.h"
#include "prancheta/editor/host.h"

using namespace prancheta;
namespace fs = std::filesystem;

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
    bool mayLoad(const std::filesystem::path&) override {
        ++questions;
        return allows;
    }
    std::deque<std::wstring> lines;
    std::wstring output;
    std::vector<std::wstring> complaints;
    int questions = 0;
    bool allows = false;
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

/// A folder with a copy of a module, and scripts that want it.
class ScriptedModules : public ModulesTest {
protected:
    ScriptedModules() {
        std::string name = (fs::temp_directory_path() / "prancheta-modulos-XXXXXX").string();
        folder = ::mkdtemp(name.data());
        fs::create_directory(folder / "dentro");
        fs::copy_file(bin / "sonda_base.arx", folder / "dentro/estranho.arx");
        fs::create_symlink(folder / "dentro/estranho.arx", folder / "elo.arx");
    }
    ~ScriptedModules() override { fs::remove_all(folder); }

    /// Whether a script gets the module; it is taken out again.
    bool scriptLoads(const fs::path& module) {
        std::ofstream(folder / "a.scr") << "_arx _l " << module.string() << "\n_point 0,0\n";
        const std::wstring script = (folder / "a.scr").wstring();
        type({L"_script", script.c_str()});
        while (host->editor().typing().inScript() && host->editor().step()) {
        }
        const std::wstring name = module.filename().wstring();
        const bool loaded = acrxAppIsLoaded(name.c_str());
        if (loaded) {
            EXPECT_EQ(refusal(name), "");
        }
        return loaded;
    }
    void trustFolders(const std::string& folders) {
        ASSERT_TRUE(host->editor().variables().set(L"TRUSTEDPATHS", toWide(folders)));
    }

    const fs::path bin = fs::path(HOUSE_BINARY_DIR) / "bin";
    fs::path folder;
};

TEST_F(ScriptedModules, aScriptGetsOnlyWhatIsTrusted) {
    const fs::path strange = folder / "dentro/estranho.arx";
    EXPECT_FALSE(scriptLoads(strange));
    EXPECT_EQ(ui.questions, 1);
    ASSERT_EQ(ui.complaints.size(), 1u) << "and the rest of the script is kept";
    EXPECT_NE(ui.complaints[0].find(L"recusado"), std::wstring::npos);
    EXPECT_NE(ui.complaints[0].find(L"estranho.arx"), std::wstring::npos);
    EXPECT_TRUE(scriptLoads("sonda_base")) << "the program's own folder";
    EXPECT_EQ(ui.questions, 1) << "is not asked about";
    struct Case {
        std::string folders;
        bool direct;
        bool byLink;
    };
    const std::string here = folder.string();
    for (const Case& each : {Case{here, false, false}, Case{"/tmp;" + here + "/dentro", true, true},
                             Case{here + "/...", true, true}, Case{here + "/den", false, false},
                             Case{".;;..;...", false, false}, Case{"/...", true, true}}) {
        trustFolders(each.folders);
        EXPECT_EQ(scriptLoads(strange), each.direct) << each.folders;
        // The link lends its folder's name to nothing.
        EXPECT_EQ(scriptLoads(folder / "elo.arx"), each.byLink) << each.folders;
    }
    trustFolders("");
    ui.allows = true;
    EXPECT_TRUE(scriptLoads(strange)) << "the user said so";
    ui.allows = false;
    modules().trust(strange);
    EXPECT_TRUE(scriptLoads(strange)) << "the user named it at the start";
    modules().barOthers();
    EXPECT_FALSE(scriptLoads(strange));
    EXPECT_FALSE(scriptLoads("sonda_base")) << "not one of the default modules";
    EXPECT_TRUE(scriptLoads("ZpGBarraApp18.arx"));
    const std::wstring name = strange.wstring();
    type({L"_arx", L"_l", name.c_str()});
    EXPECT_FALSE(acrxAppIsLoaded(L"estranho.arx")) << "whoever asks";
}

TEST_F(ScriptedModules, aScriptCannotNameTrustedFolders) {
    std::ofstream(folder / "a.scr") << "_trustedpaths /...\n";
    const std::wstring script = (folder / "a.scr").wstring();
    type({L"_script", script.c_str()});
    while (host->editor().typing().inScript() && host->editor().step()) {
    }
    EXPECT_EQ(host->editor().variables().text(L"TRUSTEDPATHS"), L"");
    EXPECT_EQ(ui.complaints.size(), 1u);
    // By hand it can be done, and a module needs no trust.
    const std::wstring strange = (folder / "dentro/estranho.arx").wstring();
    type({L"^C", L"_trustedpaths", L"/tmp", L"_arx", L"_l", strange.c_str()});
    EXPECT_EQ(host->editor().variables().text(L"TRUSTEDPATHS"), L"/tmp");
    EXPECT_TRUE(acrxAppIsLoaded(L"estranho.arx"));
    EXPECT_EQ(ui.questions, 0);
}

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
    ASSERT_TRUE(host->editor().file().makeNew());
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
    ASSERT_TRUE(host->editor().file().makeNew());
    EXPECT_EQ(ui.output, L"[base 4][base 3]");
    ui.output.clear();
    host.reset();
    EXPECT_EQ(ui.output, L"[base 13][base 4][base 2]");
}

}  // namespace
