// SPDX-License-Identifier: MIT
// Records of OBJECTS: dictionaries, owners, layouts.
#include <algorithm>

#include "prancheta/base/text.h"
#include "prancheta/verify/examiner.h"

namespace prancheta::verify {
namespace {

bool isDictionary(std::string_view type) {
    return type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT";
}

bool isEntity(const dxf::Record& record) {
    return std::any_of(record.tags.begin(), record.tags.end(), [](const dxf::Tag& tag) {
        return tag.code == 100 && trim(tag.value) == "AcDbEntity";
    });
}

/// Objects that belong to the dictionary that names them. Others may be named by several.
bool isOwnedByItsDictionary(std::string_view type) {
    constexpr std::string_view kOwned[] = {
        "DICTIONARY", "ACDBDICTIONARYWDFLT", "XRECORD",         "LAYOUT",
        "GROUP",      "MLINESTYLE",          "ACDBPLACEHOLDER", "PLOTSETTINGS",
    };
    return std::find(std::begin(kOwned), std::end(kOwned), type) != std::end(kOwned);
}

/// Names with the handles that follow them.
void examineEntries(Examiner& examiner, const dxf::Record& record, bool root) {
    std::string_view name;
    bool inBody = false;
    for (const dxf::Tag& tag : record.tags) {
        if (tag.code == 100) inBody = trim(tag.value) == "AcDbDictionary";
        if (!inBody) continue;
        if (tag.code == 3) {
            name = trim(tag.value);
            if (root) examiner.rootEntry(name);
        }
        if (tag.code != 350 && tag.code != 360) continue;
        const auto child = examiner.census().objects.find(handleValue(tag.value));
        if (child == examiner.census().objects.end()) continue;  // told with the references
        const bool owned = tag.code == 360 || isOwnedByItsDictionary(child->second.type);
        if (owned && child->second.owner != handleOf(record))
            examiner.error("a entrada " + shown(name) + " aponta para um objeto de outro dono",
                           tag.value.data());
    }
}

}  // namespace

void examineObject(Examiner& examiner, const dxf::Record& record) {
    if (!examiner.census().modern) return;
    if (isEntity(record)) return examiner.error("uma entidade na seção OBJECTS");
    const std::uint64_t owner = ownerOf(record);
    const bool root = examiner.isFirstObject();
    if (root && (!isDictionary(record.type) || owner != 0))
        examiner.error("o primeiro objeto deve ser o dicionário principal, com dono 0");
    if (!root && owner == 0) examiner.error("o objeto não tem dono (grupo 330)");
    if (isDictionary(record.type)) examineEntries(examiner, record, root);
    const auto known = examiner.census().objects.find(owner);
    if (owner == 0) return;
    if (known == examiner.census().objects.end())
        return examiner.error("o dono do objeto não existe");
    if (record.type == "LAYOUT" && known->second.type != "DICTIONARY")
        examiner.error("o dono de um LAYOUT deve ser um dicionário");
}

}  // namespace prancheta::verify
