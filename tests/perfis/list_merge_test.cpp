// SPDX-License-Identifier: MIT
// Two programs that edit one list.
#include "perfis/catalogues/list_merge.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

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
