// SPDX-License-Identifier: MIT
// Atomic replacement and look-up of names without regard to case.
#include "prancheta/base/file.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

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

    fs::path folder;
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

TEST_F(FileTest, ALinkIsFollowed) {
    put("real.lst", "old");
    fs::create_symlink("real.lst", folder / "link.lst");
    AtomicFile file(folder / "link.lst");
    ASSERT_TRUE(file.open());
    file.write("new");
    ASSERT_TRUE(file.commit());
    EXPECT_TRUE(fs::is_symlink(folder / "link.lst"));
    EXPECT_EQ(*readFile(folder / "real.lst"), "new");
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
