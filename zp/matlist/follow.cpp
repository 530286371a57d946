// SPDX-License-Identifier: MIT
// At the end of each command: rows, marks and tables after their pieces.
#include "zp/matlist/follow.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <set>
#include <string>

#include "aced.h"
#include "acedads.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/matlist/book.h"
#include "zp/matlist/columns.h"
#include "zp/matlist/shared_edits.h"
#include "zp/matlist/table.h"
#include "zp/matlist/zpmarca.h"
#include "zp/objects/member.h"

namespace zp::matlist {
namespace {

/// How near two heights are to be one, mm.
constexpr double kSameHeight = 1e-6;
/// Lines about single rows that one command prints; what is beyond is counted.
constexpr std::size_t kMostLines = 12;

/// "U 200x75x3, 2162 mm".
std::wstring wordsFor(const Linha& row) {
    return designationOf(row) + L", " + texts::withComma(row.comprimento, 1) + L" mm";
}

bool sameRow(const Linha& a, const Linha& b) {
    return a.quantidade == b.quantidade && a.descricao == b.descricao &&
           a.dimensoes == b.dimensoes && a.material == b.material &&
           a.comprimento == b.comprimento && a.pesoUnitario == b.pesoUnitario &&
           a.pesoTotal == b.pesoTotal && a.areaPintura == b.areaPintura;
}

/// What one command did to the lists of one drawing, followed.
class Followed {
public:
    Followed(AcDbDatabase& drawing, Book& book, Book::Changes changes)
        : m_drawing(drawing), m_book(book), m_changes(std::move(changes)) {
        for (const AcDbObjectId& id : m_changes.objects) {
            const AcRxClass* kind = id.objectClass();
            if (kind == nullptr) continue;
            if (kind->isDerivedFrom(ZpMarca::desc())) m_marcas.insert(id);
            if (kind->isDerivedFrom(ZpObject::desc())) m_pecas.insert(id);
        }
    }

    void run() {
        // Before any mark is written to: where its tip stood is forgotten then.
        goneWithTheirPecas();
        carryMarcas();
        adoptStrangers();
        partRows();
        nameMarcas();
        writeRows();
        say();
        drawTables();
    }
    void settle() {
        writeRows();
        drawTables();
    }

private:
    void adoptStrangers();
    void partRows();
    AcDbObjectId referenceOf(const Ids& pecas) const;
    void part(AcDbObjectId peca, AcDbObjectId from);
    AcDbObjectId equalRow(const ZpObject& peca, AcDbObjectId from);
    void goneWithTheirPecas();
    bool moveToNextChapa(AcDbObjectId marca, AcDbObjectId gone);
    bool standOn(AcDbObjectId marca, AcDbObjectId peca);
    void carryMarcas();
    AcGeVector3d carry(AcDbObjectId marca, const ZpObject& peca, const AcDbObjectId& barMarca);
    void nameMarcas();
    void writeRows();
    void say();
    void drawTables();
    std::set<AcDbObjectId, Older> touched() const;

