// SPDX-License-Identifier: MIT
// Atomic replacement and look-up of names without regard to case.
#include "prancheta/base/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <fstream>
#include <thread>

using namespace prancheta;
namespace fs = std::filesystem;

namespace {

class FileTest : public testing::Test {
protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "prancheta-file-XXXXXX").string();
        folder = ::mkdtemp(name.data());
    }
    void TearDown() override { fs::remove_all(folder); }

    void put(const fs::path& name, std::string_view text) {
        fs::create_directories((folder / name).parent_path());
        std::ofstream(folder / name, std::ios::binary) << text;
    }
    std::size_t entries() const {
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    bool replaced(const fs::path& name, std::string_view text, const fs::path& backup = {}) const {
        AtomicFile file(folder / name);
        if (!backup.empty()) file.keepFormer(folder / backup);
        if (!file.open()) return false;
        file.write(text);
        return file.commit().ok();
    }
    struct stat statusOf(const fs::path& name) const {
        struct stat info {};
        EXPECT_EQ(::stat((folder / name).c_str(), &info), 0) << name;
        return info;
    }

    fs::path folder;
};

/// While it lives the process may do no more than a stranger, whoever runs the test.
class Stranger {
public:
    Stranger() {
        if (!m_root) return;
        EXPECT_EQ(::setegid(kNobody) + ::seteuid(kNobody), 0);
    }
    ~Stranger() {
        if (!m_root) return;
        EXPECT_EQ(::seteuid(0) + ::setegid(0), 0);
    }
    Stranger(const Stranger&) = delete;
    Stranger& operator=(const Stranger&) = delete;

private:
    static constexpr unsigned kNobody = 65534;
    const bool m_root = ::geteuid() == 0;
};

}  // namespace

