// SPDX-License-Identifier: MIT
// Grouping and numbering of rows.
#include "zp/matlist/group.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <optional>
#include <set>
#include <unordered_map>

#include "dbsymtb.h"
#include "perfis/entities/zpfuncoes.h"
#include "texts/letters.h"
#include "texts/path.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/matlist/listing.h"
#include "zp/matlist/zpmarca.h"
#include "zp/matlist/zpmatlist.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/layers.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

/// Where the text of a mark stands from its tip, at drawing scale 1.
constexpr double kTextOffset = 10.0;
/// Places nearer than this stand in one column, mm.
constexpr double kSamePlace = 1e-6;
/// What the mark of mirrored pieces has behind that of the others.
constexpr const wchar_t* kTwin = L"E";

using Peca = AcDbObjectPointer<ZpObject>;

std::vector<AcDbObjectId> chapasOf(AcDbObjectId bar) {
    const Peca peca(bar, AcDb::kForRead);
    return peca.object() != nullptr ? edit::chapasOf(*peca.object()) : std::vector<AcDbObjectId>();
}

/// Members that nobody told the lacing of differ when one has plates and the other has not.
bool sameChapas(const ZpObject& a, const ZpObject& b) {
    if (member::of(a).lacing.n != 0) return true;  // compared with the members
    return edit::chapasOf(a).empty() == edit::chapasOf(b).empty();
}

/// Pieces that are one member, in the order of the pieces.
std::vector<std::vector<AcDbObjectId>> equalOnes(const std::vector<AcDbObjectId>& pecas) {
    std::vector<std::vector<AcDbObjectId>> groups;
    std::unordered_map<std::size_t, std::vector<std::size_t>> byHash;
    for (const AcDbObjectId& id : pecas) {
        const Peca peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        std::optional<std::size_t> found;
        for (const int step : {0, -1, 1}) {
            const auto alike = byHash.find(member::hashOf(*peca.object(), step));
            if (alike == byHash.end()) continue;
            for (const std::size_t group : alike->second) {
                const Peca first(groups[group].front(), AcDb::kForRead);
                if (!found && member::same(*first.object(), *peca.object()) &&
                    sameChapas(*first.object(), *peca.object()))
                    found = group;
            }
        }
        if (!found) {
            found = groups.size();
            groups.emplace_back();
            byHash[member::hashOf(*peca.object())].push_back(*found);
        }
        groups[*found].push_back(id);
    }
    return groups;
}

/// A mark as the drawing commands place it: bars by their first corner, plates by the third one.
void drawMarca(AcDbObjectId id, const std::wstring& text) {
    AcGePoint3d tip, at;
    AcDbObjectId block;
    {
        const Peca peca(id, AcDb::kForRead);
        const bool chapa = isChapa(id);
        const Frame frame = Access::of(*peca.object()).frame();
        const double offset = kTextOffset * GetScale();
        tip = edit::cornersOf(*peca.object()).f[chapa ? 2 : 0];
        at = tip + frame.x * (chapa ? offset : -offset) + frame.y * offset;
        block = peca->ownerId();
    }
    auto entity = std::make_unique<ZpMarca>(tip, at, text, kMarcaAltura * GetScale(), id);
    (void)entity->setLayer(
        ZpLayerToUsr(L"MARCA"));  // a name that cannot be a layer leaves the current one
    AcDbObjectPointer<AcDbBlockTableRecord> space(block, AcDb::kForWrite);
    if (space.object() != nullptr && space->appendAcDbEntity(entity.get()) == Acad::eOk)
        (void)entity.release()->close();
}

bool hasMarca(Book& book, const std::vector<AcDbObjectId>& pecas) {
    return std::ranges::any_of(pecas, [&](AcDbObjectId id) { return !book.marcasOf(id).empty(); });
}

/// One for the plates of each bar that counts, where a drawing command puts it: at the far end.
void drawMarcasOfChapas(Book& book, const std::vector<AcDbObjectId>& chapas,
                        const std::wstring& text) {
    std::map<AcDbObjectId, std::vector<AcDbObjectId>, Older> byBar;
    for (const AcDbObjectId& id : chapas) byBar[barOf(id)].push_back(id);
    for (const auto& [bar, its] : byBar) {
        if (hasMarca(book, its) || (!bar.isNull() && countOf(bar) == 0)) continue;
        drawMarca(its.size() > 1 ? its[1] : its[0], text);
    }
}

