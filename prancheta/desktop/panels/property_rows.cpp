// SPDX-License-Identifier: MIT
// Properties of entities as rows: what they share, their geometry, what their module tells.
#include "prancheta/desktop/panels/property_rows.h"

#include <algorithm>
#include <cmath>

#include "dbsymtb.h"
#include "prancheta/base/text.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/desktop/panels/entity_fields.h"
#include "prancheta/desktop/panels/module_sheet.h"
#include "prancheta/desktop/panels/text.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/edit_group.h"
#include "prancheta/entities/insert_parts.h"
#include "prancheta/entities/listing.h"
#include "prancheta/geometry/angles.h"

namespace prancheta::desktop {
namespace {

using Kind = PropertyRow::Kind;

/// Above this many entities nobody edits radii one by one; the rest of the rows costs a second.
constexpr std::size_t kDetailed = 3000;

constexpr const wchar_t* kGeneral = L"Geral";
constexpr const wchar_t* kGeometry = L"Geometria";
constexpr const wchar_t* kAttributes = L"Atributos";
/// Keys of attributes begin with it; the tag follows.
constexpr wchar_t kAttributeKey = L'@';

// --- Values as shown and typed ------------------------------------------------------------------

/// Of a length in drawing units; empty for units that are none of these.
std::wstring lengthUnit(const AcDbEntity& entity) {
    constexpr const wchar_t* kUnits[] = {L"", L"in", L"ft", L"mi", L"mm", L"cm", L"m", L"km"};
    const AcDbDatabase* const database = entity.database();
    if (database == nullptr) return {};
    const auto unit = static_cast<std::size_t>(database->core().variables().number(L"INSUNITS"));
    return unit < std::size(kUnits) ? kUnits[unit] : L"";
}

/// "45" and "12,3457": no more decimals than LUPREC wants and than say something.
std::wstring shortText(double value) {
    std::wstring text = commands::toldLength(value);
    if (text.find(L',') == text.npos) return text;
    text.erase(text.find_last_not_of(L'0') + 1);
    if (text.ends_with(L',')) text.pop_back();
    return text == L"-0" ? L"0" : text;
}

/// Degrees with noise of the conversion taken off.
double degrees(double radians) { return std::round(radians * 180.0 / kPi * 1e10) / 1e10; }

void fill(PropertyRow& row, const Field& field, const FieldValue& value, const AcDbEntity& entity) {
    row.number = field.kind < FieldKind::Text;
    switch (field.kind) {
        case FieldKind::Length:
        case FieldKind::Positive:
            row.value = commands::toldLength(value.number);
            row.input = withComma(numberTextWide(value.number));
            row.unit = lengthUnit(entity);
            return;
        case FieldKind::Angle:
            row.value = shortText(degrees(value.number));
            row.input = withComma(numberTextWide(degrees(value.number)));
            row.unit = L"°";
            return;
        case FieldKind::Number:
            row.value = shortText(value.number);
            row.input = withComma(numberTextWide(value.number));
            return;
        case FieldKind::Area:
            row.value = commands::toldLength(value.number);
            row.input = withComma(numberTextWide(value.number));
            row.unit = lengthUnit(entity);
            if (!row.unit.empty()) row.unit += L'²';
            return;
        case FieldKind::YesNo:
            row.value = row.input = value.number != 0.0 ? L"Sim" : L"Não";
            return;
        case FieldKind::Text:
        case FieldKind::TextStyle:
        case FieldKind::DimStyle:
            row.value = row.input = value.text;
            return;
    }
}

Kind kindOf(const Field& field) {
    if (field.set == nullptr) return Kind::Show;
    const bool chosen = field.kind == FieldKind::YesNo || field.kind == FieldKind::TextStyle ||
                        field.kind == FieldKind::DimStyle;
    return chosen ? Kind::Choice : Kind::Text;
}

Result<double> readNumber(const std::wstring& input) {
    double number = 0.0;
    if (parseTypedNumber(input, number)) return number;
    return Error{"\"" + toUtf8(input) + "\" não é um número."};
}

Result<FieldValue> readField(const Field& field, const std::wstring& input) {
    FieldValue value;
    value.text = input;
    if (field.kind == FieldKind::YesNo) value.number = input == L"Sim" ? 1.0 : 0.0;
    if (field.kind == FieldKind::Text || field.kind >= FieldKind::YesNo) return value;
    const Result<double> number = readNumber(input);
    if (!number) return number.error();
    value.number = field.kind == FieldKind::Angle ? *number / 180.0 * kPi : *number;
    if (field.kind == FieldKind::Positive && value.number <= 0.0)
        return Error{"O valor deve ser maior que zero."};
    return value;
}

// --- What all entities have ---------------------------------------------------------------------

std::vector<int> entityWeights() {
    std::vector<int> weights{AcDb::kLnWtByLayer, AcDb::kLnWtByBlock, AcDb::kLnWtByLwDefault};
    weights.insert(weights.end(), commands::lineWeights().begin(), commands::lineWeights().end());
    return weights;
}

std::wstring linetypeName(const AcDbEntity& entity) {
    const AcDbObjectId id = entity.linetypeId();
    if (id.isNull() || id == id.database()->byLayerLinetype()) return kByLayer;
    return id == id.database()->byBlockLinetype() ? kByBlock : recordName(id);
}

std::wstring handleText(AcDbObjectId id) {
    ACHAR handle[17];
    return id.handle().getIntoAsciiBuffer(handle) ? handle : L"";
}

/// One row that all entities have. `set` is null for one that is only shown.
struct Common {
    const wchar_t* key;
    const wchar_t* label;
    Kind kind;
    void (*get)(const AcDbEntity&, PropertyRow&);
    Result<void> (*set)(const CommandContext&, AcDbEntity&, const std::wstring&);
};

Result<void> answer(Acad::ErrorStatus status, const char* refusal) {
    if (status == Acad::eOk) return {};
    return Error{refusal};
}

Result<void> setLayerRow(const CommandContext& context, AcDbEntity& e, const std::wstring& name) {
    return answer(e.setLayer(commands::layerNamed(context, name)),
                  "Não existe camada com este nome.");
}
Result<void> setColorRow(const CommandContext&, AcDbEntity& e, const std::wstring& input) {
    const Result<double> index = readNumber(input);
    if (!index) return index.error();
    if (*index >= kTrueColors) {
        PictureTraits traits;
        traits.trueColor = rgbOf(static_cast<int>(*index));
        traits.color = static_cast<Adesk::UInt16>(nearestIndex(*traits.trueColor));
        giveColor(e, traits);
        return {};
    }
    if (*index < 0.0 || *index > 256.0 || *index != std::floor(*index))
        return Error{"Use uma cor de 1 a 255, PorCamada ou PorBloco."};
    return answer(e.setColorIndex(static_cast<Adesk::UInt16>(*index)), "A cor não foi aceita.");
}
Result<void> setLinetypeRow(const CommandContext& context, AcDbEntity& e,
                            const std::wstring& name) {
    AcDbDatabase& database = context.database();
    AcDbObjectId id;
    if (name == kByLayer) {
        id = database.byLayerLinetype();
    } else if (name == kByBlock) {
        id = database.byBlockLinetype();
    } else {
        id = database.core().ensureLinetype(name);
    }
    return answer(e.setLinetype(id), "Não existe tipo de linha com este nome.");
}
Result<void> setScaleRow(const CommandContext&, AcDbEntity& e, const std::wstring& input) {
    const Result<double> scale = readNumber(input);
    if (!scale) return scale.error();
    if (*scale <= 0.0) return Error{"A escala deve ser maior que zero."};
    return answer(e.setLinetypeScale(*scale), "A escala não foi aceita.");
}
Result<void> setWeightRow(const CommandContext&, AcDbEntity& e, const std::wstring& input) {
    for (const int weight : entityWeights())
        if (weightText(weight).toStdWString() == input)
            return answer(e.setLineWeight(static_cast<AcDb::LineWeight>(weight)),
                          "A espessura não foi aceita.");
    return Error{"Esta espessura de linha não existe."};
}

void same(PropertyRow& row, std::wstring value) {
    row.input = value;
    row.value = std::move(value);
}

const Common kCommon[] = {
    {L"tipo", L"Tipo", Kind::Show,
     [](const AcDbEntity& e, PropertyRow& row) {
         const ClassFields* known = fieldsOf(e);
         same(row, known != nullptr ? known->type : e.isA()->name());
     },
     nullptr},
    {L"camada", L"Camada", Kind::Choice,
     [](const AcDbEntity& e, PropertyRow& row) { same(row, recordName(e.layerId())); },
     setLayerRow},
    {L"cor", L"Cor", Kind::Color,
     [](const AcDbEntity& e, PropertyRow& row) {
         const int color = colorNumber(e, e.colorIndex());
         row.value = colorText(color).toStdWString();
         row.input = std::to_wstring(color);
     },
     setColorRow},
    {L"tipo_linha", L"Tipo de linha", Kind::Choice,
     [](const AcDbEntity& e, PropertyRow& row) { same(row, linetypeName(e)); }, setLinetypeRow},
    {L"escala_tipo_linha", L"Escala do tipo de linha", Kind::Text,
     [](const AcDbEntity& e, PropertyRow& row) {
         same(row, withComma(numberTextWide(e.linetypeScale())));
         row.number = true;
     },
     setScaleRow},
    {L"espessura", L"Espessura de linha", Kind::Choice,
     [](const AcDbEntity& e, PropertyRow& row) {
         same(row, weightText(e.lineWeight()).toStdWString());
     },
     setWeightRow},
    {L"identificador", L"Identificador", Kind::Show,
     [](const AcDbEntity& e, PropertyRow& row) { same(row, handleText(e.objectId())); }, nullptr},
};

template <class Table>
std::vector<std::wstring> namesOf(AcDbDatabase& database) {
    std::vector<std::wstring> names;
    Table* table = nullptr;
    if (database.getSymbolTable(table, AcDb::kForRead) != Acad::eOk) return names;
    AcDbSymbolTableIterator* raw = nullptr;
    const bool iterates = table->newIterator(raw) == Acad::eOk;
    const std::unique_ptr<AcDbSymbolTableIterator> iterator(raw);
    (void)table->close();
    for (; iterates && !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        if (iterator->getRecordId(id) == Acad::eOk) names.push_back(recordName(id));
    }
    return names;
}

/// The lists of choices are the same for all entities, so they are made once, for the rows that
/// stay.
void fillChoices(Editor& editor, PropertyRow& row) {
    if (row.kind != Kind::Choice || row.key.front() == kModuleKey) return;
    CommandRun run;
    const CommandContext context(editor, run);
    AcDbDatabase& database = editor.database();
    if (row.key == L"camada") {
        row.choices = namesOf<AcDbLayerTable>(database);
        std::sort(row.choices.begin(), row.choices.end());
    } else if (row.key == L"tipo_linha") {
        row.choices = commands::linetypeChoices(context);
        row.choices.insert(row.choices.begin(), {kByLayer, kByBlock});
    } else if (row.key == L"espessura") {
        for (const int weight : entityWeights())
            row.choices.push_back(weightText(weight).toStdWString());
    } else if (row.key == L"estilo" && row.label == L"Estilo") {
        row.choices = namesOf<AcDbTextStyleTable>(database);
    } else if (row.key == L"estilo") {
        row.choices = namesOf<AcDbDimStyleTable>(database);
    } else {
        row.choices = {L"Sim", L"Não"};
    }
}

/// The attributes of an insertion, each under its tag.
void addAttributeRows(const AcDbBlockReference& insertion, std::vector<PropertyRow>& rows) {
    for (const AcDbAttribute* const attribute : attributesOf(insertion)) {
        PropertyRow& row = rows.emplace_back();
        row.kind = Kind::Text;
        row.key = kAttributeKey + std::wstring(attribute->tagConst());
        row.label = attribute->tagConst();
        row.group = kAttributes;
        row.value = row.input = attribute->textStringConst();
    }
}

std::vector<PropertyRow> rowsOf(const AcDbEntity& entity, bool detailed) {
    std::vector<PropertyRow> rows;
    for (const Common& common : kCommon) {
        PropertyRow& row = rows.emplace_back();
        row.kind = common.kind;
        row.key = common.key;
        row.label = common.label;
        row.group = kGeneral;
        common.get(entity, row);
    }
    if (!detailed) return rows;
    if (const auto* properties = moduleProperties(entity)) {
        const std::size_t first = rows.size();
        addModuleRows(*properties, entity, rows);
        // The module's own word for it says more than the name of its class.
        if (rows.size() > first && fieldsOf(entity) == nullptr)
            rows.front().value = rows.front().input = rows[first].value;
        return rows;
    }
    const ClassFields* known = fieldsOf(entity);
    if (known == nullptr) return rows;
    for (const Field& field : known->fields) {
        PropertyRow& row = rows.emplace_back();
        row.kind = kindOf(field);
        row.key = field.key;
        row.label = field.label;
        row.group = kGeometry;
        fill(row, field, field.get(entity), entity);
    }
    if (const auto* const insertion = AcDbBlockReference::cast(&entity))
        addAttributeRows(*insertion, rows);
    return rows;
}

Result<void> setAttribute(AcDbEntity& entity, const std::wstring& tag, const std::wstring& input) {
    if (auto* const insertion = AcDbBlockReference::cast(&entity))
        for (AcDbAttribute* const attribute : attributesForChange(*insertion))
            if (tag == attribute->tagConst())
                return answer(attribute->setTextString(input.c_str()), "O valor não foi aceito.");
    return Error{"O objeto não tem este atributo."};
}

/// Leaves in `rows` what `others` has, too, and marks what differs.
void merge(std::vector<PropertyRow>& rows, const std::vector<PropertyRow>& others) {
    std::size_t at = 0;
    std::erase_if(rows, [&](PropertyRow& row) {
        const auto fits = [&row](const PropertyRow& other) {
            return other.key == row.key && other.kind == row.kind && other.label == row.label;
        };
        // Entities of one class give the same rows in the same order.
        const PropertyRow* other = at < others.size() && fits(others[at]) ? &others[at] : nullptr;
        ++at;
        if (other == nullptr) {
            const auto it = std::find_if(others.begin(), others.end(), fits);
            if (it == others.end()) return true;
            other = &*it;
        }
        if (!row.varies && (other->input != row.input || other->choices != row.choices)) {
            row.varies = true;
            row.value = kVaries;
            row.input.clear();
        }
        return false;
    });
}

Result<void> setField(const Field& field, AcDbEntity& entity, const std::wstring& input) {
    if (field.set == nullptr) return Error{"Este valor não pode ser alterado."};
    const Result<FieldValue> value = readField(field, input);
    if (!value) return value.error();
    return answer(field.set(entity, *value), "O valor não foi aceito.");
}

Result<void> setOne(const CommandContext& context, AcDbObjectId id, const std::wstring& key,
                    const std::wstring& input) {
    if (key.front() == kModuleKey) {
        const protocol::EntityProperties* properties = nullptr;
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.object() != nullptr) properties = moduleProperties(*entity.object());
        }
        if (properties == nullptr) return Error{"O módulo deste objeto não está carregado."};
        return setModuleProperty(*properties, id, key.substr(1), input);
    }
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.object() == nullptr) return Error{"O objeto está em uso e não pôde ser alterado."};
    if (key.front() == kAttributeKey) return setAttribute(*entity.object(), key.substr(1), input);
    for (const Common& common : kCommon)
        if (key == common.key && common.set != nullptr)
            return common.set(context, *entity.object(), input);
    if (const ClassFields* known = fieldsOf(*entity.object()))
        for (const Field& field : known->fields)
            if (key == field.key) return setField(field, *entity.object(), input);
    return Error{"O objeto não tem esta propriedade."};
}

