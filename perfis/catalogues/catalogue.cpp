// SPDX-License-Identifier: MIT
// The two holders of a catalogue, and how a row is cut and built.
#include "perfis/catalogues/catalogue.h"

#include <optional>

#include "perfis/catalogues/list_merge.h"
#include "perfis/catalogues/list_text.h"
#include "perfis/catalogues/str_list.h"
#include "texts/number.h"
#include "zp/forja/zpstringlist.h"

namespace perfis {
namespace {

/// Rows that other programs may edit at the same time: what stood there before the first edit of
/// ours is remembered, and merged with what stands there when ours are written.
class SharedCatalogue : public Catalogue {
public:
    void read(std::wstring_view path) final {
        m_before.reset();
        m_version = fileVersion(path);
        m_read = readRows(path);
    }
    void write(std::wstring_view path) const final;
    void append(const std::wstring& row) final {
        remember();
        appendRow(row);
    }
    void replace(int index, const std::wstring& row) final {
        remember();
        replaceRow(index, row);
    }
    void remove(int index) final {
        remember();
        removeRow(index);
    }

protected:
    /// False, and the rows stay, when the file cannot be opened.
    virtual bool readRows(std::wstring_view path) = 0;
    /// What the file is to hold, and how.
    virtual std::wstring fileText() const = 0;
    virtual const ListFormat& format() const = 0;
    virtual void appendRow(const std::wstring& row) = 0;
    virtual void replaceRow(int index, const std::wstring& row) = 0;
    virtual void removeRow(int index) = 0;
    /// An empty catalogue of the same kind.
    virtual std::unique_ptr<SharedCatalogue> another() const = 0;

private:
    bool isAsRead(std::wstring_view path) const;
    void remember() {
        if (!m_before) m_before = rows();
    }

    std::optional<Rows> m_before;  ///< nothing while there are no edits
    std::uint64_t m_version = 0;   ///< of the file that was read
    bool m_read = false;           ///< it could be read
};

bool SharedCatalogue::isAsRead(std::wstring_view path) const {
    const std::uint64_t version = fileVersion(path);
    // A list that was deleted meanwhile is written as it is here.
    return version == 0 || (m_read && version == m_version);
}

void SharedCatalogue::write(std::wstring_view path) const {
    const bool unread = !m_read && m_version != 0;
    // Without edits: rows that are not the file's own, or not all that stands there, or were edited
    // by somebody else.
    if (!m_before && (unread || format().damaged || !isAsRead(path))) return;
    // Most commands end with their list as it was: nobody has to be waited for, and flushing it to
    // the disk would cost more than all the rest.
    if (listHolds(path, fileText(), format())) return;
    const FolderLock lock(path);
    if (isAsRead(path)) {
        (void)writeListText(path, fileText(), format());
        return;
    }
    if (!m_before) return;
    const std::unique_ptr<SharedCatalogue> merged = another();
    if (!merged->readRows(path)) return;  // held by another program: its rows would be lost
    const Rows all = mergedRows(*m_before, rows(), merged->rows());
    merged->clear();
    for (const std::wstring& row : all) merged->appendRow(row);
    (void)writeListText(path, merged->fileText(), merged->format());
}

class StrListCatalogue : public SharedCatalogue {
public:
    bool readRows(std::wstring_view path) override { return m_list.read(path) != 0; }
    std::wstring fileText() const override { return m_list.fileText(); }
    const ListFormat& format() const override { return m_list.format(); }
    void clear() override { m_list.clear(); }
    int count() const override { return static_cast<int>(m_list.count()); }
    bool rowAt(int index, std::wstring& row) const override {
        return m_list.getAt(row, static_cast<unsigned>(index)) != 0;
    }
    bool contains(const std::wstring& row) const override { return m_list.contains(row); }
    void appendRow(const std::wstring& row) override { (void)m_list.append(row); }
    void replaceRow(int index, const std::wstring& row) override {
        (void)m_list.replaceAt(row, static_cast<unsigned>(index));
    }
    void removeRow(int index) override { (void)m_list.removeAt(static_cast<unsigned>(index)); }
    Rows rows() const override { return m_list.texts(); }
    void fill(ads_hdlg dialog, const wchar_t* key) const override {
        (void)m_list.fillTile(dialog, key);
    }

