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

/// One row of which a command changed pieces. Its further views show the member that all its pieces
/// are: they follow when none of these stays as it was, a piece that was broken the older part.
class ViewsAlong {
public:
    ViewsAlong(AcDbObjectId row, const std::vector<edit::Change>& changes) : m_row(row) {
        for (const edit::Change& change : changes) m_changes.emplace(change.peca, &change);
    }
    void run() {
        std::vector<AcDbObjectId> counted;
        std::vector<AcDbObjectId> views;
        for (const AcDbObjectId& id : Book::of(*m_row.database()).row(m_row)->pecas) {
            if (isChapa(id)) continue;
            const ReadPeca peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) continue;
            (member::of(*peca.object()).count > 0 ? counted : views).push_back(id);
        }
        if (views.empty()) return;
        std::ranges::sort(counted, Older());
        const auto changed = [&](AcDbObjectId id) { return changeOf(id) != nullptr; };
        const auto changes = std::ranges::count_if(counted, changed);
        const auto& leaders = changes > 0 ? counted : views;
        const auto leader = std::ranges::find_if(leaders, changed);
        if (changes > 0 ? changes < std::ssize(counted) : counted.size() > 1) {
            // What was set to what it was is like the others, a view that has followed like its
            // piece, and a piece that changed may have its views along.
            const bool same = std::ranges::any_of(
                counted, [&](AcDbObjectId id) { return !changed(id) && alike(id, *leader); });
            const bool along = changes > 0 && std::ranges::any_of(views, [&](AcDbObjectId id) {
                                   return changed(id) && alike(id, *leader);
                               });
            if (!same && !along) sayApart(static_cast<int>(views.size()), changes > 0);
            return;
        }
        follow(*leader, views, m_locked);
        int locked = 0;
        if (changes == 0) follow(*leader, counted, locked);
        if (locked > 0)
            acutPrintf(
                L"\n%ls: só a vista mudou: a peça está em camada bloqueada; desbloqueie a camada e "
                L"use EDITAPERFIL.\n",
                marcaOf(m_row).c_str());
        say();
    }

private:
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
    void follow(AcDbObjectId leader, const std::vector<AcDbObjectId>& drawn, int& locked) {
        for (const AcDbObjectId& id : drawn)
            if (id != leader) showLike(id, *changeOf(leader), locked);
    }
    void showLike(AcDbObjectId id, const edit::Change& change, int& locked) {
        if (alike(id, change.peca)) return;
        if (edit::onLockedLayer(id)) {
            ++locked;
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
    /// Other pieces of the row are as they were.
    void sayApart(int count, bool piece) const {
        const std::wstring marca = marcaOf(m_row);
        if (piece)
            acutPrintf(
                L"\n%ls: %ls %ls as peças que não mudaram; a que mudou não tem vistas: "
                L"desenhe-as com VISTAS.\n",
                marca.c_str(), views(count).c_str(),
                count == 1 ? L"continua mostrando" : L"continuam mostrando");
        else
            acutPrintf(
                L"\n%ls: só a vista mudou, a linha tem várias peças. Mude-as com "
                L"EDITAPERFIL.\n",
                marca.c_str());
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
