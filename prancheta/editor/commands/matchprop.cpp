// SPDX-License-Identifier: MIT
// MATCHPROP: gives objects the properties of another one.
#include <optional>

#include "acutmem.h"
#include "dbdim.h"
#include "dbents.h"
#include "dbmtext.h"
#include "prancheta/database/entity_picture.h"
#include "prancheta/database/value_list.h"
#include "prancheta/editor/commands/memory.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "protocol/attach.h"
#include "protocol/edit.h"

namespace prancheta::commands {

namespace {

enum What : unsigned int {
    kLayer = 1,
    kColor = 2,
    kLinetype = 4,
    kLinetypeScale = 8,
    kLineWeight = 16,
    kText = 32,
    kDimension = 64,
    kRole = 128,
};
struct Setting {
    Word word;
    What what;
    const wchar_t* name;
};
constexpr Setting kSettings[] = {
    {{L"Camada", L"LAyer"}, kLayer, L"camada"},
    {{L"cOr", L"Color"}, kColor, L"cor"},
    {{L"tipo de Linha", L"LType"}, kLinetype, L"tipo de linha"},
    {{L"Escala", L"Scale"}, kLinetypeScale, L"escala do tipo de linha"},
    {{L"esPessura", L"LWeight"}, kLineWeight, L"espessura"},
    {{L"Texto", L"Text"}, kText, L"texto"},
    {{L"cotA", L"Dimension"}, kDimension, L"cota"},
    {{L"Barra", L"Bar"}, kRole, L"tipo de barra"},
};

using Properties = protocol::EntityProperties;
const Properties* propertiesOf(const AcDbEntity& entity) {
    return protocol::extensionOf<Properties>(entity, protocol::kEntityPropertiesClass);
}

/// Index of the role among its choices; nothing for an entity without one.
class RoleReader : public protocol::PropertySheet {
public:
    void group(const ACHAR*) override {}
    void show(const ACHAR*, const ACHAR*, const ACHAR*) override {}
    void edit(const ACHAR*, const ACHAR*, const ACHAR*, const ACHAR*) override {}
    void choose(const ACHAR* key, const ACHAR*, int current, int, const ACHAR* const*) override {
        if (std::wstring_view(key) == protocol::kRoleKey && current >= 0) role = current;
    }
    std::optional<int> role;
};

std::optional<int> roleOf(const AcDbEntity& entity) {
    RoleReader reader;
    if (const Properties* const properties = propertiesOf(entity)) properties->list(entity, reader);
    return reader.role;
}

// The setters below are given what another entity of the drawing has: they do not refuse it.

void matchText(const AcDbText& from, AcDbText& to) {
    (void)to.setTextStyle(from.textStyle());
    (void)to.setHeight(from.height());
    (void)to.setWidthFactor(from.widthFactor());
    (void)to.setOblique(from.oblique());
}

/// Lines and paragraphs have style and height in common.
void matchWording(const AcDbEntity& from, AcDbEntity& to) {
    const auto* const text = AcDbText::cast(&from);
    const auto* const paragraphs = AcDbMText::cast(&from);
    if (text == nullptr && paragraphs == nullptr) return;
    const AcDbObjectId style = text != nullptr ? text->textStyle() : paragraphs->textStyle();
    const double height = text != nullptr ? text->height() : paragraphs->textHeight();
    if (auto* const other = AcDbMText::cast(&to)) {
        (void)other->setTextStyle(style);
        (void)other->setTextHeight(height);
    } else if (auto* const line = AcDbText::cast(&to)) {
        if (text != nullptr) return matchText(*text, *line);
        (void)line->setTextStyle(style);
        (void)line->setHeight(height);
    }
}

/// What a dimension says against its style stands in its extended data, but for the scale.
void matchDimension(const AcDbDimension& from, AcDbDimension& to) {
    static constexpr const ACHAR* kApplication = L"ACAD";
    (void)to.setDimensionStyle(from.dimensionStyle());
    (void)to.setDimscale(from.ownDimscale());
    const ListOwner own(from.xData(kApplication));
    const ListOwner other(to.xData(kApplication));
    if (own.get() != nullptr) {
        (void)to.setXData(own.get());
    } else if (other.get() != nullptr) {
        resbuf none = {};
        none.restype = AcDb::kDxfRegAppName;
        none.resval.rstring = const_cast<ACHAR*>(kApplication);
        (void)to.setXData(&none);
    }
}

Acad::ErrorStatus match(const AcDbEntity& from, AcDbEntity& to, unsigned int what) {
    Acad::ErrorStatus es = Acad::eOk;
    if (what & kLayer) es = to.setLayer(from.layerId());
    if (es != Acad::eOk) return es;
    if (what & kColor) giveColor(to, traitsOf(from));
    if (what & kLinetype) (void)to.setLinetype(from.linetypeId());
    if (what & kLinetypeScale) (void)to.setLinetypeScale(from.linetypeScale());
    if (what & kLineWeight) (void)to.setLineWeight(from.lineWeight());
    if (what & kText) matchWording(from, to);
    const auto* const dimension = AcDbDimension::cast(&from);
    auto* const otherDimension = AcDbDimension::cast(&to);
    if ((what & kDimension) && dimension != nullptr && otherDimension != nullptr)
        matchDimension(*dimension, *otherDimension);
    return es;
}

/// The bar type of one piece to the others; their sizes stay. What refuses is told with its reason.
void matchRole(const CommandContext& context, int role, const Ids& targets) {
    for (const AcDbObjectId& id : targets) {
        const Properties* properties = nullptr;
        {
            const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
            if (entity.openStatus() != Acad::eOk || !roleOf(*entity.object())) continue;
            properties = propertiesOf(*entity.object());
        }
        ACHAR* reason = nullptr;
        if (!properties->setAlone(id, protocol::kRoleKey, std::to_wstring(role).c_str(), reason))
            say(context, reason != nullptr ? reason : L"O tipo de barra não pôde ser mudado.");
        acutDelString(reason);
    }
}

void matchAll(const CommandContext& context, AcDbObjectId source, Ids targets) {
    std::erase(targets, source);
    const unsigned int what = memory(context).matched;
    std::optional<int> role;
    {
        const AcDbObjectPointer<AcDbEntity> from(source, AcDb::kForRead);
        if (from.openStatus() != Acad::eOk) {
            say(context, L"O objeto de origem não pode ser aberto.");
            return;
        }
        const std::size_t refused = changeEach(targets, [&](AcDbEntity& to, std::size_t) {
                                        return match(*from.object(), to, what);
                                    }).size();
        if (refused > 0)
            say(context, counted(refused, L"objeto não pôde ser mudado.",
                                 L"objetos não puderam ser mudados."));
        if (what & kRole) role = roleOf(*from.object());
    }
    if (role) matchRole(context, *role, targets);
}

void tellSettings(const CommandContext& context) {
    std::wstring on;
    for (const Setting& each : kSettings)
        if (memory(context).matched & each.what)
            on += (on.empty() ? L" " : L", ") + std::wstring(each.name);
    say(context, L"Propriedades copiadas:" + (on.empty() ? L" nenhuma" : on));
}

/// False after Esc.
Task<bool> askSettings(CommandContext context) {
    std::wstring question = L"\nLigar ou desligar [";
    std::vector<Word> words;
    for (const Setting& each : kSettings) {
        question += std::wstring(each.word.local) + L"/";
        words.push_back(each.word);
    }
    words.push_back({L"Sair", L"eXit"});
    question += L"Sair] <Sair>: ";
    for (;;) {
        tellSettings(context);
        const InputValue answer =
            co_await context.ask(Prompt(InputKind::Keyword, question).words(words));
        if (answer.status == RTCAN) co_return false;
        if (answer.status != RTKWORD || isWord(answer, L"eXit")) co_return true;
        for (const Setting& each : kSettings)
            if (isWord(answer, each.word.global)) memory(context).matched ^= each.what;
    }
}

Task<AcDbObjectId> askSource(CommandContext context) {
    for (;;) {
        const InputValue picked =
            co_await context.ask(Prompt(InputKind::Entity, L"\nObjeto de origem: ").required());
        if (picked.status == RTCAN) co_return AcDbObjectId::kNull;
        if (!picked.entities.empty()) co_return picked.entities.front();
        context.editor().complain(L"Nenhum objeto aí: selecione o objeto de origem.",
                                  Complaint::Refused);
    }
}

}  // namespace

CommandTask matchprop(CommandContext context) {
    // One object selected before is the origin; several are what is to be like it.
    Ids before = context.editor().selection().take();
    AcDbObjectId source;
    if (before.size() == 1)
        source = before.front();
    else
        source = co_await askSource(context);
    if (source.isNull()) co_return CommandEnd::Cancelled;
    tellSettings(context);
    SelectOptions options;
    options.prompt = L"\nObjetos de destino ou [Configurações]: ";
    options.words = {{L"Configurações", L"Settings"}};
    options.single = true;
    const bool known = before.size() > 1;
    if (known) context.editor().selection().select(std::move(before));
    for (;;) {
        const Selection chosen = co_await selectObjects(context, options);
        if (chosen.status == RTNORM) {
            matchAll(context, source, chosen.ids);
            if (known) co_return CommandEnd::Done;
        } else if (chosen.status == RTKWORD) {
            const bool going = co_await askSettings(context);
            if (!going) co_return CommandEnd::Cancelled;
        } else {
            // Esc ends it as Enter does: what was changed stays.
            co_return CommandEnd::Done;
        }
    }
}

}  // namespace prancheta::commands
