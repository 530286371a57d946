// SPDX-License-Identifier: MIT
// Recovery copies.
//
// A window that keeps a copy owns files of one name: `.lock` says that it lives, `.nome` holds the
// path of the drawing and, after a null, the stamp of its file, `.dxf` the drawing, `.comandos` the
// last commands, a line each. The lock is taken before the others are written.
#include "prancheta/desktop/shell/recovery.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QUuid>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "prancheta/base/file.h"
#include "prancheta/base/text.h"
#include "prancheta/database/database_core.h"
#include "prancheta/desktop/shell/drawing_files.h"
#include "prancheta/editor/command_stack.h"

namespace prancheta::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int kRest = 20'000;       // after the last change, ms
constexpr qint64 kQuickCopy = 200;  // ms
constexpr std::size_t kTrail = 20;  // commands
constexpr auto kOwnFiles = {".dxf", ".nome", ".comandos"};

fs::path withEnding(fs::path path, const char* ending) { return path.replace_extension(ending); }

/// The lock of a process that died is nobody's, however young; that of a living one never grows
/// old.
std::unique_ptr<QLockFile> lockOf(const fs::path& file) {
    auto lock = std::make_unique<QLockFile>(toQString(file));
    lock->setStaleLockTime(0);
    return lock;
}

std::string textOf(const FileStamp& stamp) {
    std::ostringstream text;
    text << stamp.seconds << ' ' << stamp.nanoseconds << ' ' << stamp.size << ' ' << stamp.device
         << ' ' << stamp.node;
    return text.str();
}

std::optional<FileStamp> stampIn(const std::string& text) {
    std::istringstream numbers(text);
    FileStamp stamp;
    numbers >> stamp.seconds >> stamp.nanoseconds >> stamp.size >> stamp.device >> stamp.node;
    return numbers ? std::optional(stamp) : std::nullopt;
}

void removeFiles(const fs::path& copy) {
    std::error_code ignored;  // what stays is offered again, which is the safe side
    for (const char* const ending : kOwnFiles) fs::remove(withEnding(copy, ending), ignored);
}

}  // namespace

void CommandTrail::commandWillStart(const ACHAR* name) {
    m_names.emplace_back(name);
    if (m_names.size() > kTrail) m_names.pop_front();
    m_added();
}

Recovery::Recovery(fs::path folder, QObject* parent)
    : QObject(parent),
      m_folder(std::move(folder)),
      m_id(QUuid::createUuid().toString(QUuid::WithoutBraces)),
      m_trail([this] { noteCommands(); }) {
    m_rest.setSingleShot(true);
    m_rest.setInterval(kRest);
    for (QTimer* const timer : {&m_timer, &m_rest})
        connect(timer, &QTimer::timeout, this, [this] {
            m_due = true;
            emit due();
        });
}

Recovery::~Recovery() {
    setEditor(nullptr);
    if (!m_left) drop();
}

fs::path Recovery::file(const char* ending) const {
    return m_folder / (m_id.toStdString() + ending);
}

void Recovery::setEditor(Editor* editor) {
    if (m_editor != nullptr) m_editor->programs().reactors().remove(&m_trail);
    m_editor = editor;
    if (m_editor != nullptr) m_editor->programs().reactors().add(&m_trail);
}

void Recovery::setMinutes(int minutes) {
    m_timer.stop();
    if (minutes > 0) m_timer.start(minutes * 60 * 1000);
    if (minutes <= 0) m_rest.stop();
}

Result<void> Recovery::prepare() {
    if (m_lock) return {};
    std::error_code error;
    fs::create_directories(m_folder, error);
    if (error)
        return Error{
            "a pasta das cópias de recuperação não pôde ser criada: " + errnoText(error.value()),
            m_folder.string(), 0, 0};
    auto lock = lockOf(file(".lock"));
    if (!lock->tryLock(0))
        return Error{
            "a cópia de recuperação não pôde ser reservada; confira as permissões da pasta",
            m_folder.string(), 0, 0};
    m_lock = std::move(lock);
    return {};
}

