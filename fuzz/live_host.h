// SPDX-License-Identifier: MIT
// A host with modules and an installation folder of its own, in a folder of its own.
#pragma once

#include <filesystem>
#include <memory>

#include "fuzz/input.h"
#include "prancheta/console/console_ui.h"
#include "prancheta/console/script.h"
#include "prancheta/editor/host.h"

namespace fuzz {

class LiveHost {
public:
    LiveHost() {
        namespace fs = std::filesystem;
        fs::copy(fs::path(HOUSE_BINARY_DIR) / "instalacao", m_scratch.path() / "instalacao",
                 fs::copy_options::recursive);
        m_work = m_scratch.path() / "desenhos";
        fs::create_directories(m_work);
        fs::current_path(m_work);
        (void)!std::freopen("/dev/null", "w", stdout);
        prancheta::HostOptions options;
        options.installation = m_scratch.path() / "instalacao";
        options.installationOverrides = true;
        options.programFolder = fs::path(HOUSE_BINARY_DIR) / "bin";
        m_host = std::make_unique<prancheta::Host>(m_ui, options);
        expect(m_host->start().ok(), "the modules cannot be loaded");
    }

    prancheta::Editor& editor() { return m_host->editor(); }
    /// Where the target writes; emptied by startAnew().
    const std::filesystem::path& folder() const { return m_work; }

    /// Runs the text as a script, to its end.
    void run(const std::string& text) {
        const MemoryFile file(text);
        auto script = prancheta::console::Script::open(file.path());
        expect(script.ok(), "the script cannot be read");
        m_script = std::move(*script);
        while (editor().step()) {
        }
    }
    void startAnew() {
        editor().runner().cancelWaiting();
        expect(editor().file().makeNew().ok(), "no new drawing");
        std::error_code error;
        for (const auto& entry : std::filesystem::directory_iterator(m_work))
            std::filesystem::remove_all(entry, error);
    }

private:
    Scratch m_scratch;
    std::filesystem::path m_work;
    prancheta::console::Script m_script = std::move(*prancheta::console::Script::open("-"));
    prancheta::console::ConsoleUi m_ui{m_script};
    std::unique_ptr<prancheta::Host> m_host;
};

}  // namespace fuzz
