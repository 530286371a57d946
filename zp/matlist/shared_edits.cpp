// SPDX-License-Identifier: MIT
// Edits of listed pieces: asking whom they are meant for, further views along with their member.
#include "zp/matlist/shared_edits.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "acedads.h"
#include "acutads.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/objects/ends.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

using ReadPeca = AcDbObjectPointer<ZpObject>;

/// One row of which a command changed pieces. Each further view shows the piece that counts and
/// stood nearest to it before, of a piece that was broken the older part; they follow one another.
class ViewsAlong {
public:
    ViewsAlong(AcDbObjectId row, const std::vector<edit::Change>& changes) : m_row(row) {
        for (const edit::Change& change : changes) m_changes.emplace(change.peca, &change);
    }
    void run() {
        std::vector<Drawn> counted;
        std::vector<Drawn> views;
        for (const AcDbObjectId& id : Book::of(*m_row.database()).row(m_row)->pecas) {
            if (isChapa(id)) continue;
            const ReadPeca peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) continue;
            (member::of(*peca.object()).count > 0 ? counted : views)
                .push_back(asItWas(*peca.object()));
        }
        if (views.empty()) return;
        std::ranges::sort(counted, Older(), &Drawn::id);
        std::map<AcDbObjectId, std::vector<AcDbObjectId>, Older> viewsOf;  // null: no piece counts
        for (const Drawn& view : views) viewsOf[nearestTo(view, counted)].push_back(view.id);
        int staying = 0;
        for (const auto& [peca, its] : viewsOf)
            if (!followIn(peca, its)) staying += static_cast<int>(its.size());
        say();
        if (staying > 0 && m_followed + m_locked == 0 && leftItsViews(counted, viewsOf))
            sayApart(staying);
    }

private:
    /// The axis before the command; of a section its place alone.
    struct Drawn {
        AcDbObjectId id;
        AcGePoint3d start;
        AcGeVector3d axis;
    };
    Drawn asItWas(const ZpObject& peca) const {
        const edit::Change* const change = changeOf(peca.objectId());
        const edit::Former was = change != nullptr ? change->before : edit::formerOf(peca);
        const double length = Access::of(peca).inSecao() ? 0.0 : was.comprimento;
        return {peca.objectId(), was.start, direction(was.angle) * length};
    }
    /// From the middle of the view to the axis of the piece; null where none counts.
    static AcDbObjectId nearestTo(const Drawn& view, const std::vector<Drawn>& counted) {
        const AcGePoint3d middle = view.start + view.axis * 0.5;
        const auto distance = [&](const Drawn& peca) {
            const double length2 = peca.axis.dotProduct(peca.axis);
            const AcGeVector3d to = middle - peca.start;
            const double t =
                length2 > 0.0 ? std::clamp(to.dotProduct(peca.axis) / length2, 0.0, 1.0) : 0.0;
            return (to - peca.axis * t).length();
        };
        const auto nearest = std::ranges::min_element(counted, {}, distance);
        return nearest != counted.end() ? nearest->id : AcDbObjectId();
    }
    /// The piece and its views become alike; false when none of them changed.
    bool followIn(AcDbObjectId peca, const std::vector<AcDbObjectId>& views) {
        const auto changed = [&](AcDbObjectId id) { return changeOf(id) != nullptr; };
        if (changed(peca)) {
            follow(peca, views);
            return true;
        }
        const auto leader = std::ranges::find_if(views, changed);
        if (leader == views.end()) return false;
        // The others show the piece, and it stays.
        if (!peca.isNull() && edit::onLockedLayer(peca) && !alike(peca, *leader)) {
            acutPrintf(
                L"\n%ls: só a vista mudou: a peça está em camada bloqueada; desbloqueie a camada e "
                L"use EDITAPERFIL.\n",
                marcaOf(m_row).c_str());
            return true;
        }
        follow(*leader, views);
        if (!peca.isNull()) follow(*leader, {peca});
        return true;
    }
    /// True when a piece without views became another one than those that stayed: what was set to
    /// what it was is like them.
    bool leftItsViews(const std::vector<Drawn>& counted, const auto& viewsOf) const {
        const auto stays = [&](const Drawn& d) { return changeOf(d.id) == nullptr; };
        const auto bare = std::ranges::find_if(
            counted, [&](const Drawn& d) { return !stays(d) && !viewsOf.contains(d.id); });
        return bare != counted.end() && std::ranges::none_of(counted, [&](const Drawn& other) {
                   return stays(other) && alike(bare->id, other.id);
               });
    }
    const edit::Change* changeOf(AcDbObjectId id) const {
        const auto found = m_changes.find(id);
        return found != m_changes.end() ? found->second : nullptr;
    }
    static bool alike(AcDbObjectId a, AcDbObjectId b) {
        const ReadPeca first(a, AcDb::kForRead);
        const ReadPeca second(b, AcDb::kForRead);
        return first.object() != nullptr && second.object() != nullptr &&
               ends::alike(*first.object(), *second.object());
    }
    void follow(AcDbObjectId leader, const std::vector<AcDbObjectId>& drawn) {
        for (const AcDbObjectId& id : drawn)
            if (id != leader) showLike(id, *changeOf(leader));
    }
    void showLike(AcDbObjectId id, const edit::Change& change) {
        if (alike(id, change.peca)) return;
        if (edit::onLockedLayer(id)) {
            ++m_locked;
            return;
        }
        const ReadPeca leader(change.peca, AcDb::kForRead);
        if (leader.object() == nullptr) return;
        const std::wstring reason = ends::showLike(id, *leader.object(), change.before);
        if (reason.empty())
            ++m_followed;
        else
            acutPrintf(L"\n%ls: uma vista não acompanha: %ls\n", marcaOf(m_row).c_str(),
                       reason.c_str());
    }
    static std::wstring views(int n) {
        return std::to_wstring(n) + (n == 1 ? L" vista" : L" vistas");
    }
    /// The views of other pieces of the row.
    void sayApart(int count) const {
        acutPrintf(
            L"\n%ls: %ls %ls as peças que não mudaram; a que mudou não tem vistas: "
            L"desenhe-as com VISTAS.\n",
            marcaOf(m_row).c_str(), views(count).c_str(),
            count == 1 ? L"continua mostrando" : L"continuam mostrando");
    }
    void say() const {
        const std::wstring marca = marcaOf(m_row);
        if (m_followed > 0)
            acutPrintf(L"\n%ls: %ls %ls a mudança.\n", marca.c_str(), views(m_followed).c_str(),
                       m_followed == 1 ? L"acompanha" : L"acompanham");
        if (m_locked > 0)
            acutPrintf(
                L"\n%ls: %ls não %ls a mudança, em camada bloqueada; desbloqueie a camada e "
                L"use EDITAPERFIL.\n",
                marca.c_str(), views(m_locked).c_str(),
                m_locked == 1 ? L"acompanha" : L"acompanham");
    }

    AcDbObjectId m_row;
    std::map<AcDbObjectId, const edit::Change*, Older> m_changes;
    int m_followed = 0;
    int m_locked = 0;
};

