// SPDX-License-Identifier: MIT
// Semantic check of a loaded file.
#include "prancheta/dcl/check.h"

#include <unordered_map>

#include "prancheta/base/text.h"
#include "prancheta/dcl/attributes.h"
#include "prancheta/dcl/kinds.h"

namespace prancheta::dcl {
namespace {

class Checker {
public:
    explicit Checker(Library& library) : m_library(library) {}

    void definition(const Definition& d);
    void dialog(const Definition& d);

private:
    void report(Severity severity, const Place& at, std::string text) {
        m_library.findings.push_back({severity, at.error(std::move(text))});
    }
    void ownAttributes(const Definition& d);
    void mnemonic(const Definition& d);
    void imageSize(const Definition& d);
    void radioChildren(const Definition& d);
    void tile(const Definition& d, const Place& at);

    Library& m_library;
    std::unordered_map<std::string, int> m_keys;  ///< of the dialog being walked, with their lines
    int m_defaultButtons = 0;
};

void Checker::ownAttributes(const Definition& d) {
    for (const std::string& name : d.own) {
        const Value& value = *d.attributes.find(name)->second;
        if (std::string why = whyUnsuitable(name, value); !why.empty())
            report(Severity::Warning, value.at, std::move(why));
    }
    mnemonic(d);
    if (d.attribute("width") && d.attribute("height") && d.attribute("aspect_ratio") &&
        !d.own.empty())
        report(Severity::Hint, d.at, "width, height e aspect_ratio juntos: um deles sobra");
}

void Checker::mnemonic(const Definition& d) {
    const Value* letter = d.attribute("mnemonic");
    const Value* label = d.attribute("label");
    if (letter == nullptr || toWide(letter->text).size() != 1) return;
    const std::wstring shown = label != nullptr ? foldCase(toWide(label->text)) : std::wstring();
    if (shown.find(foldCase(toWide(letter->text))) == std::wstring::npos)
        report(Severity::Warning, letter->at,
               "a letra \"" + letter->text + "\" de mnemonic não está em label");
}

void Checker::imageSize(const Definition& d) {
    const int given = (d.attribute("width") != nullptr) + (d.attribute("height") != nullptr) +
                      (d.attribute("aspect_ratio") != nullptr);
    const bool ratioAlone = !d.attribute("width") && !d.attribute("height");
    if (given < 2 || ratioAlone)
        report(Severity::Warning, d.at,
               std::string(kindName(*d.kind)) +
                   " precisa de width e height, ou de um deles com aspect_ratio");
}

void Checker::radioChildren(const Definition& d) {
    const bool radio = isRadioCluster(*d.kind);
    for (const Child& child : d.children) {
        const bool button = child.definition->kind == TileKind::RadioButton;
        if (button && !radio)
            report(Severity::Error, child.at, "radio_button fora de um grupo de opções");
        else if (radio && !button)
            report(Severity::Error, child.at,
                   "um grupo de opções só pode ter radio_button, encontrei " +
                       std::string(kindName(*child.definition->kind)));
    }
}

/// Instances written in place belong to their definition; named children have their own turn.
void Checker::definition(const Definition& d) {
    ownAttributes(d);
    if (!d.kind) return;
    // A prototype may leave the size of an image to its instances.
    if (isImage(*d.kind) && d.name.empty()) imageSize(d);
    radioChildren(d);
    for (const Child& child : d.children)
        if (child.definition->name.empty()) definition(*child.definition);
}

void Checker::tile(const Definition& d, const Place& at) {
    if (const Value* key = d.attribute("key"); key != nullptr && !key->text.empty()) {
        const auto [it, isNew] = m_keys.try_emplace(key->text, at.line);
        if (!isNew)
            report(
                Severity::Error, at,
                "a chave \"" + key->text + "\" já é usada na linha " + std::to_string(it->second));
    }
    const Value* isDefault = d.attribute("is_default");
    if (d.kind == TileKind::Button && isDefault != nullptr && isDefault->text == "true" &&
        ++m_defaultButtons == 2)
        report(Severity::Warning, at, "esta caixa de diálogo já tem um botão com is_default");
    for (const Child& child : d.children) {
        // What a subassembly of the base library holds has no place in the file.
        const bool ours = child.at.file == at.file;
        tile(*child.definition, ours ? child.at : at);
    }
}

void Checker::dialog(const Definition& d) {
    m_keys.clear();
    m_defaultButtons = 0;
    tile(d, d.at);
    const Value* focus = d.attribute("initial_focus");
    if (focus != nullptr && !m_keys.contains(focus->text))
        report(Severity::Warning, focus->at,
               "initial_focus: não há componente com a chave \"" + focus->text + '"');
}

}  // namespace

void check(Library& library) {
    Checker checker(library);
    for (const DefinitionPtr& d : library.inOrder) {
        checker.definition(*d);
        if (d->kind == TileKind::Dialog) checker.dialog(*d);
    }
}

}  // namespace prancheta::dcl
