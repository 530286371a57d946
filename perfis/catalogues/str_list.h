// SPDX-License-Identifier: MIT
// ZpStrList: the list of texts that holds a catalogue in memory.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adsdlg.h"
#include "perfis/catalogues/list_text.h"

namespace perfis {

/// Singly linked list that owns its texts. Indices count from 0. Results are 1 for done and 0 for
/// not done, as the dialog code wants them.
class ZpStrList {
public:
    ZpStrList() = default;
    ZpStrList(const ZpStrList&) = delete;
    ZpStrList& operator=(const ZpStrList&) = delete;
    virtual ~ZpStrList();

    void clear();
    unsigned count() const { return m_count; }

    /// Rows of a list file: pieces of at most 118 characters, empty lines skipped. 0, and the list
    /// keeps what it had, when the file cannot be opened.
    int read(std::wstring_view path);
    /// One entry a line, in the encoding and with the line ends of the file last read. 0, and the
    /// old file stays, when it cannot be written.
    int write(std::wstring_view path) const;
    /// What write() writes, and how.
    std::wstring fileText() const;
    const ListFormat& format() const { return m_format; }

    /// 0, and `text` is untouched, when there is no such entry.
    int getAt(std::wstring& text, unsigned index) const;
    int replaceAt(std::wstring_view text, unsigned index);
    int removeAt(unsigned index);
    int prepend(std::wstring_view text);
    /// Constant time.
    int append(std::wstring_view text);
    /// Whole entries, case-sensitive.
    bool contains(std::wstring_view text) const;

    /// All entries in order: asking for one after the other by index is quadratic.
    std::vector<std::wstring> texts() const;

    /// Shows all entries in a list tile; 0 when the tile takes no list.
    int fillTile(ads_hdlg dialog, const wchar_t* key) const;

private:
    struct Node {
        std::unique_ptr<wchar_t[]> text;
        Node* next;
    };

    Node* nodeAt(unsigned index) const;
    static std::unique_ptr<wchar_t[]> copyOf(std::wstring_view text);

    Node* m_first = nullptr;
    Node* m_last = nullptr;
    unsigned m_count = 0;
    ListFormat m_format;
};

}  // namespace perfis
