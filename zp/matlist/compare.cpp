// SPDX-License-Identifier: MIT
// Members of two drawings, and which of them are the same ones.
#include "zp/matlist/compare.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <map>
#include <optional>
#include <ranges>
#include <tuple>
#include <unordered_map>

#include "dbents.h"
#include "zp/matlist/book.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/compare_words.h"
#include "zp/matlist/listing.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/member.h"
#include "zp/objects/steel.h"

namespace zp::matlist {
namespace {

/// Places nearer than this are one, mm; another program writes fewer digits than it read.
constexpr double kSameStand = 0.05;
/// Steps in which lengths, sizes, slopes and places are told apart when they are looked up.
constexpr double kLengthStep = 0.01;
constexpr double kSizeStep = 1e-4;
constexpr double kPlaceStep = 1.0;
constexpr double kAngleStep = 1e-3;

/// Of what members are looked up by: 64 bits, so that two of a job's members come out alike by
/// chance once in a thousand million drawings.
class Hash {
public:
    Hash& put(long long value) {
        m_hash = (m_hash ^ static_cast<std::uint64_t>(value)) * 0x9E3779B97F4A7C15U;
        m_hash ^= m_hash >> 29U;
        m_hash *= 0xBF58476D1CE4E5B9U;
        m_hash ^= m_hash >> 32U;
        return *this;
    }
    Hash& put(double value, double step) { return put(std::llround(value / step)); }
    Hash& put(std::wstring_view text) {
        put(static_cast<long long>(text.size()));
        for (const wchar_t c : text) put(static_cast<long long>(c));
        return *this;
    }
    std::uint64_t value() const { return m_hash; }

private:
    std::uint64_t m_hash = 0x2545F4914F6CDD1DU;
};

/// `ofDrawing` is the steel of pieces that have none of their own.
std::uint64_t steelHashOf(const ZpObject& peca, const std::wstring& ofDrawing) {
    const Peca& p = Access::of(peca);
    const std::wstring& grade = member::of(peca).grade;
    Hash hash;
    hash.put(p.tipoBarra)
        .put(grade.empty() ? ofDrawing : grade)
        .put(peca.getComprimentoReal(), kLengthStep);
    if (p.chapa()) return hash.put(p.actual[0], kSizeStep).put(p.actual[1], kSizeStep).value();
    hash.put(p.kgMetro(), kSizeStep);
    for (const Corte& corte : p.cortes) hash.put(corte.x, kSizeStep).put(corte.y, kSizeStep);
    const Lacing& lacing = member::of(peca).lacing;
    for (const double value : {lacing.A, lacing.C, lacing.L1}) hash.put(value, kLengthStep);
    hash.put(lacing.n).put(lacing.planes);
    const secao::RoleValues values = p.roles();
    for (std::size_t i = 0; i < values.v.size(); ++i) {
        const auto role = static_cast<secao::Role>(i);
        if (role != secao::Role::L && role != secao::Role::Giro) hash.put(values.v[i], kSizeStep);
    }
    return hash.value();
}

/// The member goes by this mark.
void call(JobMember& m, std::wstring marca) {
    m.name = marca.empty() ? 0 : Hash().put(marca).put(m.chapa ? 1LL : 0LL).value();
    m.marca = std::move(marca);
}

JobMember memberOf(const ZpObject& peca, const std::wstring& ofDrawing) {
    const Peca& p = Access::of(peca);
    JobMember m;
    m.peca = peca.objectId();
    m.block = peca.ownerId();
    m.mirrored = p.mirrored;
    m.chapa = p.chapa();
    m.kg = peca.getPeso();
    m.start = p.start;
    m.end = p.end();
    m.vista = p.vista;
    if (const double* const turn = p.value(secao::Role::Giro)) m.turn = *turn;
    m.kind = Hash().put(static_cast<int>(p.kind)).value();
    m.steel = steelHashOf(peca, ofDrawing);
    return m;
}

/// A row that nothing is drawn for.
JobMember memberOf(const Linha& row) {
    JobMember m;
    m.count = row.quantidade;
    m.listed = true;
    m.chapa = true;
    call(m, row.marca);
    m.kg = row.pesoUnitario;
    m.kind = Hash().put(row.descricao).value();
    m.steel = Hash().put(row.dimensoes).put(row.material).put(row.comprimento, kLengthStep).value();
    m.row = wordsOf(row);
    return m;
}

/// Members of the earlier drawing that wait for theirs of the later one.
class Matcher {
public:
    Matcher(const std::vector<JobMember>& before, const std::vector<JobMember>& after)
        : m_before(before),
          m_after(after),
          m_partner(after.size(), kNone),
          m_taken(before.size()) {}

