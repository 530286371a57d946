// SPDX-License-Identifier: MIT
// Questions about the attributes of insertions.
#include "prancheta/editor/commands/attributes.h"

#include <algorithm>
#include <unordered_map>

#include "prancheta/base/text.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"
#include "prancheta/entities/insert_parts.h"

namespace prancheta::commands {

namespace {

constexpr int kVerified = AcDbAttributeText::kVerifiable | AcDbAttributeText::kPreset;

/// What is asked for, by tag; without the colon that other programs' prompts bring.
std::unordered_map<std::wstring, std::wstring> promptsOf(AcDbObjectId block) {
    std::unordered_map<std::wstring, std::wstring> prompts;
    for (const AcDbObjectId& id : attributeDefinitions(block)) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (definition.openStatus() != Acad::eOk) continue;
        std::wstring prompt(trim(std::wstring_view(definition->promptConst())));
        while (!prompt.empty() && (prompt.back() == L':' || prompt.back() == L' '))
            prompt.pop_back();
        prompts[foldCase(definition->tagConst())] = prompt;
    }
    return prompts;
}

/// Enter keeps the value, a lone point empties it. RTCAN after Esc.
Task<int> askValue(CommandContext context, AcDbAttribute* attribute, std::wstring prompt) {
    const std::wstring present = attribute->textStringConst();
    if (prompt.empty()) prompt = attribute->tagConst();
    if (!present.empty()) prompt += L" <" + present + L">";
    const InputValue answer =
        co_await context.ask(Prompt(InputKind::Text, L"\n" + prompt + L": ").wholeLine());
    if (answer.status == RTNORM && !answer.text.empty())
        (void)attribute->setTextString(answer.text == L"." ? L"" : answer.text.c_str());
    co_return answer.status == RTCAN ? RTCAN : RTNORM;
}

/// Asks for those whose modes, under the mask, are these.
Task<int> askAll(CommandContext context, AcDbBlockReference* insertion, int mask, int modes) {
    const auto prompts = promptsOf(insertion->blockTableRecord());
    for (AcDbAttribute* const attribute : attributesForChange(*insertion)) {
        if ((attribute->modes() & mask) != modes) continue;
        // Not inside the co_await: g++ 12 destroys a temporary of a condition twice.
        const auto found = prompts.find(foldCase(attribute->tagConst()));
        std::wstring prompt;
        if (found != prompts.end()) prompt = found->second;
        const int status = co_await askValue(context, attribute, prompt);
        if (status == RTCAN) co_return RTCAN;
    }
    co_return RTNORM;
}

}  // namespace

Task<int> askAttributes(CommandContext context, AcDbBlockReference* insertion) {
    const int status = co_await askAll(context, insertion, AcDbAttributeText::kPreset, 0);
    co_return status;
}

std::unique_ptr<AcDbBlockReference> draftOf(AcDbObjectId id) {
    const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForRead);
    AcDbEntity* copy = nullptr;
    if (insertion.openStatus() != Acad::eOk ||
        insertion->getTransformedCopy(AcGeMatrix3d::kIdentity, copy) != Acad::eOk)
        return nullptr;
    return std::unique_ptr<AcDbBlockReference>(AcDbBlockReference::cast(copy));
}

bool takeValues(AcDbObjectId id, const AcDbBlockReference& draft) {
    const AcDbObjectPointer<AcDbBlockReference> insertion(id, AcDb::kForWrite);
    if (insertion.openStatus() != Acad::eOk) return false;
    const std::vector<const AcDbAttribute*> given = attributesOf(draft);
    const std::vector<AcDbAttribute*> attributes = attributesForChange(*insertion.object());
    for (std::size_t i = 0; i < attributes.size(); ++i)
        (void)attributes[i]->setTextString(given[i]->textStringConst());  // the reference is open
    return true;
}

Task<int> askNewAttributes(CommandContext context, AcDbBlockReference* insertion) {
    const std::vector<const AcDbAttribute*> attributes = attributesOf(*insertion);
    if (attributes.empty() || context.editor().variables().number(L"ATTREQ") == 0) co_return RTNORM;
    if (co_await askAll(context, insertion, AcDbAttributeText::kPreset, 0) == RTCAN)
        co_return RTCAN;
    const bool verify = std::any_of(attributes.begin(), attributes.end(), [](const auto* each) {
        return (each->modes() & kVerified) == AcDbAttributeText::kVerifiable;
    });
    if (verify) say(context, L"Verifique os valores dos atributos.");
    const int status =
        co_await askAll(context, insertion, kVerified, AcDbAttributeText::kVerifiable);
    co_return status;
}

CommandTask attedit(CommandContext context) {
    SelectOptions options;
    options.prompt = L"\nSelecione a inserção de um bloco: ";
    options.single = true;
    const Selection chosen = co_await selectObjects(context, options);
    if (chosen.status != RTNORM) co_return endOf(chosen.status);
    AcDbObjectId id;
    for (const AcDbObjectId& each : chosen.ids) {
        const AcDbObjectPointer<AcDbBlockReference> insertion(each, AcDb::kForRead);
        if (insertion.openStatus() == Acad::eOk && !attributesOf(*insertion.object()).empty())
            id = each;
    }
    if (id.isNull()) {
        context.editor().complain(L"O objeto não é uma inserção com atributos.",
                                  Complaint::Refused);
        co_return CommandEnd::Failed;
    }
    const std::unique_ptr<AcDbBlockReference> draft = draftOf(id);
    if (draft == nullptr) co_return CommandEnd::Failed;
    if (co_await askAll(context, draft.get(), 0, 0) == RTCAN) co_return CommandEnd::Cancelled;
    co_return takeValues(id, *draft) ? CommandEnd::Done : CommandEnd::Failed;
}

}  // namespace prancheta::commands