    AcDbDatabase& m_drawing;
    Book& m_book;
    Book::Changes m_changes;
    Ids m_pecas;
    Ids m_marcas;
    std::map<AcDbObjectId, AcDbObjectId, Older> m_leaving;  ///< pieces and their rows
    std::set<AcDbObjectId, Older> m_said;                   ///< rows that a line of its own told of
    std::vector<std::wstring> m_lines;
    /// How far the text of a bar's mark went, by mark.
    std::map<AcDbObjectId, AcGeVector3d, Older> m_steps;
};

/// Marks that were erased with their piece or went to the next plate, by piece; they come back with
/// it.
std::map<AcDbObjectId, std::vector<AcDbObjectId>>& erasedMarcas() {
    static std::map<AcDbObjectId, std::vector<AcDbObjectId>> all;
    return all;
}

/// The row of equal pieces, in the list of the row `from` where there is one: steel does not change
/// its list in silence.
AcDbObjectId Followed::equalRow(const ZpObject& peca, AcDbObjectId from) {
    const Book::Row* const former = m_book.row(from);
    for (const AcDbObjectId& id : m_book.likely(peca)) {
        // One that is about to leave its row says nothing of it.
        if (id == peca.objectId() || m_leaving.contains(id)) continue;
        const Book::Row* const row = m_book.row(m_book.rowOf(id));
        const AcDbObjectPointer<ZpObject> other(id, AcDb::kForRead);
        if (row != nullptr && row->alive && (former == nullptr || former->list == row->list) &&
            other.object() != nullptr && member::same(peca, *other.object()))
            return m_book.rowOf(id);
    }
    return {};
}

/// Pieces that came from another drawing, where they were listed, or back when their row was gone.
void Followed::adoptStrangers() {
    OldRows oldRows;
    for (const AcDbObjectId& id : m_pecas) {
        AcDbObjectId row;
        int count = 1;
        {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr) continue;
            const Member& m = member::of(*peca.object());
            const Book::Row* const known = m_book.row(m.row);
            if (!m.listed || (known != nullptr && known->alive)) continue;
            count = m.count;
            row = equalRow(*peca.object(), {});
        }
        const bool fresh = row.isNull();
        if (fresh) row = rowOfItsOwn(id, {});
        if (row.isNull() || !enterRow(id, row, count)) continue;
        // What was cut and is pasted comes back under its mark.
        const AcDbObjectId old = fresh ? oldRows.like(row) : AcDbObjectId();
        if (!old.isNull() && enterRow(id, old, count)) {
            dropEmptied(row);
            row = old;
        }
        if (!m_said.insert(row).second) continue;
        if (const std::optional<Linha> now = rowAt(row))
            m_lines.push_back(now->marca +
                              (fresh && row != old ? L": marca nova (" : L": peça igual (") +
                              wordsFor(*now) + L").");
    }
}

AcDbObjectId Followed::referenceOf(const Ids& pecas) const {
    const auto rank = [&](AcDbObjectId id) {
        return (countOf(id) == 0 ? 4 : 0) + (chapaInSecao(id) ? 2 : 0) +
               (m_pecas.contains(id) ? 1 : 0);
    };
    return *std::ranges::min_element(pecas, {}, rank);
}

/// A row stands for one member: pieces that became another one leave it.
void Followed::partRows() {
    std::map<AcDbObjectId, std::vector<AcDbObjectId>, Older> byRow;
    for (const AcDbObjectId& id : m_pecas)
        if (const AcDbObjectId row = m_book.rowOf(id); !row.isNull() && !id.isErased())
            byRow[row].push_back(id);
    for (const auto& [row, changed] : byRow) {
        const Ids& all = m_book.row(row)->pecas;
        if (all.size() < 2) continue;
        // What counts and was not touched says what the row is, else the oldest that counts: views
        // on a locked layer may still show what was.
        const AcDbObjectId reference = referenceOf(all);
        const AcDbObjectPointer<ZpObject> model(reference, AcDb::kForRead);
        if (model.object() == nullptr) continue;
        for (const AcDbObjectId& id : changed) {
            if (id == reference || chapaInSecao(id)) continue;
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() != nullptr && !member::same(*model.object(), *peca.object()))
                m_leaving.emplace(id, row);
        }
    }
    while (!m_leaving.empty()) {
        const auto [id, row] = *m_leaving.begin();
        part(id, row);
        m_leaving.erase(id);
    }
}

void Followed::part(AcDbObjectId id, AcDbObjectId from) {
    AcDbObjectId row;
    {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        row = equalRow(*peca.object(), from);
    }
    const bool fresh = row.isNull() || row == from;
    if (fresh) row = rowOfItsOwn(id, from);
    m_said.insert(from);
    if (row.isNull() || !enterRow(id, row, countOf(id)) || !m_said.insert(row).second) return;
    if (const std::optional<Linha> now = rowAt(row))
        m_lines.push_back(now->marca + (fresh ? L": marca nova (" : L": peça igual (") +
                          wordsFor(*now) + L"; era " + marcaOf(from) + L").");
}

/// Marks go with an erased piece and come back with it; that of a row of plates stays while one of
/// them stands.
void Followed::goneWithTheirPecas() {
    for (const AcDbObjectId& id : m_pecas) {
        auto& gone = erasedMarcas();
        if (!id.isErased()) {
            const auto back = m_changes.returned.contains(id) ? gone.find(id) : gone.end();
            if (back == gone.end()) continue;
            for (const AcDbObjectId& marca : back->second) {
                if (!marca.isErased()) {
                    if (m_book.rowOf(m_book.marca(marca)->peca) == m_book.rowOf(id))
                        standOn(marca, id);
                    continue;
                }
                const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite, true);
                if (opened.object() != nullptr)
                    (void)opened->erase(Adesk::kFalse);  // open for write and erased
            }
            gone.erase(back);
            continue;
        }
        gone.erase(id);
        for (const AcDbObjectId& marca : m_book.marcasOf(id)) {
            if (moveToNextChapa(marca, id)) {
                gone[id].push_back(marca);
                continue;
            }
            const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
            if (opened.object() != nullptr && opened->erase() == Acad::eOk)
                gone[id].push_back(marca);
        }
    }
}