Result<void> Recovery::write() {
    m_due = false;
    if (auto ready = prepare(); !ready) return ready;
    AtomicFile name(file(".nome"));
    if (auto opened = name.open(); !opened) return opened;
    name.write(m_editor->file().name().string());
    if (const std::optional<FileStamp>& stamp = m_editor->file().stamp())
        name.write('\0' + textOf(*stamp));
    if (auto named = name.commit(); !named) return named;
    const std::uint64_t revision = m_editor->database().core().undo().revision();
    QElapsedTimer clock;
    clock.start();
    if (auto saved = m_editor->file().saveCopy(file(".dxf")); !saved) return saved;
    m_cost = clock.elapsed();
    m_written = revision;
    noteCommands();
    return {};
}

/// Beside the copy, at each command: one that ends the program is the last of them. A list that
/// was cut by that end is better than a wait before every command.
void Recovery::noteCommands() const {
    if (!m_lock) return;
    std::ofstream list(file(".comandos"), std::ios::trunc);
    for (const std::wstring& global : m_trail.names()) {
        const StackCommand* const command = m_editor->commands().find(TypedName(global));
        const std::wstring& name = command != nullptr ? command->local : global;
        list << QString::fromStdWString(name).toUpper().toStdString() << '\n';
    }
}

Result<void> Recovery::leave() {
    if (m_editor == nullptr || !m_editor->file().modified()) return {};
    Result<void> written = write();
    // An older copy is better than none.
    m_left = written || m_written;
    return written;
}

Result<void> Recovery::keepUp() {
    if (m_editor == nullptr) return {};
    if (!m_editor->file().modified()) {
        if (m_written) drop();
        return {};
    }
    const std::uint64_t revision = m_editor->database().core().undo().revision();
    const bool changed = std::exchange(m_seen, revision) != revision;
    if (changed && m_timer.isActive() && m_cost < kQuickCopy) m_rest.start();
    if (!m_due) return {};
    m_due = false;
    if (m_written == revision) return {};
    return write();
}

void Recovery::drop() {
    if (!m_lock) return;
    removeFiles(file(".dxf"));
    m_lock.reset();
    m_written.reset();
}

/// What windows left that died before their copy was whole, or while it was thrown away.
void Recovery::removeRemains() const {
    std::error_code ignored;
    std::vector<fs::path> remains;
    for (const auto& entry : fs::directory_iterator(m_folder, ignored)) {
        const fs::path ending = entry.path().extension();
        if (ending != ".lock" && ending != ".nome" && ending != ".comandos") continue;
        const fs::path copy = withEnding(entry.path(), ".dxf");
        if (copy != file(".dxf") && !fs::exists(copy, ignored)) remains.push_back(copy);
    }
    for (const fs::path& copy : remains) {
        auto claim = lockOf(withEnding(copy, ".lock"));
        // It may be a window that writes its first copy just now.
        if (claim->tryLock(0) && !fs::exists(copy, ignored)) removeFiles(copy);
    }
}

std::vector<LeftCopy> Recovery::leftCopies() const {
    removeRemains();
    std::vector<LeftCopy> out;
    std::error_code ignored;
    for (const auto& entry : fs::directory_iterator(m_folder, ignored)) {
        if (entry.path().extension() != ".dxf" || entry.path() == file(".dxf")) continue;
        auto claim = lockOf(withEnding(entry.path(), ".lock"));
        if (!claim->tryLock(0)) continue;
        LeftCopy left;
        left.copy = entry.path();
        if (auto name = readFile(withEnding(left.copy, ".nome"))) {
            const std::size_t end = std::min(name->find('\0'), name->size());
            left.drawing = name->substr(0, end);
            left.stamp = stampIn(name->substr(std::min(end + 1, name->size())));
        }
        std::ifstream commands(withEnding(left.copy, ".comandos"));
        for (std::string name; std::getline(commands, name);) left.commands.push_back(toWide(name));
        left.when = QFileInfo(toQString(left.copy)).lastModified();
        left.claim = std::move(claim);
        out.push_back(std::move(left));
    }
    std::sort(out.begin(), out.end(),
              [](const LeftCopy& a, const LeftCopy& b) { return a.when < b.when; });
    return out;
}

void Recovery::discard(LeftCopy& left) {
    removeFiles(left.copy);
    left.claim.reset();
}

}  // namespace prancheta::desktop
