// SPDX-License-Identifier: MIT
// Members of two drawings, and which of them are the same ones.
#include "zp/matlist/compare.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <ranges>
#include <tuple>
#include <unordered_map>

#include "dbents.h"
#include "zp/matlist/book.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/compare_words.h"
#include "zp/matlist/listing.h"
#include "zp/objects/cortes.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/member.h"
#include "zp/objects/steel.h"

namespace zp::matlist {
namespace {

/// Places nearer than this are one, mm; another program writes fewer digits than it read.
constexpr double kSamePlace = 0.05;
/// Steps in which lengths, sizes, slopes and places are told apart when they are looked up.
constexpr double kLengthStep = 0.01;
constexpr double kSizeStep = 1e-4;
constexpr double kPlaceStep = 1.0;

void put(std::string& key, long long value) {
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}
void put(std::string& key, double value, double step) { put(key, std::llround(value / step)); }
void put(std::string& key, const std::wstring& text) {
    put(key, static_cast<long long>(text.size()));
    key.append(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

std::string steelKeyOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    std::string key;
    put(key, p.tipoBarra);
    put(key, steelOf(peca));
    put(key, peca.getComprimentoReal(), kLengthStep);
    if (p.chapa()) {
        put(key, p.actual[0], kSizeStep);
        put(key, p.actual[1], kSizeStep);
        return key;
    }
    put(key, p.kgMetro(), kSizeStep);
    for (const Corte& corte : p.cortes) {
        put(key, corte.x, kSizeStep);
        put(key, corte.y, kSizeStep);
    }
    const Lacing& lacing = member::of(peca).lacing;
    for (const double value : {lacing.A, lacing.C, lacing.L1}) put(key, value, kLengthStep);
    put(key, lacing.n);
    put(key, lacing.planes);
    const secao::RoleValues values = p.roles();
    for (std::size_t i = 0; i < values.v.size(); ++i) {
        const auto role = static_cast<secao::Role>(i);
        if (role != secao::Role::L && role != secao::Role::Giro) put(key, values.v[i], kSizeStep);
    }
    return key;
}

Member memberOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    Member m;
    m.peca = peca.objectId();
    m.block = peca.ownerId();
    m.chapa = p.chapa();
    m.kg = peca.getPeso();
    m.start = p.start;
    m.end = p.end();
    put(m.kind, static_cast<int>(p.kind));
    m.steel = steelKeyOf(peca);
    m.name = wordsOf(peca);
    return m;
}

/// A row that nothing is drawn for.
Member memberOf(const Linha& row) {
    Member m;
    m.marca = row.marca;
    m.count = row.quantidade;
    m.listed = true;
    m.chapa = true;
    m.kg = row.pesoUnitario;
    put(m.kind, row.descricao);
    put(m.steel, row.dimensoes);
    put(m.steel, row.material);
    put(m.steel, row.comprimento, kLengthStep);
    m.name = wordsOf(row);
    return m;
}

/// Members of the earlier drawing that wait for theirs of the later one.
class Matcher {
public:
    Matcher(const std::vector<Member>& before, const std::vector<Member>& after)
        : m_before(before),
          m_after(after),
          m_partner(after.size(), kNone),
          m_taken(before.size()) {}