TEST_F(FileTest, CommitReplacesAndKeepsTheMode) {
    put("a.lst", "old");
    ::chmod((folder / "a.lst").c_str(), 0640);
    AtomicFile file(folder / "a.lst");
    ASSERT_TRUE(file.open());
    const std::string big(3 << 20, 'x');
    file.write(big);
    file.write("end");
    EXPECT_EQ(*readFile(folder / "a.lst"), "old") << "nothing is visible before the commit";
    ASSERT_TRUE(file.commit());
    EXPECT_EQ(*readFile(folder / "a.lst"), big + "end");
    struct stat info {};
    ASSERT_EQ(::stat((folder / "a.lst").c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0640U);
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, WithoutCommitTheOldFileStandsAndNothingIsLeft) {
    put("a.lst", "old");
    {
        AtomicFile file(folder / "a.lst");
        ASSERT_TRUE(file.open());
        file.write("new");
    }
    EXPECT_EQ(*readFile(folder / "a.lst"), "old");
    EXPECT_EQ(entries(), 1U);
}

TEST_F(FileTest, LinksAreFollowedAndHardOnesStay) {
    fs::create_directory(folder / "sub");
    put("real.lst", "old");
    fs::create_symlink("../real.lst", folder / "sub/link.lst");
    fs::create_symlink("sub/link.lst", folder / "chain.lst");
    fs::create_symlink("sub/none.lst", folder / "dangling.lst");
    fs::create_hard_link(folder / "real.lst", folder / "twin.lst");
    ASSERT_TRUE(replaced("chain.lst", "a text longer than the old one"));
    EXPECT_EQ(*readFile(folder / "twin.lst"), "a text longer than the old one");
    ASSERT_TRUE(replaced("twin.lst", "new", "twin.bak"));
    EXPECT_EQ(*readFile(folder / "real.lst"), "new");
    EXPECT_EQ(*readFile(folder / "twin.bak"), "a text longer than the old one");
    ASSERT_TRUE(replaced("dangling.lst", "first"));
    EXPECT_EQ(*readFile(folder / "sub/none.lst"), "first");
    for (const char* link : {"chain.lst", "sub/link.lst", "dangling.lst"})
        EXPECT_TRUE(fs::is_symlink(folder / link)) << link;
    EXPECT_EQ(statusOf("real.lst").st_nlink, 2U);
    EXPECT_EQ(entries(), 6U);
}

TEST_F(FileTest, AColleaguesFileStaysHisAndAClosedFolderIsNoObstacle) {
    put("list.lst", "old and longer");
    fs::permissions(folder / "list.lst", fs::perms(0666));
    const bool root = ::geteuid() == 0;
    if (root) {
        ASSERT_EQ(::chown((folder / "list.lst").c_str(), 0, 1), 0);
    }
    for (const unsigned rights : {0777U, 0555U, 01777U}) {
        fs::permissions(folder, fs::perms(rights));
        {
            const Stranger stranger;
            EXPECT_TRUE(replaced("list.lst", "new", "list.bak")) << rights;
        }
        fs::permissions(folder, fs::perms::owner_all);
        EXPECT_EQ(*readFile(folder / "list.lst"), "new");
        const struct stat now = statusOf("list.lst");
        EXPECT_EQ(now.st_mode & 0777U, 0666U);
        EXPECT_TRUE(!root || (now.st_uid == 0 && now.st_gid == 1)) << rights;
        EXPECT_EQ(entries(), 2U) << rights;
    }
    // The owner of a file of a group gives the new one to the group.
    if (!root) return;
    ASSERT_TRUE(replaced("list.lst", "again"));
    EXPECT_EQ(statusOf("list.lst").st_gid, 1U);
}

TEST_F(FileTest, TheFormerFileIsKeptOnlyWhenItIsReplaced) {
    put("a.dxf", "second");
    put("a.bak", "first");
    {
        AtomicFile file(folder / "a.dxf");
        file.keepFormer(folder / "a.bak");
        ASSERT_TRUE(file.open());
        file.write("lost");
    }
    EXPECT_EQ(*readFile(folder / "a.bak"), "first");
    ASSERT_TRUE(replaced("a.dxf", "third", "a.bak"));
    EXPECT_EQ(*readFile(folder / "a.bak"), "second");
    ASSERT_TRUE(replaced("a.dxf", "fourth", "a.dxf"));
    EXPECT_EQ(*readFile(folder / "a.dxf"), "fourth");
    EXPECT_EQ(entries(), 2U);
}

TEST_F(FileTest, TheLongestNameIsNotTooLong) {
    const std::string name(255, 'n');
    EXPECT_TRUE(replaced(name, "first"));
    EXPECT_TRUE(replaced(name, "second", name.substr(0, 251) + ".bak"));
    EXPECT_EQ(*readFile(folder / name), "second");
}

TEST_F(FileTest, OnlyTemporariesOfTheDeadAreRemoved) {
    put("other/a", "");
    AtomicFile living(folder / "living");
    ASSERT_TRUE(living.open());
    const pid_t child = ::fork();
    if (child == 0) {
        AtomicFile file(folder / "dead");
        ::_exit(file.open().ok() ? 0 : 1);
    }
    int status = -1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_EQ(status, 0);
    put(".gravando-alheio", "");
    EXPECT_EQ(entries(), 4U) << "nothing was left behind";
    ASSERT_TRUE(replaced("other/a", "x"));  // a folder is looked through once in a row
    ASSERT_TRUE(replaced("b", "x"));
    EXPECT_EQ(entries(), 4U);
    EXPECT_TRUE(living.commit());
}

TEST_F(FileTest, AFileThatIsShortenedWhileItIsMappedEndsNobody) {
    const std::size_t size = 64 * 4096;
    put("a.bin", std::string(size, 'x'));
    const auto file = *MappedFile::open(folder / "a.bin");
    EXPECT_FALSE(file->changed());
    fs::resize_file(folder / "a.bin", 5000);
    EXPECT_TRUE(file->changed());
    EXPECT_EQ(file->bytes().substr(0, 5000), std::string(5000, 'x'));
    file->giveBack(file->bytes());
    EXPECT_EQ(std::count(file->bytes().begin(), file->bytes().end(), '\0'),
              static_cast<std::ptrdiff_t>(size) - 5000);
    // It has grown to its former size again: what was read is still no file of anybody's.
    fs::resize_file(folder / "a.bin", size);
    EXPECT_TRUE(file->changed());
}

TEST_F(FileTest, APipeIsWrittenToAndStaysOne) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    fs::create_symlink("pipe", folder / "link");
    for (const char* name : {"pipe", "link"}) {
        // Opened for both ways, so that nobody waits for the other end.
        const int reader = ::open((folder / "pipe").c_str(), O_RDWR | O_NONBLOCK);
        AtomicFile file(folder / name);
        ASSERT_TRUE(file.open());
        file.write("new");
        ASSERT_TRUE(file.commit());
        char bytes[8];
        ASSERT_EQ(::read(reader, bytes, sizeof bytes), 3) << name;
        EXPECT_EQ(std::string_view(bytes, 3), "new");
        ::close(reader);
    }
    // Without a reader nobody stands still for ever.
    AtomicFile unread(folder / "pipe");
    const auto refused = unread.open();
    ASSERT_FALSE(refused);
    EXPECT_NE(refused.error().text.find("ninguém lê"), std::string::npos);
    EXPECT_TRUE(fs::is_fifo(folder / "pipe"));
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(entries(), 2U);
}

