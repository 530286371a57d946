// SPDX-License-Identifier: MIT
// Two hundred commands in a row, drawn by lot: list, marks and pieces stay one story, and undo and
// redo tell it backwards and forwards.
#include <random>
#include <sstream>

#include "prancheta/base/text.h"
#include "prancheta/database/object_access.h"
#include "prancheta/editor/edit_group.h"
#include "prancheta/entities/block_content.h"
#include "tests/zp/lengths.h"
#include "tests/zp/matlist.h"
#include "zp/matlist/book.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/ends.h"
#include "zp/objects/member.h"

namespace {

using namespace zp_tests;

constexpr const wchar_t* kBlocks[] = {L"B1", L"B2"};

class Walk : public MaterialListTest, public testing::WithParamInterface<unsigned> {
protected:
    int draw(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_chance); }

    std::vector<AcDbObjectId> pecas() const {
        std::vector<AcDbObjectId> found;
        for (const AcDbObjectId& id : entities())
            if (id.objectClass()->isDerivedFrom(ZpObject::desc())) found.push_back(id);
        return found;
    }
    AcDbObjectId block(const wchar_t* name) const {
        return prancheta::ObjectAccess::lookup(editor->database().blockTableId(), name);
    }
    /// Pieces of the drawing and of its blocks, with how often each is shown.
    std::vector<std::pair<AcDbObjectId, int>> shown() const {
        std::vector<std::pair<AcDbObjectId, int>> found;
        for (const AcDbObjectId& id : pecas()) found.emplace_back(id, 1);
        for (const wchar_t* const name : kBlocks) {
            const AcDbObjectId record = block(name);
            if (record.isNull()) continue;
            int times = 0;
            for (const AcDbObjectId& id : entities())
                if (id.objectClass() == AcDbBlockReference::desc())
                    times += Read<AcDbBlockReference>(id)->blockTableRecord() == record ? 1 : 0;
            prancheta::forEachInBlock(record, [&](AcDbEntity& entity) {
                if (entity.isKindOf(ZpObject::desc())) found.emplace_back(entity.objectId(), times);
            });
        }
        return found;
    }
    /// Some of the drawing, marks among it.
    std::vector<AcDbObjectId> some() {
        std::vector<AcDbObjectId> picked;
        for (const AcDbObjectId& id : entities())
            if (draw(3) == 0) picked.push_back(id);
        return picked;
    }

    /// All that a user sees of pieces, marks and rows.
    std::string story() {
        std::ostringstream text;
        for (const AcDbObjectId& id : entities()) {
            if (id.objectClass()->isDerivedFrom(ZpObject::desc())) {
                const Read<ZpObject> p(id);
                const zp::Member& m = zp::member::of(*p.object());
                text << "peca " << id.handle().value() << ' ' << p->getComprimentoReal() << ' '
                     << zp::cortes::degreesOf(zp::Access::of(*p.object()), 1) << ' '
                     << p->getAltura() << ' ' << m.listed << ' ' << m.count << '\n';
            } else if (id.objectClass()->isDerivedFrom(ZpMarca::desc())) {
                const Read<ZpMarca> m(id);
                text << "marca " << id.handle().value() << ' ' << m->tip().x << ' ' << m->tip().y
                     << ' ' << m->textAt().x << ' ' << prancheta::toUtf8(m->marca()) << '\n';
            }
        }
        for (const Linha& l : rows())
            text << prancheta::toUtf8(l.marca) << ' ' << l.quantidade << ' '
                 << prancheta::toUtf8(l.dimensoes) << ' ' << l.comprimento << ' ' << l.pesoTotal
                 << ' ' << zp::matlist::erased(l) << '\n';
        return text.str();
    }