    /// `key` tells what has to be alike, nothing where the member is not to be matched by it. In
    /// the order of the drawings where several are.
    template <class Key>
    void match(Key key) {
        std::unordered_map<std::string, std::vector<std::size_t>> waiting;
        for (std::size_t i = m_before.size(); i-- > 0;)
            if (!m_taken[i])
                if (std::string k = key(m_before[i]); !k.empty())
                    waiting[std::move(k)].push_back(i);
        if (waiting.empty()) return;
        for (std::size_t i = 0; i < m_after.size(); ++i) {
            if (m_partner[i] != kNone) continue;
            const auto found = waiting.find(key(m_after[i]));
            if (found == waiting.end() || found->second.empty()) continue;
            m_partner[i] = found->second.back();
            m_taken[m_partner[i]] = true;
            found->second.pop_back();
        }
    }
    const Member* partner(std::size_t after) const {
        return m_partner[after] == kNone ? nullptr : &m_before[m_partner[after]];
    }
    bool taken(std::size_t before) const { return m_taken[before]; }

private:
    static constexpr auto kNone = static_cast<std::size_t>(-1);
    const std::vector<Member>& m_before;
    const std::vector<Member>& m_after;
    std::vector<std::size_t> m_partner;
    std::vector<bool> m_taken;
};

void put(std::string& key, const AcGePoint3d& p) {
    for (const double value : {p.x, p.y, p.z}) put(key, value, kPlaceStep);
}

/// What a member may be known by. Plates and rows go without a place.
std::string byMarca(const Member& m) {
    std::string key = m.kind;
    put(key, m.marca);
    return m.marca.empty() ? std::string() : key;
}
std::string bySteel(const Member& m) { return m.kind + m.steel; }
std::string byHandle(const Member& m) {
    std::string key = m.kind;
    put(key, static_cast<long long>(m.peca.handle().value()));
    return m.peca.isNull() ? std::string() : key;
}
/// One end and the direction from there.
std::string byEnd(const Member& m, const AcGePoint3d& end, const AcGePoint3d& other) {
    std::string key = m.kind;
    put(key, end);
    const AcGeVector3d along = other - end;
    put(key, std::atan2(along.y, along.x), 1e-3);
    return m.chapa ? std::string() : key;
}
std::string byStart(const Member& m) { return byEnd(m, m.start, m.end); }
std::string byFarEnd(const Member& m) { return byEnd(m, m.end, m.start); }

template <class... Keys>
auto all(Keys... keys) {
    return [=](const Member& m) {
        std::string whole;
        for (const std::string& part : {keys(m)...}) {
            if (part.empty()) return std::string();
            whole += part;
        }
        return whole;
    };
}

void matchAll(Matcher& matcher) {
    // From what leaves no doubt to what is likely.
    matcher.match(all(byMarca, bySteel, byStart));
    matcher.match(all(bySteel, byStart));
    matcher.match(all(byMarca, byStart));
    matcher.match(all(byMarca, byFarEnd));
    matcher.match(all(byHandle, byStart));
    matcher.match(all(byHandle, byFarEnd));
    matcher.match(all(byHandle, byMarca, bySteel));
    matcher.match(all(byMarca, bySteel));
    matcher.match(all(byHandle, bySteel));
    matcher.match(byStart);
    matcher.match(byFarEnd);
    matcher.match(all(byHandle, byMarca));
    matcher.match(byMarca);
    matcher.match(bySteel);
}

bool moved(const Member& before, const Member& after) {
    if (before.chapa) return false;
    // A cut at one end leaves the other one.
    const bool other = before.steel != after.steel;
    const bool start = before.start.distanceTo(after.start) > kSamePlace;
    const bool end = before.end.distanceTo(after.end) > kSamePlace;
    return other ? start && end : start || end;
}

/// Changes gathered line by line.
class Changes {
public:
    Changes(const std::vector<Member>& before, const std::vector<Member>& after) {
        for (const Member& m : before) m_rows[rowKeyOf(m)].was += m.count;
        for (const Member& m : after) m_rows[rowKeyOf(m)].is += m.count;
    }

