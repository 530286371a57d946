// SPDX-License-Identifier: MIT
// Two programs that edit one list.
#include "perfis/catalogues/list_merge.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>

#include "perfis/base/portability.h"
#include "perfis/catalogues/catalogue.h"
#include "temp_folder.h"

using namespace perfis;

namespace {

Rows rowsOf(const Catalogue& catalogue) {
    Rows rows(static_cast<std::size_t>(catalogue.count()));
    for (int i = 0; i < catalogue.count(); ++i)
        (void)catalogue.rowAt(i, rows[static_cast<std::size_t>(i)]);
    return rows;
}

}  // namespace

TEST(ListMerge, EveryKindOfEditOfBothSides) {
    struct Case {
        Rows before, mine, theirs, merged;
    };
    const Case cases[] = {
        {{L"a", L"b"}, {L"a", L"b", L"m"}, {L"a", L"b", L"t"}, {L"a", L"b", L"t", L"m"}},
        {{L"a", L"b"}, {L"a"}, {L"a", L"b", L"t"}, {L"a", L"t"}},
        {{L"a", L"b", L"c"}, {L"a", L"M", L"c"}, {L"c", L"b", L"a"}, {L"c", L"M", L"a"}},
        {{L"a", L"b"}, {L"a", L"M"}, {L"a", L"t"}, {L"a", L"t", L"M"}},
        {{L"a"}, {L"a", L"x"}, {L"a", L"x"}, {L"a", L"x"}},
        {{L"a", L"a"}, {L"a"}, {L"a", L"a"}, {L"a"}},
        {{}, {L"m"}, {L"t"}, {L"t", L"m"}},
        {{L"a"}, {L"a"}, {}, {}},
    };
    for (const Case& c : cases) EXPECT_EQ(mergedRows(c.before, c.mine, c.theirs), c.merged);
}

class SharedList : public TempFolder {};

TEST_F(SharedList, TheLaterWriterKeepsTheEarlierOnesRows) {
    for (const auto make : {makeStrListCatalogue, makeStringListCatalogue}) {
        put("a.lst", "100\t50\n200\t75\n");
        const std::wstring list = path("a.lst");
        const auto first = make();
        const auto second = make();
        const auto idle = make();
        first->read(list);
        second->read(list);
        idle->read(list);
        first->append(L"300\t80");
        first->write(list);
        second->remove(0);
        second->write(list);
        idle->write(list);
        const auto all = make();
        all->read(list);
        EXPECT_EQ(rowsOf(*all), (Rows{L"200\t75", L"300\t80"}));
    }
}

/// While it lives no file can be opened, as one that is held by another program.
class NothingOpens {
public:
    NothingOpens() {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &m_before), 0);
        const rlimit none{0, m_before.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &none), 0);
    }
    ~NothingOpens() { (void)::setrlimit(RLIMIT_NOFILE, &m_before); }
    NothingOpens(const NothingOpens&) = delete;
    NothingOpens& operator=(const NothingOpens&) = delete;

private:
    rlimit m_before{};
};

TEST_F(SharedList, AListThatCouldNotBeReadIsNotReplaced) {
    for (const auto make : {makeStrListCatalogue, makeStringListCatalogue}) {
        put("b.lst", "100\t50\n");
        const std::wstring list = path("b.lst");
        const auto idle = make();
        const auto busy = make();
        {
            const NothingOpens held;
            idle->read(list);
            busy->read(list);
        }
        idle->write(list);
        EXPECT_EQ(get("b.lst"), "100\t50\n");
        busy->append(L"300\t80");
        busy->write(list);
        EXPECT_EQ(get("b.lst"), "100\t50\n300\t80\n");
    }
}

TEST_F(SharedList, ADamagedListIsWrittenOnlyAfterAnEditAndTheOldOneKept) {
    const std::string old[] = {"5\r6\r7\r", std::string("5\0\n\0", 4), std::string("5\0x\n7\n", 6)};
    const std::string edited[] = {"5\n6\n7\n8\n", std::string("\xFF\xFE\x35\0\n\0\x38\0\n\0", 10),
                                  "5\n7\n8\n"};
    for (const auto make : {makeStrListCatalogue, makeStringListCatalogue})
        for (int i = 0; i < 3; ++i) {
            put("d.lst", old[i]);
            const auto list = make();
            list->read(path("d.lst"));
            list->write(path("d.lst"));
            EXPECT_EQ(get("d.lst"), old[i]);
            const int before = fileCount();
            list->append(L"8");
            list->write(path("d.lst"));
            EXPECT_EQ(get("d.lst"), edited[i]);
            EXPECT_EQ(fileCount(), before + 1);
        }
    EXPECT_EQ(get("d.lst.antigo"), old[0]);
    EXPECT_EQ(get("d.lst.antigo6"), old[2]);
}

TEST_F(SharedList, AFolderThatIsHeldKeepsNobodyWaitingForLong) {
    put("h.lst", "100\t50\n");
    const auto list = makeStrListCatalogue();
    list->read(path("h.lst"));
    const int holder = ::open(folder().c_str(), O_RDONLY | O_DIRECTORY);
    ASSERT_EQ(::flock(holder, LOCK_EX), 0);
    const auto start = std::chrono::steady_clock::now();
    list->write(path("h.lst"));
    EXPECT_LT(std::chrono::steady_clock::now() - start, FolderLock::kPatience / 2);
    list->append(L"300\t80");
    list->write(path("h.lst"));
    EXPECT_EQ(get("h.lst"), "100\t50\n300\t80\n");
    ::close(holder);
}

TEST_F(SharedList, APipeInItsPlaceIsLeftAlone) {
    ASSERT_EQ(::mkfifo((folder() / "p.lst").c_str(), 0600), 0);
    const auto list = makeStrListCatalogue();
    list->read(path("p.lst"));
    list->append(L"8");
    list->write(path("p.lst"));
    EXPECT_TRUE(std::filesystem::is_fifo(folder() / "p.lst"));
}
