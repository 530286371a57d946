// SPDX-License-Identifier: MIT
// Faults among the members that a file tells of.
#include "zp/matlist/shop_check.h"

#include <algorithm>

#include "zp/matlist/book.h"
#include "zp/matlist/check.h"
#include "zp/matlist/listing.h"

namespace zp::matlist {
namespace {

/// Marks that a message names one by one.
constexpr std::size_t kNamed = 12;

/// Of the row that the finding's object, a piece or its mark, belongs to.
std::wstring marcaOf(Book& book, AcDbObjectId object) {
    const Book::Marca* const marca = book.marca(object);
    const AcDbObjectId record = book.rowOf(marca != nullptr ? marca->peca : object);
    return record.isNull() ? std::wstring() : book.row(record)->marca;
}

}  // namespace

std::wstring objectionTo(AcDbDatabase& drawing, const std::set<std::wstring>& marcas) {
    Book& book = Book::of(drawing);
    std::set<std::wstring> faulty;
    std::size_t faults = 0;
    for (const Finding& finding : check(drawing)) {
        if (finding.severity != protocol::Severity::Fault) continue;
        std::set<std::wstring> touched{finding.marca};
        for (const AcDbObjectId& id : finding.objects) touched.insert(marcaOf(book, id));
        std::erase_if(touched, [&](const std::wstring& m) { return !marcas.contains(m); });
        faults += touched.empty() ? 0 : 1;
        faulty.merge(touched);
    }
    if (faults == 0) return {};
    std::vector<std::wstring> named(faulty.begin(), faulty.end());
    std::ranges::sort(named, marcaBefore);
    std::wstring text;
    for (std::size_t i = 0; i < std::min(named.size(), kNamed); ++i)
        text += (i == 0 ? L"" : L", ") + named[i];
    if (named.size() > kNamed) text += L" e mais " + std::to_wstring(named.size() - kNamed);
    return text + L": CONFERIR aponta " + std::to_wstring(faults) +
           (faults == 1 ? L" falha" : L" falhas") +
           L" nestas peças; nada foi gravado. Corrija o desenho, ou force a gravação (responda "
           L"Forcar antes; no console, --forcar).";
}

}  // namespace zp::matlist
