// SPDX-License-Identifier: MIT
// Any bytes as a script for the console, with the modules loaded.
#include <algorithm>
#include <cctype>
#include <fstream>

#include "fuzz/input.h"
#include "prancheta/console/console_ui.h"
#include "prancheta/console/script.h"
#include "prancheta/editor/host.h"

using namespace prancheta;
namespace fs = std::filesystem;

namespace {

/// A host with modules and an installation folder of its own, in a folder of its own.
class Bench {
public:
    Bench() {
        fs::copy(fs::path(HOUSE_BINARY_DIR) / "instalacao", m_scratch.path() / "instalacao",
                 fs::copy_options::recursive);
        m_work = m_scratch.path() / "desenhos";
        fs::create_directories(m_work);
        fs::current_path(m_work);
        (void)!std::freopen("/dev/null", "w", stdout);
        HostOptions options;
        options.installation = m_scratch.path() / "instalacao";
        options.installationOverrides = true;
        options.programFolder = fs::path(HOUSE_BINARY_DIR) / "bin";
        m_host = std::make_unique<Host>(m_ui, options);
        fuzz::expect(m_host->start().ok(), "the modules cannot be loaded");
    }

    void run(const std::string& text) {
        const fuzz::MemoryFile file(text);
        auto script = console::Script::open(file.path());
        fuzz::expect(script.ok(), "the script cannot be read");
        m_script = std::move(*script);
        Editor& editor = m_host->editor();
        while (editor.step()) {
        }
        editor.runner().cancelWaiting();
        fuzz::expect(editor.file().makeNew().ok(), "no new drawing after a script");
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(m_work)) fs::remove_all(entry, error);
    }

private:
    fuzz::Scratch m_scratch;
    fs::path m_work;
    console::Script m_script = std::move(*console::Script::open("-"));
    console::ConsoleUi m_ui{m_script};
    std::unique_ptr<Host> m_host;
};

/// Lines that could leave the folder (paths, modules) are no answers here.
std::string harmless(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        std::string upper = line;
        for (char& c : upper) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (line.find_first_of("/\\~") == std::string::npos &&
            upper.find("ARX") == std::string::npos)
            out += line + "\n";
    }
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Bench bench;
    bench.run(harmless(fuzz::textOf(data, size)));
    return 0;
}
