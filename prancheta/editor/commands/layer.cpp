// SPDX-License-Identifier: MIT
// LAYER: the panel of a window, else its command-line form.
#include "prancheta/editor/commands/files.h"
#include "prancheta/editor/commands/layers.h"
#include "prancheta/editor/commands/support.h"
#include "prancheta/editor/commands/table.h"
#include "prancheta/editor/editor.h"

namespace prancheta::commands {

namespace {

using Names = std::vector<std::wstring>;

/// An option that only asks which layers and does one thing to each.
struct Switch {
    Word word;
    const wchar_t* verb;  ///< "... de camadas a ligar"
    bool (*apply)(const CommandContext&, AcDbLayerTableRecord&);
};

bool setOn(const CommandContext&, AcDbLayerTableRecord& layer) {
    return layer.setIsOff(false) == Acad::eOk;
}
bool setOff(const CommandContext&, AcDbLayerTableRecord& layer) {
    return layer.setIsOff(true) == Acad::eOk;
}
bool thaw(const CommandContext&, AcDbLayerTableRecord& layer) {
    return layer.setIsFrozen(false) == Acad::eOk;
}
bool lock(const CommandContext&, AcDbLayerTableRecord& layer) {
    return layer.setIsLocked(true) == Acad::eOk;
}
bool unlock(const CommandContext&, AcDbLayerTableRecord& layer) {
    return layer.setIsLocked(false) == Acad::eOk;
}

/// The current layer is refused with words of its own.
bool freeze(const CommandContext& context, AcDbLayerTableRecord& layer) {
    return freezeLayer(context, layer) || layer.objectId() == context.database().clayer();
}

constexpr Switch kSwitches[] = {
    {{L"LIGar", L"ON"}, L"ligar", setOn},
    {{L"DESligar", L"OFF"}, L"desligar", setOff},
    {{L"CONgelar", L"Freeze"}, L"congelar", freeze},
    {{L"DESCongelar", L"Thaw"}, L"descongelar", thaw},
    {{L"BLoquear", L"LOck"}, L"bloquear", lock},
    {{L"DESBloquear", L"Unlock"}, L"desbloquear", unlock},
};

void sayUnchanged(const CommandContext& context, AcDbObjectId id) {
    say(context, L"A camada \"" + layerName(id) + L"\" não pôde ser alterada.");
}

/// Names of existing layers as the user lists them; a pattern or name that fits none is told.
Task<InputValue> switchLayers(CommandContext context, const Switch* option) {
    const InputValue list = co_await context.ask(
        Prompt(InputKind::Text,
               std::wstring(L"\nDigite a lista de nomes de camadas a ") + option->verb + L": ")
            .wholeLine());
    if (list.status != RTNORM) co_return list;
    const bool off = option->apply == setOff;
    for (const AcDbObjectId id : layersNamed(context, list.text)) {
        if (off && id == context.database().clayer()) {
            const InputValue sure = co_await askYesNo(context,
                                                      L"\nDeseja realmente desligar a camada \"" +
                                                          layerName(id) + L"\" (a camada ATUAL)?",
                                                      Choice::No);
            if (sure.status == RTCAN) co_return sure;
            if (sure.number == 0.0) continue;
        }
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer.openStatus() != Acad::eOk || !option->apply(context, *layer.object()))
            sayUnchanged(context, id);
    }
    co_return list;
}

Task<InputValue> listLayersTask(CommandContext context) {
    const InputValue names = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite os nomes das camadas a listar <*>: ").wholeLine());
    if (names.status != RTCAN) listLayers(context, names.status == RTNORM ? names.text : L"*");
    co_return names;
}

Task<InputValue> newLayers(CommandContext context) {
    const InputValue names = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite a lista de nomes das novas camadas: ").wholeLine());
    if (names.status == RTNORM)
        for (const std::wstring& name : splitList(names.text)) (void)makeLayer(context, name);
    co_return names;
}

Task<InputValue> makeAndSet(CommandContext context) {
    const std::wstring current = layerName(context.database().clayer());
    const InputValue name = co_await context.ask(
        Prompt(InputKind::Text,
               L"\nDigite o nome da nova camada (será a camada atual) <" + current + L">: ")
            .wholeLine());
    if (name.status != RTNORM) co_return name;
    AcDbObjectId id = layerNamed(context, name.text);
    if (id.isNull()) id = makeLayer(context, name.text);
    if (!id.isNull()) (void)makeLayerCurrent(context, id);
    co_return name;
}

Task<InputValue> setCurrent(CommandContext context) {
    const std::wstring current = layerName(context.database().clayer());
    const InputValue name = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite o nome da camada a tornar atual <" + current + L">: ")
            .wholeLine());
    if (name.status != RTNORM) co_return name;
    const AcDbObjectId id = layerNamed(context, name.text);
    if (id.isNull())
        context.editor().complain(L"A camada \"" + name.text + L"\" não existe.",
                                  Complaint::Refused);
    else
        (void)makeLayerCurrent(context, id);
    co_return name;
}