TEST_F(FileTest, FailuresSayWhatAndWhere) {
    AtomicFile nowhere(folder / "missing" / "a.dxf");
    const auto opened = nowhere.open();
    ASSERT_FALSE(opened);
    EXPECT_NE(opened.error().message().find("missing/a.dxf"), std::string::npos);
    EXPECT_NE(opened.error().text.find("não existe"), std::string::npos);

    EXPECT_FALSE(readFile(folder / "none.lst"));
    EXPECT_FALSE(MappedFile::open(folder)) << "a folder is no file";
}

TEST_F(FileTest, NamesAreFoundWhateverTheirCaseAndSeparators) {
    put("Perfis/Slides/pu.slb", "x");
    const std::wstring root = folder.wstring();
    EXPECT_EQ(resolvePath(root + L"\\perfis\\SLIDES\\PU.SLB"), folder / "Perfis/Slides/pu.slb");
    EXPECT_EQ(resolvePath(root + L"/Perfis\\Slides/pu.slb"), folder / "Perfis/Slides/pu.slb");
    EXPECT_EQ(resolvePath(root + L"\\PERFIS\\Listas\\pu.lst"), folder / "Perfis/Listas/pu.lst")
        << "the part that exists is found, the rest keeps its spelling";
    // The exact spelling wins over its look-alike.
    put("perfis/Slides/pu.slb", "y");
    EXPECT_EQ(resolvePath(root + L"\\perfis\\Slides\\pu.slb"), folder / "perfis/Slides/pu.slb");
}

TEST_F(FileTest, MappedFilesShowTheBytes) {
    put("a.bin", std::string("a\0b", 3));
    put("empty.bin", "");
    EXPECT_EQ((*MappedFile::open(folder / "a.bin"))->bytes(), std::string_view("a\0b", 3));
    EXPECT_TRUE((*MappedFile::open(folder / "empty.bin"))->bytes().empty());
}

TEST_F(FileTest, APipeIsReadToItsEnd) {
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    // More than a pipe holds, and nothing.
    for (const std::size_t size : {std::size_t{3} << 20, std::size_t{0}}) {
        const std::string sent(size, 'x');
        std::thread writer([&] { std::ofstream(folder / "pipe", std::ios::binary) << sent; });
        const auto read = MappedFile::open(folder / "pipe");
        writer.join();
        ASSERT_TRUE(read);
        EXPECT_TRUE((*read)->bytes() == sent) << size;
        (*read)->giveBack((*read)->bytes());
        EXPECT_TRUE((*read)->bytes() == sent) << "what cannot be read again is kept";
    }
}