bool changeable(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    if (entity.object() == nullptr) return false;
    const AcDbObjectPointer<AcDbLayerTableRecord> layer(entity->layerId(), AcDb::kForRead);
    return layer.object() == nullptr || !layer->isLocked();
}

}  // namespace

std::vector<PropertyRow> propertyRows(Editor& editor, const std::vector<AcDbObjectId>& ids) {
    std::vector<PropertyRow> rows;
    bool first = true;
    for (const AcDbObjectId id : ids) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() == nullptr) continue;
        std::vector<PropertyRow> own = rowsOf(*entity.object(), ids.size() <= kDetailed);
        if (std::exchange(first, false))
            rows = std::move(own);
        else
            merge(rows, own);
    }
    for (PropertyRow& row : rows) fillChoices(editor, row);
    return rows;
}

namespace {

constexpr const wchar_t* kGeneralKeys[] = {L"camada", L"cor", L"tipo_linha", L"espessura"};

bool sameValue(const std::wstring& key, const AcDbEntity& a, const AcDbEntity& b) {
    if (key == L"camada") return a.layerId() == b.layerId();
    if (key == L"tipo_linha") return a.linetypeId() == b.linetypeId();
    if (key == L"espessura") return a.lineWeight() == b.lineWeight();
    return colorNumber(a, a.colorIndex()) == colorNumber(b, b.colorIndex());
}

/// An entity as it would be drawn now; it is in no drawing.
std::unique_ptr<AcDbEntity> nextEntity(AcDbDatabase& database) {
    auto next = std::make_unique<AcDbPoint>();
    next->setDatabaseDefaults(&database);
    return next;
}

}  // namespace