bool Followed::moveToNextChapa(AcDbObjectId marca, AcDbObjectId gone) {
    AcDbObjectId bar;
    {
        const AcDbObjectPointer<ZpChapa> chapa(gone, AcDb::kForRead, true);
        if (chapa.object() == nullptr) return false;
        bar = edit::ownerOf(*chapa.object());
    }
    const AcDbObjectPointer<ZpObject> owner(bar, AcDb::kForRead);
    if (owner.object() == nullptr) return false;
    const AcDbObjectId row = m_book.rowOf(gone);
    return std::ranges::any_of(edit::chapasOf(*owner.object()), [&](AcDbObjectId next) {
        return next != gone && m_book.rowOf(next) == row && standOn(marca, next);
    });
}

/// The mark stands for this piece from now on, on the same place of it.
bool Followed::standOn(AcDbObjectId marca, AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr || !tieMarca(marca, id)) return false;
    const AcDbObjectPointer<ZpMarca> opened(marca, AcDb::kForWrite);
    if (opened.object() == nullptr) return false;
    const AcGeVector3d step =
        Book::placeOf(m_book.marca(marca)->tip, *peca.object()) - opened->tip();
    opened->moveBy(step, step);
    return true;
}

/// Tips on the same place of their pieces, texts at the same offset. What the user moved himself
/// stays where he put it.
void Followed::carryMarcas() {
    for (const AcDbObjectId& id : m_marcas) m_book.learnTip(id);
    // Bars before plates, whose marks stand as high as those of their bars.
    for (const bool chapas : {false, true})
        for (const AcDbObjectId& id : m_pecas) {
            const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
            if (peca.object() == nullptr || peca->isKindOf(ZpChapa::desc()) != chapas) continue;
            const std::vector<AcDbObjectId> ofBar =
                chapas ? m_book.marcasOf(edit::ownerOf(*peca.object()))
                       : std::vector<AcDbObjectId>();
            for (const AcDbObjectId& marca : m_book.marcasOf(id))
                if (!m_marcas.contains(marca))
                    m_steps[marca] = carry(marca, *peca.object(),
                                           ofBar.empty() ? AcDbObjectId() : ofBar.front());
        }
}

/// How far the text went.
AcGeVector3d Followed::carry(AcDbObjectId id, const ZpObject& peca, const AcDbObjectId& barMarca) {
    const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
    if (marca.object() == nullptr) return {};
    const AcGePoint3d tip = Book::placeOf(m_book.marca(id)->tip, peca);
    AcGeVector3d step = tip - marca->tip();
    AcGeVector3d textStep = step;
    if (const auto bar = m_steps.find(barMarca); bar != m_steps.end()) {
        const AcDbObjectPointer<ZpMarca> other(barMarca, AcDb::kForRead);
        const AcGeVector3d up = Access::of(peca).frame().y;
        const AcGePoint3d before = other->textAt() - bar->second;
        if (std::abs((marca->textAt() - before).dotProduct(up)) <= kSameHeight)
            textStep += up * (bar->second.dotProduct(up) - step.dotProduct(up));
    }
    if (step.length() == 0.0 && textStep.length() == 0.0) return {};
    if (marca->upgradeOpen() != Acad::eOk) return {};
    marca->moveBy(step, textStep);
    return textStep;
}

/// What came back, or was copied, says the mark that its row has by now.
void Followed::nameMarcas() {
    Ids marcas = m_marcas;
    for (const AcDbObjectId& id : m_pecas)
        for (const AcDbObjectId& marca : m_book.marcasOf(id)) marcas.insert(marca);
    for (const AcDbObjectId& id : marcas) {
        const AcDbObjectPointer<ZpMarca> marca(id, AcDb::kForRead);
        const std::wstring text =
            marca.object() != nullptr ? marcaOf(m_book.rowOf(marca->peca())) : std::wstring();
        if (!text.empty() && text != marca->marca() && marca->upgradeOpen() == Acad::eOk)
            marca->setMarca(text);
    }
}