    /// `key` tells what has to be alike, nothing where the member is not to be matched by it. In
    /// the order of the drawings where several are. O(n log n).
    template <class Key>
    void match(Key key) {
        Keyed before;
        for (std::size_t i = 0; i < m_before.size(); ++i)
            if (!m_taken[i])
                if (const std::optional<std::uint64_t> k = key(m_before[i]))
                    before.emplace_back(*k, i);
        if (before.empty()) return;
        Keyed after;
        for (std::size_t i = 0; i < m_after.size(); ++i)
            if (m_partner[i] == kNone)
                if (const std::optional<std::uint64_t> k = key(m_after[i]))
                    after.emplace_back(*k, i);
        std::ranges::sort(before);
        std::ranges::sort(after);
        for (auto b = before.begin(), a = after.begin(); b != before.end() && a != after.end();) {
            if (b->first == a->first) {
                m_partner[a->second] = b->second;
                m_taken[b->second] = true;
                ++a, ++b;
            } else {
                b->first < a->first ? ++b : ++a;
            }
        }
    }
    const JobMember* partner(std::size_t after) const {
        return m_partner[after] == kNone ? nullptr : &m_before[m_partner[after]];
    }
    bool taken(std::size_t before) const { return m_taken[before]; }

private:
    using Keyed = std::vector<std::pair<std::uint64_t, std::size_t>>;
    static constexpr auto kNone = static_cast<std::size_t>(-1);
    const std::vector<JobMember>& m_before;
    const std::vector<JobMember>& m_after;
    std::vector<std::size_t> m_partner;
    std::vector<bool> m_taken;
};

/// What a member may be known by; but for its mark, within its kind of section. Plates and rows go
/// without a place.
using Known = std::optional<std::uint64_t>;

Known byMarca(const JobMember& m) { return m.name != 0 ? Known(m.name) : Known(); }
Known byKind(const JobMember& m) { return m.kind; }
Known bySteel(const JobMember& m) {
    return Hash().put(static_cast<long long>(m.kind)).put(static_cast<long long>(m.steel)).value();
}
Known byHandle(const JobMember& m) {
    if (m.peca.isNull()) return {};
    return Hash()
        .put(static_cast<long long>(m.kind))
        .put(static_cast<long long>(m.peca.handle().value()))
        .value();
}
/// One end and the direction from there.
Known byEnd(const JobMember& m, const AcGePoint3d& end, const AcGePoint3d& other) {
    if (m.chapa) return {};
    const AcGeVector3d along = other - end;
    Hash hash;
    hash.put(static_cast<long long>(m.kind));
    for (const double value : {end.x, end.y, end.z}) hash.put(value, kPlaceStep);
    return hash.put(std::atan2(along.y, along.x), kAngleStep).value();
}
Known byStart(const JobMember& m) { return byEnd(m, m.start, m.end); }
Known byFarEnd(const JobMember& m) { return byEnd(m, m.end, m.start); }

template <class... Keys>
auto all(Keys... keys) {
    return [=](const JobMember& m) -> Known {
        Hash hash;
        for (const Known& part : {keys(m)...}) {
            if (!part) return {};
            hash.put(static_cast<long long>(*part));
        }
        return hash.value();
    };
}

void matchAll(Matcher& matcher) {
    // What stands as it stood, whatever its mark is; then a mark says who a member is; then the
    // place. The handle decides among several, where nobody gave them anew.
    matcher.match(all(byMarca, bySteel, byStart));
    matcher.match(all(bySteel, byStart));
    matcher.match(all(byMarca, byStart));
    matcher.match(all(byMarca, byFarEnd));
    matcher.match(all(byHandle, byMarca, bySteel));
    matcher.match(all(byMarca, bySteel));
    matcher.match(all(byHandle, byMarca));
    matcher.match(all(byMarca, byKind));
    matcher.match(byMarca);
    matcher.match(all(byHandle, bySteel));
    matcher.match(all(byHandle, byStart));
    matcher.match(all(byHandle, byFarEnd));
    matcher.match(byStart);
    matcher.match(byFarEnd);
    matcher.match(bySteel);
}

bool moved(const JobMember& before, const JobMember& after) {
    if (before.chapa) return false;
    if (before.mirrored != after.mirrored || turned(before, after)) return true;
    // A cut at one end leaves the other one.
    const bool other = before.steel != after.steel;
    const bool start = before.start.distanceTo(after.start) > kSameStand;
    const bool end = before.end.distanceTo(after.end) > kSameStand;
    return other ? start && end : start || end;
}

/// Changes gathered line by line.
class Changes {
public:
    Changes(const std::vector<JobMember>& before, const std::vector<JobMember>& after) {
        for (const JobMember& m : before) m_rows[rowKeyOf(m)].was += m.count;
        for (const JobMember& m : after) m_rows[rowKeyOf(m)].is += m.count;
    }

