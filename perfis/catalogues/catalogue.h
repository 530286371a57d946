// SPDX-License-Identifier: MIT
// A command's catalogue of sizes, whichever list class holds it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "adsdlg.h"

namespace perfis {

/// Rows of one catalogue. Indices count from 0.
class Catalogue {
public:
    virtual ~Catalogue() = default;
    /// A file that cannot be opened leaves the rows as they are, silently.
    virtual void read(std::wstring_view path) = 0;
    /// Failure is silent and leaves the old file. When another program changed the file since it
    /// was read, or held it then, its rows and our edits are merged.
    virtual void write(std::wstring_view path) const = 0;
    virtual void clear() = 0;
    virtual int count() const = 0;
    /// False, and `row` is untouched, when there is no such row.
    virtual bool rowAt(int index, std::wstring& row) const = 0;
    virtual bool contains(const std::wstring& row) const = 0;
    virtual void append(const std::wstring& row) = 0;
    virtual void replace(int index, const std::wstring& row) = 0;
    virtual void remove(int index) = 0;
    virtual std::vector<std::wstring> rows() const = 0;
    /// Shows all rows in a list tile.
    virtual void fill(ads_hdlg dialog, const wchar_t* key) const = 0;
};

/// Held in a ZpStrList: lines over 118 characters become several rows, empty lines are skipped.
std::unique_ptr<Catalogue> makeStrListCatalogue();
/// Held in a ZpStringList: lines up to 510 characters, empty lines are rows.
std::unique_ptr<Catalogue> makeStringListCatalogue();

/// Fields of a row, cut at every tab: two tabs in a row enclose an empty field.
std::vector<std::wstring> splitRow(std::wstring_view row);

/// Row of the texts of tiles h, b, t and a. The last one is left out when its whole number is 0, so
/// that "0.8" is not kept and "15" is.
std::wstring buildRow(const std::wstring& h, const std::wstring& b, const std::wstring& t,
                      const std::wstring& a);

}  // namespace perfis