std::set<AcDbObjectId, Older> Followed::touched() const {
    std::set<AcDbObjectId, Older> rows = m_changes.fresh;
    for (const auto& [row, before] : m_changes.before) rows.insert(row);
    for (const AcDbObjectId& id : m_pecas)
        if (const AcDbObjectId row = m_book.rowOf(id); !row.isNull()) rows.insert(row);
    return rows;
}

void Followed::writeRows() {
    const Book::Changes ours = m_book.takeChanges();
    m_changes.before.insert(ours.before.begin(), ours.before.end());
    m_changes.fresh.insert(ours.fresh.begin(), ours.fresh.end());
    m_changes.lists.insert(ours.lists.begin(), ours.lists.end());
    for (const AcDbObjectId& record : touched()) {
        const std::optional<Linha> stored = storedRow(record);
        const std::optional<Linha> now = rowAt(record);
        if (!stored || !now || !stored->tied || sameRow(*stored, *now)) continue;
        (void)rewrite(record, *now);  // what cannot be written stays as it was
    }
}

void Followed::say() {
    for (const auto& [record, before] : m_changes.before) {
        const Book::Row* const row = m_book.row(record);
        if (row == nullptr || !row->alive || row->quantidade == before ||
            m_changes.fresh.contains(record) || (m_said.contains(record) && row->quantidade > 0))
            continue;
        m_lines.push_back(row->marca + L": " + std::to_wstring(row->quantidade) +
                          (row->quantidade == 1 ? L" peça (era " : L" peças (era ") +
                          std::to_wstring(before) + L").");
    }
    const std::size_t shown = m_lines.size() <= kMostLines ? m_lines.size() : kMostLines - 1;
    for (std::size_t i = 0; i < shown; ++i) acutPrintf(L"\n%ls\n", m_lines[i].c_str());
    if (shown < m_lines.size())
        acutPrintf(L"\nMais %d linhas da lista mudaram.\n",
                   static_cast<int>(m_lines.size() - shown));
}

void Followed::drawTables() {
    // What was written here and what the command itself wrote.
    Ids lists = m_changes.lists;
    lists.merge(m_book.takeChanges().lists);
    resbuf automatic{};
    if (lists.empty() || (acedGetVar(L"LISTAAUTO", &automatic) == RTNORM &&
                          automatic.restype == RTSHORT && automatic.resval.rint == 0))
        return;
    for (const MaterialList& list : materialLists(m_drawing))
        if (lists.contains(list.id) && hasTable(list.header)) (void)drawTable(list);
}

void follow(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    if (book.ownWork()) return;
    Book::Changes changes = book.takeChanges();
    if (changes.objects.empty()) return;
    const Book::OwnWork own(book);
    Followed(drawing, book, std::move(changes)).run();
}

/// Hears of commands; outside of them lists follow at each change.
class Keeper : public AcEditorReactor {
public:
    Keeper() {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->addReactor(this);
    }
    ~Keeper() override {
        if (AcEditor* editor = acedEditor; editor != nullptr) editor->removeReactor(this);
    }
    void commandWillStart(const ACHAR*) override { ++m_commands; }
    void commandEnded(const ACHAR*) override { end(); }
    void commandCancelled(const ACHAR*) override { end(); }
    void commandFailed(const ACHAR*) override { end(); }
    bool inCommand() const { return m_commands > 0; }

private:
    void end() {
        m_commands = std::max(0, m_commands - 1);
        AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
        if (m_commands == 0 && drawing != nullptr) follow(*drawing);
    }
    int m_commands = 0;
};

// The host calls reactors by pointer, without a context of the module's own.
std::unique_ptr<Keeper> g_keeper;

}  // namespace

void forgetErased() { erasedMarcas().clear(); }

void startFollowing() {
    g_keeper = std::make_unique<Keeper>();
    Book::setListener([](AcDbDatabase& drawing) {
        if (!g_keeper->inCommand()) follow(drawing);
    });
    startSharing();
    member::setMarcaReader(marcaOf);
}

void stopFollowing() {
    Book::setListener(nullptr);
    g_keeper.reset();
    stopSharing();
    member::setMarcaReader(nullptr);
    Book::forgetAll();
    erasedMarcas().clear();
}

void settle(AcDbDatabase& drawing) {
    Book& book = Book::of(drawing);
    const Book::OwnWork own(book);
    Followed(drawing, book, book.takeChanges()).settle();
}

}  // namespace zp::matlist
