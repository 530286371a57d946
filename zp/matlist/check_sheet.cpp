// SPDX-License-Identifier: MIT
// A check's part on what stands for the list on the sheet: its table, cutting plans, and blocks
// whose insertions are not as large as what they hold.
#include <algorithm>
#include <cmath>
#include <map>
#include <set>

#include "dbents.h"
#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/plan_files.h"
#include "zp/matlist/table.h"

namespace zp::matlist {
namespace {

/// Share by which the scale of an insertion may differ from 1.
constexpr double kFullSize = 1e-6;

void checkTables(Survey& survey) {
    for (const MaterialList& list : survey.lists) {
        if (!hasTable(list.header) || !tableIsStale(list)) continue;
        const auto part = std::ranges::find_if(
            list.header.table, [](const AcDbSoftPointerId& id) { return !id.isErased(); });
        survey.fault(
            Fault::TableStale, {*part}, {}, list.header.point,
            L"a tabela da lista " + std::to_wstring(list.number) + L" não diz o que a lista diz.",
            L"Atualize-a com LISTAMATERIAL Tabela.");
    }
}

/// Copies of a plan count as it does.
void checkPlans(Survey& survey) {
    std::map<int, PlanStamp> present;
    for (const MaterialList& list : survey.lists)
        present.emplace(list.number, planStampOf(list.number, rows(list.id)));
    for (const AcDbObjectId& id : survey.lines) {
        const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
        const auto stamp = line.object() != nullptr ? stampOf(*line.object()) : std::nullopt;
        if (!stamp) continue;
        const auto now = present.find(stamp->list);
        if (now != present.end() && now->second == *stamp) continue;
        survey.fault(Fault::TableStale, {id}, {}, line->startPoint(),
                     L"o plano de corte desenhado não é mais o da lista " +
                         std::to_wstring(stamp->list) + L".",
                     L"Apague-o e refaça-o com PLANOCORTE.");
    }
}

/// A listed piece inside is bought as long as it is in its block.
void checkInsertions(Survey& survey) {
    std::set<AcDbObjectId> withListed;
    for (const AcDbObjectId& id : survey.pecas) {
        if (survey.book.rowOf(id).isNull()) continue;
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() != nullptr) withListed.insert(peca->ownerId());
    }
    for (const AcDbObjectId& id : survey.insertions) {
        const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
        if (insertion.object() == nullptr || !withListed.contains(insertion->blockTableRecord()))
            continue;
        const AcGeVector3d scale = insertion->scaleFactors();
        const auto full = [](double s) { return std::abs(std::abs(s) - 1.0) <= kFullSize; };
        if (full(scale.x) && full(scale.y)) continue;
        survey.fault(Fault::BlockScaled, {id}, {}, insertion->position(),
                     L"o bloco está inserido na escala " + texts::withComma(scale.x, 4) +
                         L"; as suas peças contam com o tamanho que têm no bloco.",
                     L"Insira-o na escala 1, ou exploda-o.");
    }
}

}  // namespace

void checkSheet(Survey& survey) {
    checkTables(survey);
    checkPlans(survey);
    checkInsertions(survey);
}

}  // namespace zp::matlist
