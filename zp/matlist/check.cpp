// SPDX-License-Identifier: MIT
// A check: what stands in the drawing, its parts one after the other, tables and sizes.
#include "zp/matlist/check.h"

#include <algorithm>
#include <cmath>
#include <set>
#include <tuple>

#include "dbdim.h"
#include "dbents.h"
#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/matlist/listing.h"
#include "zp/objects/each_entity.h"
#include "zp/objects/published.h"

namespace zp::matlist {
namespace {

/// Masses nearer than this are one, kg/m: tables print three decimals at most.
constexpr double kSameMass = 0.0005;

CataloguesMaker g_catalogues = nullptr;

/// Each size once for every row that has it, or once for all pieces in no list.
void checkSizes(Survey& survey) {
    const std::unique_ptr<Catalogues> catalogues =
        g_catalogues != nullptr ? g_catalogues() : nullptr;
    if (catalogues == nullptr) return;
    std::set<std::pair<std::wstring, std::wstring>> told;
    for (const AcDbObjectId& id : survey.pecas) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        const std::optional<std::wstring> nearest = catalogues->nearestTo(*peca.object());
        if (!nearest) continue;
        const std::wstring words = sizeOf(*peca.object());
        const std::wstring marca = survey.marcaOf(id);
        if (told.emplace(marca, words).second)
            survey.fault(Fault::SizeUnknown, {id}, marca, middleOf(*peca.object()),
                         L"a medida " + words + L" não está em nenhum catálogo; a mais próxima é " +
                             *nearest + L".",
                         L"Confira a medida.", protocol::Severity::Hint);
    }
}

/// What the table has by now, in words; empty when the piece keeps just that. A piece of before
/// tables were kept is asked for its mass alone.
std::wstring changedInTable(const Peca& p) {
    const std::shared_ptr<const Commercial> today = published::ofToday(p);
    if (!today) return {};
    const bool one = secao::description(p.kind).composition == secao::Composition::One;
    const double kg = (one ? 1.0 : 2.0) * today->kgMetro;
    if (kg > 0.0 && std::abs(kg - p.kgMetro()) > kSameMass)
        return texts::withComma(kg, 3) + L" kg/m e a peça " + texts::withComma(p.kgMetro(), 3);
    if (!p.commercial) return {};
    if (today->name != p.name()) return L"outro nome, " + today->name;
    const secao::Printed& was = p.commercial->printed;
    const secao::Printed& is = today->printed;
    return was.root != is.root || was.toe != is.toe || was.area != is.area ? L"outros raios" : L"";
}

/// As the sizes, each once.
void checkPublished(Survey& survey) {
    std::set<std::pair<std::wstring, std::wstring>> told;
    for (const AcDbObjectId& id : survey.pecas) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        const std::wstring change = changedInTable(Access::of(*peca.object()));
        if (change.empty()) continue;
        const std::wstring words = sizeOf(*peca.object());
        const std::wstring marca = survey.marcaOf(id);
        if (told.emplace(marca, words).second)
            survey.fault(Fault::TableSaysOther, {id}, marca, middleOf(*peca.object()),
                         L"a tabela de " + words + std::wstring(L" tem ").append(change) + L".",
                         L"Para tomar o que a tabela tem, abra a peça com EDITAPERFIL e aceite.",
                         protocol::Severity::Hint);
    }
}

}  // namespace

Survey::Survey(AcDbDatabase& ofDrawing)
    : drawing(ofDrawing), book(Book::of(ofDrawing)), lists(materialLists(ofDrawing)) {
    eachEntity(drawing, [&](AcDbObjectId id) {
        const AcRxClass* kind = id.objectClass();
        if (kind == nullptr) return;
        if (kind->isDerivedFrom(ZpObject::desc())) pecas.push_back(id);
        if (kind->isDerivedFrom(ZpChapa::desc())) chapas.push_back(id);
        if (kind->isDerivedFrom(AcDbAlignedDimension::desc()) ||
            kind->isDerivedFrom(AcDbRotatedDimension::desc()))
            cotas.push_back(id);
        if (kind->isDerivedFrom(AcDbLine::desc())) lines.push_back(id);
        if (kind->isDerivedFrom(AcDbBlockReference::desc())) insertions.push_back(id);
    });
}

std::wstring Survey::marcaOf(AcDbObjectId peca) const {
    const AcDbObjectId record = book.rowOf(peca);
    return record.isNull() ? std::wstring() : book.row(record)->marca;
}

std::wstring sizeOf(const ZpObject& peca) { return Access::of(peca).designacao(); }

std::wstring wordsOf(const ZpObject& peca) {
    return sizeOf(peca) + L", " + texts::withComma(peca.getComprimentoReal(), 1) + L" mm";
}

std::wstring wordsOf(const Linha& row) {
    return designationOf(row) + L", " + texts::withComma(row.comprimento, 1) + L" mm";
}

AcGePoint3d middleOf(const ZpObject& peca) {
    const edit::Faces faces = edit::facesOf(peca);
    return faces.f[1] + (faces.f[2] - faces.f[1]) * 0.5;
}

std::vector<Finding> check(AcDbDatabase& drawing) {
    Survey survey(drawing);
    checkRows(survey);
    checkPecasWithoutMarca(survey);
    checkCotas(survey);
    checkChapas(survey);
    checkAxes(survey);
    checkSheet(survey);
    checkSizes(survey);
    checkPublished(survey);
    std::ranges::stable_sort(survey.found, [](const Finding& a, const Finding& b) {
        if (a.severity != b.severity) return a.severity < b.severity;
        if (a.kind != b.kind) return a.kind < b.kind;
        if (a.marca != b.marca) return marcaBefore(a.marca, b.marca);
        return Older()(a.objects.front(), b.objects.front());
    });
    return std::move(survey.found);
}

void setCatalogues(CataloguesMaker maker) { g_catalogues = maker; }

}  // namespace zp::matlist
