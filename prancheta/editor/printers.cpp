// SPDX-License-Identifier: MIT
// Printing by the commands of CUPS, which take PDF.
#include "prancheta/editor/printers.h"

#include <atomic>

#include "prancheta/base/process.h"
#include "prancheta/base/text.h"
#include "prancheta/editor/editor.h"

namespace prancheta {
namespace {

/// "A3", or its size for a sheet that no standard names.
std::string mediaOf(const Paper& paper) {
    for (const Paper& known : papers())
        if (known.name.find(L'x') == known.name.npos && known.width == paper.width &&
            known.height == paper.height)
            return toUtf8(known.name);
    return "Custom." + numberText(paper.width) + "x" + numberText(paper.height) + "mm";
}

/// A file for as long as the print system needs to take it over.
class PassingFile {
public:
    PassingFile() : m_path(freeName(this)) {}
    ~PassingFile() {
        std::error_code error;
        std::filesystem::remove(m_path, error);
    }
    PassingFile(const PassingFile&) = delete;
    PassingFile& operator=(const PassingFile&) = delete;
    const std::filesystem::path& path() const { return m_path; }

private:
    static std::filesystem::path freeName(const PassingFile* file) {
        static std::atomic<int> count = 0;
        std::error_code error;
        return std::filesystem::temp_directory_path(error) /
               ("prancheta-" + std::to_string(reinterpret_cast<std::uintptr_t>(file)) + "-" +
                std::to_string(++count) + ".pdf");
    }
    std::filesystem::path m_path;
};

}  // namespace

std::vector<std::wstring> printers() {
    std::vector<std::wstring> names;
    const Result<std::string> list = outputOf({"lpstat", "-e"});
    if (!list) return names;
    std::string_view text = *list;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view name = trim(text.substr(0, end));
        if (!name.empty()) names.push_back(toWide(name));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return names;
}

Result<std::wstring> print(Editor& editor, std::span<const PlotSettings> sheets,
                           const std::wstring& printer) {
    const Result<Plotter*> machine = plotter();
    if (!machine) return machine.error();
    if (sheets.empty()) return Error{"não há folha a plotar"};
    const PassingFile file;
    if (const Result<void> plotted = (*machine)->plot(editor, sheets, PlotFormat::Pdf, file.path());
        !plotted)
        return plotted.error();
    const std::filesystem::path name = editor.file().name().filename();
    const Result<std::string> sent =
        outputOf({"lp", "-d", toUtf8(printer), "-t", name.empty() ? "Desenho" : name.string(), "-o",
                  "media=" + mediaOf(sheets.front().paper), "-o", "print-scaling=none",
                  file.path().string()});
    if (sent) return toWide(trim(*sent));
    return sent.error().text.empty() ? Error{toUtf8(kNoPrinter)} : sent.error();
}

}  // namespace prancheta