Task<InputValue> renameTask(CommandContext context) {
    const InputValue from = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite o nome antigo da camada: ").wholeLine());
    if (from.status != RTNORM) co_return from;
    const AcDbObjectId id = layerNamed(context, from.text);
    if (id.isNull() || id == context.database().layerZero()) {
        context.editor().complain(id.isNull() ? L"A camada \"" + from.text + L"\" não existe."
                                              : L"A camada \"0\" não pode ser renomeada.",
                                  Complaint::Refused);
        co_return from;
    }
    const InputValue to = co_await context.ask(
        Prompt(InputKind::Text, L"\nDigite o nome novo da camada: ").wholeLine());
    if (to.status != RTNORM) co_return to;
    (void)renameLayer(context, id, to.text);
    co_return to;
}

/// A value, and the layers that get it (the current one by default).
struct Property {
    Word word;
    const wchar_t* prompt;
    const wchar_t* refusal;
    bool (*understood)(const CommandContext&, const std::wstring&);
    bool (*apply)(const CommandContext&, AcDbLayerTableRecord&, const std::wstring&);
};

constexpr Property kProperties[] = {
    {{L"COR", L"Color"},
     L"\nDigite o nome ou o número da cor (1-255): ",
     L"Cor inválida: use 1 a 255, o nome ou vermelho,verde,azul, como 255,128,0.",
     colorUnderstood,
     applyColor},
    {{L"Tipolinha", L"Ltype"},
     L"\nDigite o nome do tipo de linha: ",
     L"O tipo de linha não existe.",
     linetypeUnderstood,
     applyLinetype},
    {{L"Espessura", L"LWeight"},
     L"\nDigite a espessura de linha (0.00 - 2.11): ",
     L"Espessura inválida: use um valor de 0 a 2.11.",
     weightUnderstood,
     applyWeight},
    {{L"Plotar", L"Plot"},
     L"\nDigite uma preferência de plotagem [Plotar/Não]: ",
     L"Responda Plotar ou Não.",
     plotUnderstood,
     applyPlot},
};

Task<InputValue> setProperty(CommandContext context, const Property* property) {
    const InputValue value =
        co_await context.ask(Prompt(InputKind::Text, property->prompt).wholeLine());
    if (value.status != RTNORM) co_return value;
    if (!property->understood(context, value.text)) {
        context.editor().complain(property->refusal, Complaint::Refused);
        co_return value;
    }
    const std::wstring current = layerName(context.database().clayer());
    const InputValue names =
        co_await context.ask(Prompt(InputKind::Text, L"\nDigite a lista de nomes de camadas para " +
                                                         value.text + L" <" + current + L">: ")
                                 .wholeLine());
    if (names.status == RTCAN) co_return names;
    Ids layers{context.database().clayer()};
    if (names.status == RTNORM) layers = layersNamed(context, names.text);
    for (const AcDbObjectId id : layers) {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForWrite);
        if (layer.openStatus() != Acad::eOk ||
            !property->apply(context, *layer.object(), value.text))
            sayUnchanged(context, id);
    }
    co_return names;
}

struct Option {
    Word word;
    Task<InputValue> (*run)(CommandContext);
};
constexpr Option kOptions[] = {
    {{L"?", L"?"}, listLayersTask},         {{L"CRiar", L"Make"}, makeAndSet},
    {{L"DEFinir", L"Set"}, setCurrent},     {{L"Novo", L"New"}, newLayers},
    {{L"Renomear", L"Rename"}, renameTask},
};

Prompt optionPrompt() {
    std::vector<Word> words;
    for (const Option& option : kOptions) words.push_back(option.word);
    for (const Switch& option : kSwitches) words.push_back(option.word);
    for (const Property& property : kProperties) words.push_back(property.word);
    std::wstring text = L"\nDigite uma opção [";
    for (const Word& word : words) text += std::wstring(word.local) + L"/";
    text.back() = L']';
    return Prompt(InputKind::Keyword, text + L": ").words(words);
}

Task<InputValue> runOption(CommandContext context, std::wstring word) {
    InputValue answer;
    for (const Option& option : kOptions)
        if (word == option.word.global) answer = co_await option.run(context);
    for (const Switch& option : kSwitches)
        if (word == option.word.global) answer = co_await switchLayers(context, &option);
    for (const Property& property : kProperties)
        if (word == property.word.global) answer = co_await setProperty(context, &property);
    co_return answer;
}

}  // namespace

CommandTask layer(CommandContext context) {
    say(context, L"Camada atual:  \"" + layerName(context.database().clayer()) + L"\"");
    for (;;) {
        InputValue answer = co_await context.ask(optionPrompt());
        // Esc ends the command; what its options did stays.
        if (answer.status != RTKWORD) co_return CommandEnd::Done;
        answer = co_await runOption(context, answer.text);
        if (answer.status == RTCAN) co_return CommandEnd::Done;
    }
}

CommandTask layerInWindow(CommandContext context) {
    if (usesWindows(context) && context.editor().ui().showTool(Tool::Layers))
        co_return CommandEnd::Done;
    const CommandEnd end = co_await layer(context);
    co_return end;
}

}  // namespace prancheta::commands