    void pair(const Member& before, const Member& after) {
        const std::wstring text = differenceOf(before, after);
        const std::wstring way = moved(before, after) ? movementOf(before, after) : std::wstring();
        const double kg = (after.kg - before.kg) * static_cast<double>(before.count);
        if (!text.empty())
            add(Difference::Changed, after.marca, way.empty() ? text : text + L", " + way,
                after.count, kg, &before, &after);
        else if (!way.empty())
            add(Difference::Moved, after.marca, way, after.count, kg, &before, &after);
        if (before.count != after.count) {
            Row& row = m_rows[rowKeyOf(after)];
            if (text.empty()) row.before.push_back(before);
            row.after.push_back(after);
            row.more += after.count - before.count;
        }
    }
    /// One that only the later drawing has: another of its row, or a new one.
    void fresh(const Member& m) {
        Row& row = m_rows[rowKeyOf(m)];
        if (row.was == 0 || m.marca.empty()) {
            add(Difference::New, m.marca, nameWithin(m), m.count,
                m.kg * static_cast<double>(m.count), nullptr, &m);
            return;
        }
        row.after.push_back(m);
        row.more += m.count;
    }
    void gone(const Member& m) {
        Row& row = m_rows[rowKeyOf(m)];
        if (row.is == 0 || m.marca.empty()) {
            add(Difference::Gone, m.marca, nameWithin(m), m.count,
                -m.kg * static_cast<double>(m.count), &m, nullptr);
            return;
        }
        row.before.push_back(m);
        row.more -= m.count;
    }
    std::vector<MemberChange> take() {
        for (Row& row : m_rows | std::views::values) addQuantity(row);
        std::ranges::stable_sort(m_changes, [](const MemberChange& a, const MemberChange& b) {
            if (a.kind != b.kind) return a.kind < b.kind;
            if (a.marca != b.marca) return marcaBefore(a.marca, b.marca);
            return a.text < b.text;
        });
        return std::move(m_changes);
    }

private:
    /// Members of one mark and steel.
    struct Row {
        long long was = 0;
        long long is = 0;
        long long more = 0;  ///< by which it counts more, changed members left out
        std::vector<Member> before;
        std::vector<Member> after;
    };
    static std::string rowKeyOf(const Member& m) {
        std::string key = bySteel(m);
        put(key, m.marca);
        return key;
    }
    void addQuantity(Row& row) {
        if (row.more == 0) return;
        const Member& one = row.after.empty() ? row.before.front() : row.after.front();
        const bool plain = row.is - row.was == row.more;
        const std::wstring text =
            plain ? L"quantidade " + std::to_wstring(row.was) + L" -> " + std::to_wstring(row.is)
                  : L"quantidade " + signedWords(row.more) + L", agora " + std::to_wstring(row.is);
        MemberChange change{Difference::Quantity,
                            one.marca,
                            text,
                            row.more,
                            one.kg * static_cast<double>(row.more),
                            std::move(row.before),
                            std::move(row.after)};
        m_changes.push_back(std::move(change));
    }
    void add(Difference kind, const std::wstring& marca, const std::wstring& text, long long count,
             double kg, const Member* before, const Member* after) {
        const auto [place, isNew] = m_places.try_emplace({kind, marca, text}, m_changes.size());
        if (isNew) m_changes.push_back({kind, marca, text, 0, 0.0, {}, {}});
        MemberChange& change = m_changes[place->second];
        change.count += count;
        change.kg += kg;
        if (before != nullptr) change.before.push_back(*before);
        if (after != nullptr) change.after.push_back(*after);
    }

    std::unordered_map<std::string, Row> m_rows;
    std::map<std::tuple<Difference, std::wstring, std::wstring>, std::size_t> m_places;
    std::vector<MemberChange> m_changes;
};

}  // namespace

std::vector<Member> membersOf(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    std::vector<Member> members;
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcRxClass* const kind = id.objectClass();
        if (kind == nullptr || !kind->isDerivedFrom(ZpObject::desc())) return;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) return;
        const AcDbObjectId record = book.rowOf(id);
        const long long counts = book.counts(id);
        const bool listed = !record.isNull();
        // Further views, and plates that follow from a bar in no list.
        if (listed ? counts == 0 : !edit::ownerOf(*peca.object()).isNull()) return;
        Member m = memberOf(*peca.object());
        m.listed = listed;
        m.count = std::max(counts, 1LL);
        if (listed) m.marca = book.row(record)->marca;
        members.push_back(std::move(m));
    });
    for (const MaterialList& list : materialLists(drawing))
        for (const AcDbObjectId& record : book.records(list.id)) {
            const Book::Row* const row = book.row(record);
            if (row == nullptr || !row->pecas.empty()) continue;
            const std::optional<Linha> stored = storedRow(record);
            if (stored && !stored->tied) members.push_back(memberOf(*stored));
        }
    return members;
}

std::vector<MemberChange> compareMembers(const std::vector<Member>& before,
                                         const std::vector<Member>& after) {
    Matcher matcher(before, after);
    matchAll(matcher);
    Changes changes(before, after);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (const Member* const partner = matcher.partner(i))
            changes.pair(*partner, after[i]);
        else
            changes.fresh(after[i]);
    }
    for (std::size_t i = 0; i < before.size(); ++i)
        if (!matcher.taken(i)) changes.gone(before[i]);
    return changes.take();
}

}  // namespace zp::matlist
