// SPDX-License-Identifier: MIT
// The drawing's steel, and the rows that it changes.
#include "zp/matlist/steel_command.h"

#include "acedads.h"
#include "dbapserv.h"
#include "protocol/answers.h"
#include "texts/letters.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/book.h"
#include "zp/matlist/follow.h"
#include "zp/objects/member.h"
#include "zp/objects/steel.h"

namespace zp::matlist {
namespace {

/// What a row says of pieces whose steel nobody named.
constexpr const wchar_t* kUnnamed = L"ACO";

bool namesItsOwn(const Linha& row) {
    const std::vector<AcDbObjectId>& ids = row.pecas.empty() ? row.vistas : row.pecas;
    const AcDbObjectPointer<ZpObject> peca(ids.empty() ? AcDbObjectId() : ids.front(),
                                           AcDb::kForRead);
    return peca.object() == nullptr || !member::of(*peca.object()).grade.empty();
}

/// The rows of pieces without a steel of their own say the drawing's; how many changed.
int rewriteRows(AcDbDatabase& drawing, const std::wstring& name) {
    int changed = 0;
    for (const MaterialList& list : materialLists(drawing))
        for (const AcDbObjectId& record : Book::of(drawing).records(list.id)) {
            const std::optional<Linha> stored = storedRow(record);
            std::optional<Linha> now = rowAt(record);
            if (!stored || !now || !stored->tied || namesItsOwn(*now)) continue;
            now->material = name.empty() ? kUnnamed : name;
            if (now->material != stored->material && rewrite(record, *now)) ++changed;
        }
    return changed;
}

}  // namespace

void steelCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const std::wstring present = drawingSteel(*drawing);
    const std::wstring shown = present.empty() ? L"sem nome" : present;
    for (;;) {
        auto name = askTyped(L"Aço das peças sem aço próprio, ou . para nenhum <" + shown + L">: ");
        if (!name || name->empty()) return;
        if (*name == L".") name->clear();
        if (name->size() > kMostGrade) {
            protocol::refuse(L"O nome do aço pode ter até " + std::to_wstring(kMostGrade) +
                             L" caracteres.");
            continue;
        }
        if (!setDrawingSteel(*drawing, *name)) {
            protocol::fail(L"O aço do desenho não pode ser guardado agora.");
            return;
        }
        const int changed = rewriteRows(*drawing, *name);
        settle(*drawing);
        acutPrintf(changed == 1 ? L"\n1 linha da lista mudou de material.\n"
                                : L"\n%d linhas da lista mudaram de material.\n",
                   changed);
        return;
    }
}

}  // namespace zp::matlist