    /// What has to hold after every command, counted from the pieces themselves.
    void check() {
        std::map<AcDbObjectId, int> quantidades;
        std::map<AcDbObjectId, AcDbObjectId> firsts;
        for (const auto& [id, times] : shown()) {
            const Read<ZpObject> p(id);
            const zp::Member& m = zp::member::of(*p.object());
            if (!m.listed) continue;
            quantidades[m.row] += m.count * times;
            const auto [first, fresh] = firsts.try_emplace(m.row, id);
            if (fresh) continue;
            const Read<ZpObject> other(first->second);
            EXPECT_TRUE(zp::member::sameSizes(*other.object(), *p.object()))
                << id.handle().value() << " is not the member of its row";
        }
        std::set<std::wstring> texts;
        std::map<AcDbObjectId, std::wstring> marcaOf;
        for (const zp::matlist::MaterialList& list : materialLists())
            for (const zp::matlist::RowRecord& record : zp::matlist::storedRecords(list.id)) {
                const Linha stored = *zp::matlist::storedRow(record.id);
                EXPECT_TRUE(texts.insert(stored.marca).second) << "twice: " << stored.marca.size();
                EXPECT_EQ(stored.quantidade, quantidades[record.id]);
                EXPECT_EQ(zp::matlist::rowAt(record.id)->quantidade, quantidades[record.id]);
                EXPECT_EQ(zp::matlist::erased(*zp::matlist::rowAt(record.id)),
                          !firsts.contains(record.id));
                marcaOf[record.id] = stored.marca;
                if (firsts.contains(record.id)) {
                    const Read<ZpObject> p(firsts[record.id]);
                    EXPECT_NEAR(stored.comprimento, p->getComprimentoReal(), 0.5);
                    EXPECT_NEAR(stored.pesoTotal, p->getPeso() * stored.quantidade, 0.1);
                }
                quantidades.erase(record.id);
            }
        for (const auto& [row, quantidade] : quantidades)
            EXPECT_EQ(quantidade, 0) << "pieces in a row that is not there";
        for (const AcDbObjectId& id : entities()) {
            if (!id.objectClass()->isDerivedFrom(ZpMarca::desc())) continue;
            const Read<ZpMarca> marca(id);
            if (marca->peca().isNull()) continue;
            const Read<ZpObject> p(marca->peca());
            ASSERT_NE(p.object(), nullptr) << "a mark without its piece";
            const zp::Member& m = zp::member::of(*p.object());
            if (!m.listed) continue;
            EXPECT_EQ(marca->marca(), marcaOf[m.row]);
        }
    }