std::vector<PropertyRow> generalRows(Editor& editor, const std::vector<AcDbObjectId>& ids) {
    std::vector<PropertyRow> rows;
    const auto take = [&](const AcDbEntity& entity) {
        rows = rowsOf(entity, false);
        std::erase_if(rows, [](const PropertyRow& row) {
            return std::find(std::begin(kGeneralKeys), std::end(kGeneralKeys), row.key) ==
                   std::end(kGeneralKeys);
        });
    };
    AcDbObjectPointer<AcDbEntity> first;
    for (const AcDbObjectId id : ids) {
        if (rows.empty()) {
            if (first.open(id, AcDb::kForRead) == Acad::eOk) take(*first.object());
            continue;
        }
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (entity.object() == nullptr) continue;
        for (PropertyRow& row : rows) {
            if (row.varies || sameValue(row.key, *first.object(), *entity.object())) continue;
            row.varies = true;
            row.value = kVaries;
            row.input.clear();
        }
    }
    if (rows.empty()) take(*nextEntity(editor.database()));
    for (PropertyRow& row : rows) fillChoices(editor, row);
    return rows;
}

Result<void> changeCurrent(Editor& editor, const std::wstring& key, const std::wstring& input) {
    if (!EditGroup::possible(editor))
        return Error{"Há um comando em execução; termine-o (Esc) antes de alterar propriedades."};
    SystemVariables& variables = editor.variables();
    EditGroup group(editor, L"PROPRIEDADES");
    Result<void> done;
    if (key == L"camada") {
        done = variables.set(L"CLAYER", input);
    } else if (key == L"tipo_linha") {
        const bool logical = input == kByLayer || input == kByBlock;
        if (!logical) (void)editor.database().core().ensureLinetype(input);  // refused below
        done = variables.set(L"CELTYPE", input == kByLayer   ? std::wstring(L"ByLayer")
                                         : input == kByBlock ? std::wstring(L"ByBlock")
                                                             : input);
    } else if (key == L"cor") {
        const Result<double> color = readNumber(input);
        if (!color) return color.error();
        if (*color >= kTrueColors)
            done = variables.set(L"CECOLOR", rgbText(rgbOf(static_cast<int>(*color))));
        else if (*color >= 0.0 && *color <= 256.0)
            done = answer(editor.database().setCecolor(static_cast<Adesk::UInt16>(*color)),
                          "A cor não foi aceita.");
        else
            done = Error{"Use uma cor de 1 a 255, PorCamada ou PorBloco."};
    } else {
        for (const int weight : entityWeights())
            if (weightText(weight).toStdWString() == input)
                done = variables.set(L"CELWEIGHT", static_cast<short>(weight));
    }
    if (!done) group.fail();
    return done;
}

Result<void> changeProperty(Editor& editor, const std::vector<AcDbObjectId>& ids,
                            const std::wstring& key, const std::wstring& input) {
    if (!EditGroup::possible(editor))
        return Error{"Há um comando em execução; termine-o (Esc) antes de alterar propriedades."};
    std::vector<AcDbObjectId> targets;
    std::copy_if(ids.begin(), ids.end(), std::back_inserter(targets), changeable);
    if (targets.empty())
        return Error{"Os objetos estão em camadas bloqueadas; desbloqueie-as para alterar."};
    EditGroup group(editor, L"PROPRIEDADES");
    CommandRun run;
    const CommandContext context(editor, run);
    for (const AcDbObjectId id : targets) {
        Result<void> done = setOne(context, id, key, input);
        if (!done) {
            group.fail();
            return done;
        }
    }
    return {};
}

}  // namespace prancheta::desktop