    void pair(const JobMember& before, const JobMember& after) {
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
    void fresh(const JobMember& m) {
        Row& row = m_rows[rowKeyOf(m)];
        if (row.was == 0 || m.marca.empty()) {
            add(Difference::New, m.marca, nameWithin(m), m.count,
                m.kg * static_cast<double>(m.count), nullptr, &m);
            return;
        }
        row.after.push_back(m);
        row.more += m.count;
    }
    void gone(const JobMember& m) {
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
        std::vector<JobMember> before;
        std::vector<JobMember> after;
    };
    static std::uint64_t rowKeyOf(const JobMember& m) {
        return Hash().put(static_cast<long long>(*bySteel(m))).put(m.marca).value();
    }
    void addQuantity(Row& row) {
        if (row.more == 0) return;
        const JobMember& one = row.after.empty() ? row.before.front() : row.after.front();
        const bool plain = row.is - row.was == row.more;
        const std::wstring text =
            plain ? L"quantidade " + std::to_wstring(row.was) + L" -> " + std::to_wstring(row.is)
                  : L"quantidade " + signedWords(row.more) + L", agora " + std::to_wstring(row.is);
        MemberChange change{Difference::Quantity,
                            one.marca,
                            one.marca.empty() ? nameWithin(one) + L", " + text : text,
                            row.more,
                            one.kg * static_cast<double>(row.more),
                            std::move(row.before),
                            std::move(row.after)};
        m_changes.push_back(std::move(change));
    }
    void add(Difference kind, const std::wstring& marca, const std::wstring& text, long long count,
             double kg, const JobMember* before, const JobMember* after) {
        const auto [place, isNew] = m_places.try_emplace({kind, marca, text}, m_changes.size());
        if (isNew) m_changes.push_back({kind, marca, text, 0, 0.0, {}, {}});
        MemberChange& change = m_changes[place->second];
        change.count += count;
        change.kg += kg;
        if (before != nullptr) change.before.push_back(*before);
        if (after != nullptr) change.after.push_back(*after);
    }

    std::unordered_map<std::uint64_t, Row> m_rows;
    std::map<std::tuple<Difference, std::wstring, std::wstring>, std::size_t> m_places;
    std::vector<MemberChange> m_changes;
};

}  // namespace

std::vector<JobMember> membersOf(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    const std::wstring steel = drawingSteel(drawing);
    std::vector<JobMember> members;
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
        JobMember m = memberOf(*peca.object(), steel);
        m.listed = listed;
        m.count = listed ? counts : book.insertions(peca->ownerId());
        if (m.count == 0) return;  // in a block that nobody inserted
        if (listed) call(m, book.row(record)->marca);
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

std::wstring lostMembersText(AcDbDatabase& before, const std::vector<JobMember>& membersBefore,
                             AcDbDatabase& after, const std::vector<JobMember>& membersAfter) {
    if (membersBefore.empty() == membersAfter.empty()) return {};
    AcDbDatabase& without = membersBefore.empty() ? before : after;
    bool shows = false;
    eachEntity(without, [&](AcDbObjectId) { shows = true; });
    if (!shows) return {};
    return std::wstring(L"O desenho ") + (membersBefore.empty() ? L"anterior" : L"posterior") +
           L" não tem peças, só figuras: é uma cópia R12, ou outro programa retirou os dados das "
           L"peças. Compare com o desenho de que a cópia foi feita.\n";
}

std::vector<MemberChange> compareMembers(const std::vector<JobMember>& before,
                                         const std::vector<JobMember>& after) {
    Matcher matcher(before, after);
    matchAll(matcher);
    Changes changes(before, after);
    for (std::size_t i = 0; i < after.size(); ++i) {
        if (const JobMember* const partner = matcher.partner(i))
            changes.pair(*partner, after[i]);
        else
            changes.fresh(after[i]);
    }
    for (std::size_t i = 0; i < before.size(); ++i)
        if (!matcher.taken(i)) changes.gone(before[i]);
    return changes.take();
}

}  // namespace zp::matlist