    std::unique_ptr<SharedCatalogue> another() const override {
        return std::make_unique<StrListCatalogue>();
    }

private:
    ZpStrList m_list;
};

class StringListCatalogue : public SharedCatalogue {
public:
    bool readRows(std::wstring_view path) override;
    std::wstring fileText() const override;
    const ListFormat& format() const override { return m_format; }
    void clear() override { m_list.clear(); }
    int count() const override { return m_list.length(); }
    bool rowAt(int index, std::wstring& row) const override;
    bool contains(const std::wstring& row) const override {
        return m_list.contains(ZpString(row.c_str()));
    }
    void appendRow(const std::wstring& row) override { m_list.append(ZpString(row.c_str())); }
    void replaceRow(int index, const std::wstring& row) override {
        m_list.setAt(index, ZpString(row.c_str()));
    }
    void removeRow(int index) override { m_list.removeAt(index); }
    Rows rows() const override;
    void fill(ads_hdlg dialog, const wchar_t* key) const override;

    std::unique_ptr<SharedCatalogue> another() const override {
        return std::make_unique<StringListCatalogue>();
    }

private:
    ZpStringList m_list;
    ListFormat m_format;
};

bool StringListCatalogue::readRows(std::wstring_view path) {
    constexpr std::size_t kReadBuffer = 511;
    const std::shared_ptr<const ListText> list = readListText(path);
    if (!list) return false;
    m_list.clear();
    m_format = list->format;
    LineReader reader(list->text);
    std::wstring piece;
    while (reader.read(piece, kReadBuffer)) {
        ZpString row(piece.c_str());
        row.CloseInChar(L"\n\r");
        m_list.append(row);
    }
    return true;
}

std::wstring StringListCatalogue::fileText() const {
    std::wstring text;
    for (int i = 0; i < m_list.length(); ++i)
        text += static_cast<const wchar_t*>(m_list.at(i) + L"\n");
    return text;
}

bool StringListCatalogue::rowAt(int index, std::wstring& row) const {
    if (index < 0 || index >= m_list.length()) return false;
    row = static_cast<const wchar_t*>(m_list.at(index));
    return true;
}

Rows StringListCatalogue::rows() const {
    Rows out;
    out.reserve(static_cast<std::size_t>(m_list.length()));
    for (int i = 0; i < m_list.length(); ++i)
        out.emplace_back(static_cast<const wchar_t*>(m_list.at(i)));
    return out;
}

void StringListCatalogue::fill(ads_hdlg dialog, const wchar_t* key) const {
    if (ads_start_list(dialog, key, LIST_NEW, 0) != RTNORM) return;
    for (int i = 0; i < m_list.length(); ++i)
        (void)ads_add_list(static_cast<const wchar_t*>(m_list.at(i)));
    (void)ads_end_list();
}

}  // namespace

std::unique_ptr<Catalogue> makeStrListCatalogue() { return std::make_unique<StrListCatalogue>(); }

std::unique_ptr<Catalogue> makeStringListCatalogue() {
    return std::make_unique<StringListCatalogue>();
}

std::vector<std::wstring> splitRow(std::wstring_view row) {
    std::vector<std::wstring> fields;
    for (std::size_t start = 0;;) {
        const std::size_t tab = row.find(L'\t', start);
        fields.emplace_back(row.substr(start, tab - start));
        if (tab == std::wstring_view::npos) return fields;
        start = tab + 1;
    }
}

std::wstring buildRow(const std::wstring& h, const std::wstring& b, const std::wstring& t,
                      const std::wstring& a) {
    std::wstring row = h + L'\t' + b + L'\t' + t;
    if (texts::toInt(a) != 0) row += L'\t' + a;
    return row;
}

}  // namespace perfis