/// The row of a group: the lowest mark that one of them has, else a new one.
AcDbObjectId rowFor(Book& book, const MaterialList& list, const std::vector<AcDbObjectId>& group) {
    AcDbObjectId best;
    for (const AcDbObjectId& id : group) {
        const AcDbObjectId row = book.rowOf(id);
        if (!row.isNull() &&
            (best.isNull() || marcaBefore(book.row(row)->marca, book.row(best)->marca)))
            best = row;
    }
    if (!best.isNull()) return best;
    Linha fresh = freshRow(group.front());
    fresh.marca = book.freeMarca(L"");
    return add(list.id, fresh);
}

bool isMirrored(AcDbObjectId id) {
    const Peca peca(id, AcDb::kForRead);
    return peca.object() != nullptr && Access::of(*peca.object()).mirrored;
}

/// Mirrored ones stay apart where they were numbered as twins.
std::vector<std::vector<AcDbObjectId>> withoutTwins(Book& book,
                                                    const std::vector<AcDbObjectId>& equal) {
    std::set<std::wstring> marcas;
    for (const AcDbObjectId& id : equal)
        if (const Book::Row* row = book.row(book.rowOf(id)); row != nullptr)
            marcas.insert(row->marca);
    const bool twins = std::ranges::any_of(
        marcas, [&](const std::wstring& marca) { return marcas.contains(marca + kTwin); });
    if (!twins) return {equal};
    std::vector<std::vector<AcDbObjectId>> parts(2);
    for (const AcDbObjectId& id : equal) parts[isMirrored(id) ? 1 : 0].push_back(id);
    return parts;
}

std::vector<std::vector<AcDbObjectId>> membersAmong(Book& book,
                                                    const std::vector<AcDbObjectId>& pecas) {
    std::vector<std::vector<AcDbObjectId>> members;
    for (const std::vector<AcDbObjectId>& equal : equalOnes(pecas))
        for (std::vector<AcDbObjectId>& part : withoutTwins(book, equal))
            if (!part.empty()) members.push_back(std::move(part));
    return members;
}

void group(Book& book, const MaterialList& list, const std::vector<AcDbObjectId>& pecas,
           Grouping& result) {
    std::set<AcDbObjectId> before;
    std::set<AcDbObjectId> after;
    for (const std::vector<AcDbObjectId>& equal : membersAmong(book, pecas)) {
        const AcDbObjectId row = rowFor(book, list, equal);
        if (row.isNull()) continue;
        after.insert(row);
        for (const AcDbObjectId& id : equal) {
            const AcDbObjectId was = book.rowOf(id);
            if (was.isNull())
                result.unmarked += isChapa(id) ? 0 : 1;
            else
                before.insert(was);
            if (was != row) (void)enterRow(id, row, countOf(id));
        }
        const std::wstring text = book.row(row)->marca;
        if (!isChapa(equal.front())) {
            for (const AcDbObjectId& id : equal)
                if (book.marcasOf(id).empty() && countOf(id) > 0) drawMarca(id, text);
        } else {
            drawMarcasOfChapas(book, equal, text);
        }
    }
    for (const AcDbObjectId& row : before)
        if (!after.contains(row)) dropEmptied(row);
    result.before += static_cast<int>(before.size());
    result.after += static_cast<int>(after.size());
}

/// Where the first of a row's pieces stands.
AcGePoint3d placeOf(const Linha& row) {
    const std::vector<AcDbObjectId>& ids = row.pecas.empty() ? row.vistas : row.pecas;
    const Peca peca(ids.empty() ? AcDbObjectId() : ids.front(), AcDb::kForRead);
    if (peca.object() == nullptr) return {};
    const edit::Faces faces = edit::facesOf(*peca.object());
    AcGePoint3d least = faces.f[0];
    for (const AcGePoint3d& f : faces.f)
        least.set(std::min(least.x, f.x), std::min(least.y, f.y), 0.0);
    return least;
}

std::wstring lettersFor(const Linha& row, const std::map<std::wstring, std::wstring>& letters) {
    const std::vector<AcDbObjectId>& ids = row.pecas.empty() ? row.vistas : row.pecas;
    const Peca peca(ids.empty() ? AcDbObjectId() : ids.front(), AcDb::kForRead);
    std::vector<std::wstring> names{texts::lower(row.descricao)};
    if (peca.object() != nullptr && !isChapa(ids.front()))
        switch (Access::of(*peca.object()).tipoBarra) {
            case ZpObject::kMontante:
                names.insert(names.begin(), L"montante");
                break;
            case ZpObject::kDiagonal:
                names.insert(names.begin(), L"diagonal");
                break;
            case ZpObject::kBanzoInferior:
            case ZpObject::kBanzoSuperior:
                names.insert(names.begin(), L"banzo");
                break;
            case ZpObject::kViga:
                names.insert(names.begin(), L"viga");
                break;
            case ZpObject::kPilar:
                names.insert(names.begin(), L"pilar");
                break;
            case ZpObject::kTerca:
                names.insert(names.begin(), L"terça");
                break;
            default:
                break;
        }
    for (const std::wstring& name : names)
        if (const auto found = letters.find(name); found != letters.end()) return found->second;
    return L"P";
}