/// Asks whether an edit is meant for all drawings of a member or for one that leaves them; takes
/// views along where nobody is asked.
class Sharing : public edit::Listener {
public:
    void edited(AcDbObjectId, const edit::Former&) override {}
    void changedAlone(const std::vector<edit::Change>& changes) override {
        std::map<AcDbObjectId, std::vector<edit::Change>, Older> byRow;
        for (const edit::Change& change : changes)
            if (const AcDbObjectId row = recordOf(change.peca); !row.isNull())
                byRow[row].push_back(change);
        for (const auto& [row, its] : byRow) ViewsAlong(row, its).run();
    }
    std::optional<std::vector<AcDbObjectId>> alike(const ZpObject& peca,
                                                   const ZpObject& model) override {
        const AcDbObjectId record = recordOf(peca.objectId());
        // What a command makes knows nothing of the job.
        const bool known = Access::of(model).member != nullptr;
        const bool otherGrade = known && !member::of(model).grade.empty() &&
                                member::of(model).grade != member::of(peca).grade;
        const bool otherLacing = known && !Access::of(peca).inSecao() &&
                                 !(member::of(model).lacing == member::of(peca).lacing);
        if (record.isNull() || (member::sameSizes(peca, model) && !otherGrade && !otherLacing))
            return std::vector<AcDbObjectId>();
        const Ids& all = Book::of(*record.database()).row(record)->pecas;
        std::vector<AcDbObjectId> others;
        std::ranges::copy_if(all, std::back_inserter(others),
                             [&](AcDbObjectId id) { return id != peca.objectId(); });
        if (others.empty()) return others;
        const std::wstring question =
            L"\n" + marcaOf(record) + L" tem mais " + std::to_wstring(others.size()) +
            (others.size() == 1 ? L" peça" : L" peças") + L". Mudar [Todas/Só esta] <Todas>: ";
        for (;;) {
            // The second word has a blank, so the answer is read as it was typed.
            acedInitGet(RSG_OTHER, L"Todas _All");
            ACHAR answer[133] = L"";
            const int status = acedGetKword(question.c_str(), answer);
            if (status == RTNONE) return others;
            if (status != RTNORM) return {};
            const std::wstring word = texts::lower(texts::trimmed(answer));
            if (word == L"all" || word == L"todas") return others;
            for (const std::wstring_view whole : {L"só esta", L"so esta", L"_this"})
                if (whole.starts_with(word)) return std::vector<AcDbObjectId>();
            protocol::refuse(L"Responda Todas ou Só esta.");
        }
    }
};

Sharing g_sharing;  // kept by pointer in the entity library

}  // namespace

void startSharing() { edit::addListener(&g_sharing); }

void stopSharing() { edit::removeListener(&g_sharing); }

}  // namespace zp::matlist