    /// True when the command leaves a step of undo.
    bool step() {
        const std::vector<AcDbObjectId> all = pecas();
        const auto each = [&](std::initializer_list<const wchar_t*> before,
                              std::initializer_list<const wchar_t*> after) {
            const std::vector<AcDbObjectId> picked = some();
            if (picked.empty()) return false;
            type(before);
            pick(0, 0, picked);
            type(after);
            return true;
        };
        const int kind = draw(23);
        m_told = "kind " + std::to_string(kind);
        switch (kind) {
            case 0:
            case 1: {
                const prancheta::EditGroup group(*editor, L"PERFIL");
                enter(1 + draw(3), 0, u(1000.0 * draw(9), 700.0 * draw(9), 500 + 100 * draw(4)));
                return true;
            }
            case 2:
                return each({L"_copy"}, {L"", L"0,0", L"0,7000", L""});
            case 3:
                return each({L"_copy"}, {L"", L"0,0", L"_a", L"3", L"0,900", L""});
            case 4:
                return each({L"_mirror"}, {L"", L"0,0", L"0,10", draw(2) == 0 ? L"_y" : L"_n"});
            case 5:
                return each({L"_erase"}, {L""});
            case 6:
                type({L"_oops"});
                return true;
            case 7:
                return each({L"_move"}, {L"", L"0,0", L"130,70"});
            case 8:
                return each({L"_rotate"}, {L"", L"0,0", L"30"});
            case 9:
                return each({L"_scale"}, {L"", L"0,0", draw(2) == 0 ? L"2" : L"0.5"});
            case 10:
                if (all.empty()) return false;
                {
                    const prancheta::EditGroup group(*editor, L"ESTICA");
                    change(all[static_cast<std::size_t>(draw(static_cast<int>(all.size())))],
                           [&](ZpObject& p) { (void)p.AlteraComprimento(500 + 50 * draw(9)); });
                }
                return true;
            case 11:
                type({L"MARCAS", L"", L""});
                return true;
            case 12:
                if (!each({L"_copyclip"}, {L""})) return false;
                type({L"_pasteclip", L"900,8000"});
                return true;
            case 13:
                return each({L"_cutclip"}, {L""});
            case 14:
                if (editor->clipboard().ids().empty()) return false;
                type({L"_pasteclip", L"0,9000"});
                return true;
            case 15:
                return each({L"_array"}, {L"", L"_r", L"2", L"2", L"900", L"-6000"});
            case 16:
                return each({L"_array"},
                            {L"", L"_polar", L"0,0", L"3", L"200", draw(2) == 0 ? L"_y" : L"_n"});
            case 17: {
                const double x = 1000.0 * draw(9) + 300.0;
                const std::wstring from = std::to_wstring(x) + L",-9000";
                const std::wstring to = std::to_wstring(x + 100.0 * (1 + draw(20))) + L",9000";
                type({L"_stretch", L"_c", from.c_str(), to.c_str(), L""});
                if (editor->runner().active()) type({L"0,0", draw(2) == 0 ? L"70,0" : L"-40,30"});
                return true;
            }
            case 18:
            case 19: {
                if (all.empty()) return false;
                const AcDbObjectId id =
                    all[static_cast<std::size_t>(draw(static_cast<int>(all.size())))];
                const double L = Read<ZpObject>(id)->getComprimentoReal();
                AcDbObjectId rest;
                const std::wstring reason =
                    kind == 18 ? setEnds(*editor, id, 50.0 * (draw(5) - 2), L - 30.0 * draw(4))
                               : takeOut(*editor, id, 0.25 * L, 0.5 * L, rest);
                // Cuts that would meet, a view that does not part, a piece that was scaled down.
                EXPECT_TRUE(reason.empty() || reason.starts_with(L"Os cortes das duas pontas") ||
                            reason.starts_with(L"Uma vista não se parte") ||
                            reason.starts_with(L"Não sobraria nada"))
                    << prancheta::toUtf8(reason);
                return true;
            }
            case 20: {
                if (all.empty()) return false;
                const prancheta::EditGroup group(*editor, L"CORTARPECA");
                change(all[static_cast<std::size_t>(draw(static_cast<int>(all.size())))],
                       [&](ZpObject& peca) {
                           const zp::Peca& p = zp::Access::of(peca);
                           zp::ends::Ends ends = zp::ends::endsOf(p);
                           const auto end = static_cast<std::size_t>(draw(2));
                           ends.cortes[end] = zp::cortes::withAngle(p, end, 0.1 * (draw(5) - 2));
                           if (zp::ends::refusal(peca, ends).empty()) zp::ends::move(peca, ends);
                       });
                return true;
            }
            case 21: {
                if (all.empty()) return false;
                const prancheta::EditGroup group(*editor, L"VISTA");
                change(all[static_cast<std::size_t>(draw(static_cast<int>(all.size())))],
                       [&](ZpObject& peca) {
                           const zp::Member m = zp::member::of(peca);
                           if (m.listed) zp::member::tie(peca, m.row, draw(2));
                       });
                return true;
            }
            default: {
                const wchar_t* const name = kBlocks[draw(2)];
                if (!block(name).isNull()) {
                    type({L"_insert", name, L"4000,0", L"", L"", L"30"});
                    return true;
                }
                if (all.empty()) return false;
                type({L"_block", name, L"0,0"});
                pick(0, 0, {all.front(), all.back()});
                type({draw(2) == 0 ? L"_re" : L"_co", L""});
                return true;
            }
        }
    }

    std::string m_told;  ///< the last step

private:
    std::mt19937 m_chance{GetParam()};
};

TEST_P(Walk, ListMarksAndPiecesAgree) {
    const std::filesystem::path file =
        std::filesystem::temp_directory_path() / ("zp_walk_" + std::to_string(GetParam()) + ".dxf");
    for (int i = 0; i < 200 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const std::string before = story();
        const bool undoable = step();
        SCOPED_TRACE(m_told);
        check();
        const std::string after = story();
        if (undoable && after != before && i % 3 == 0) {
            type({L"_u"});
            EXPECT_EQ(story(), before);
            check();
            type({L"_redo"});
            EXPECT_EQ(story(), after);
            check();
        }
        if (i % 40 == 39) {
            ASSERT_TRUE(static_cast<bool>(editor->file().save(file)));
            ASSERT_TRUE(static_cast<bool>(editor->file().open(file)));
            std::filesystem::remove(file);
            EXPECT_EQ(story(), after);
            check();
        }
        // What has grown too far starts anew.
        if (entities().size() > 300) {
            type({L"_erase", L"_all", L"", L"LISTAMATERIAL", L"_Purge", L""});
            check();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Walk, testing::Range(1u, 5u));

}  // namespace