struct Numbered {
    AcDbObjectId record;
    Linha row;
    AcGePoint3d place;
    std::wstring marca;
};

/// Mirrored pieces of a row that has others, too, go to a row of their own.
void partTwins(Book& book, std::vector<Numbered>& rows) {
    const std::size_t count = rows.size();
    for (std::size_t i = 0; i < count; ++i) {
        const Ids pecas = book.row(rows[i].record)->pecas;
        std::vector<AcDbObjectId> mirrored;
        std::ranges::copy_if(pecas, std::back_inserter(mirrored), isMirrored);
        if (mirrored.empty() || mirrored.size() == pecas.size() || isChapa(mirrored.front()))
            continue;
        const AcDbObjectId twin = rowOfItsOwn(mirrored.front(), rows[i].record);
        if (twin.isNull()) continue;
        for (const AcDbObjectId& id : mirrored) (void)enterRow(id, twin, countOf(id));
        const std::wstring marca = rows[i].marca + kTwin;
        rows.push_back({twin, *rowAt(twin), {}, marca});
    }
}

}  // namespace

std::vector<AcDbObjectId> barsOf(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    std::vector<AcDbObjectId> bars;
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcRxClass* kind = id.objectClass();
        if (kind == nullptr || !kind->isDerivedFrom(ZpObject::desc()) || isChapa(id)) return;
        const Peca peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) return;
        if (peca->vista() != ZpObject::kVistaSecao || !book.rowOf(id).isNull()) bars.push_back(id);
    });
    std::ranges::sort(bars, Older());
    return bars;
}

Grouping groupPecas(const MaterialList& list, const std::vector<AcDbObjectId>& pecas) {
    Book& book = Book::of(*list.id.database());
    const Book::OwnWork own(book);
    Grouping result;
    std::vector<AcDbObjectId> chapas;
    for (const AcDbObjectId& bar : pecas)
        for (const AcDbObjectId& chapa : chapasOf(bar)) chapas.push_back(chapa);
    group(book, list, pecas, result);
    group(book, list, chapas, result);
    return result;
}

std::map<std::wstring, std::wstring> readLetters() {
    const std::filesystem::path& installation = installationFolder();
    std::map<std::wstring, std::wstring> letters;
    if (!installation.empty())
        letters = readLayers(texts::entryOf(texts::entryOf(installation, "Perfis"), "marcas.ini"));
    if (letters.empty()) letters = {{L"banzo", L"B"}, {L"montante", L"M"}, {L"diagonal", L"D"}};
    return letters;
}

int renumber(const MaterialList& list, const Numbering& numbering) {
    Book& book = Book::of(*list.id.database());
    const Book::OwnWork own(book);
    std::vector<Numbered> rows;
    for (const AcDbObjectId& record : book.records(list.id))
        if (std::optional<Linha> row = rowAt(record); row && !erased(*row))
            rows.push_back({record, *row, placeOf(*row), {}});
    const auto before = [&](const Numbered& a, const Numbered& b) {
        if (numbering.order == Order::Perfil && designationOf(a.row) != designationOf(b.row))
            return marcaBefore(designationOf(a.row), designationOf(b.row));
        if (numbering.order != Order::Place && a.row.comprimento != b.row.comprimento)
            return a.row.comprimento < b.row.comprimento;
        if (std::abs(a.place.x - b.place.x) > kSamePlace) return a.place.x < b.place.x;
        if (std::abs(a.place.y - b.place.y) > kSamePlace) return a.place.y < b.place.y;
        return marcaBefore(a.row.marca, b.row.marca);
    };
    std::ranges::stable_sort(rows, before);
    // Marks of other lists stay taken.
    std::map<std::wstring, int> next;
    std::set<AcDbObjectId> ours;
    for (const Numbered& row : rows) ours.insert(row.record);
    for (Numbered& row : rows) {
        const std::wstring letters = lettersFor(row.row, numbering.letters);
        int& number = next.try_emplace(letters, numbering.first).first->second;
        for (;; ++number) {
            row.marca = letters + std::to_wstring(number);
            const AcDbObjectId taken = book.rowWithMarca(row.marca, row.record);
            if (taken.isNull() || ours.contains(taken)) break;
        }
        ++number;
    }
    if (numbering.twins) partTwins(book, rows);
    int changed = 0;
    for (const Numbered& row : rows)
        if (book.row(row.record)->marca != row.marca && renameRow(row.record, row.marca)) ++changed;
    return changed;
}

}  // namespace zp::matlist
