// SPDX-License-Identifier: MIT
// Groups of any record: values by their codes, braces, references, extended data.
#include "prancheta/base/text.h"
#include "prancheta/verify/examiner.h"

namespace prancheta::verify {
namespace {

constexpr std::size_t kMostExtendedData = 16383;  // bytes an entity
constexpr std::size_t kLongestOldText = 255;
constexpr std::size_t kLongestText = 2049;
constexpr std::size_t kLongestChunk = 127;

struct Extended {
    bool begun = false;
    int depth = 0;
    std::size_t bytes = 0;
};

/// Bytes that a group of extended data takes in a drawing file.
std::size_t extendedSize(const dxf::Tag& tag) {
    switch (tag.code) {
        case 1000:
            return 3 + tag.value.size();
        case 1004:
            return 2 + tag.value.size() / 2;
        case 1001:
        case 1003:
        case 1005:
            return 9;
        case 1002:
            return 2;
        case 1070:
            return 3;
        case 1071:
            return 5;
        default:
            // Points are told by their first coordinate.
            return tag.code >= 1010 && tag.code < 1020 ? 25 : tag.code >= 1040 ? 9 : 0;
    }
}

void examineExtended(Examiner& examiner, const dxf::Tag& tag, Extended& data) {
    const char* const at = tag.value.data();
    const Census& census = examiner.census();
    if (!data.begun && tag.code != 1001)
        examiner.error("dados estendidos sem o aplicativo (grupo 1001)", at);
    data.begun = true;
    data.bytes += extendedSize(tag);
    const std::size_t longest = census.version < "AC1021" ? kLongestOldText : kLongestText;
    if (tag.code == 1001) {
        if (data.depth != 0) examiner.error("chaves abertas nos dados estendidos", at);
        data.depth = 0;
        if (!census.knows(Census::kApplications, tag.value))
            examiner.error("o aplicativo " + shown(tag.value) + " não está na tabela APPID", at);
    } else if (tag.code == 1002) {
        const std::string_view brace = trim(tag.value);
        data.depth += brace == "{" ? 1 : -1;
        if ((brace != "{" && brace != "}") || data.depth < 0)
            examiner.error("chaves que não fecham nos dados estendidos", at);
    } else if (tag.code == 1000 && tag.value.size() > longest) {
        examiner.error(
            "texto dos dados estendidos com mais de " + std::to_string(longest) + " bytes", at);
    } else if (tag.code == 1003 && !census.knows(Census::kLayers, tag.value)) {
        examiner.error("dados estendidos: a camada " + shown(tag.value) + " não existe", at);
    } else if (tag.code == 1004 && tag.value.size() > 2 * kLongestChunk) {
        examiner.error("bloco binário com mais de 127 bytes", at);
    }
}

void examineRange(Examiner& examiner, const dxf::Tag& tag) {
    const dxf::ValueKind kind = dxf::kindOf(tag.code);
    long long value = 0;
    if (!dxf::parseInteger(tag.value, value)) return;
    const bool fits = kind == dxf::ValueKind::Int16 ? value >= -32768 && value <= 32767
                      : kind == dxf::ValueKind::Int32
                          ? value >= -2147483648LL && value <= 4294967295LL
                      : kind == dxf::ValueKind::Bool ? value == 0 || value == 1
                                                     : true;
    if (!fits)
        examiner.error(
            "o valor " + shown(tag.value) + " não cabe no código " + std::to_string(tag.code),
            tag.value.data());
}

void examineText(Examiner& examiner, const dxf::Tag& tag) {
    for (const char c : tag.value)
        if (static_cast<unsigned char>(c) < 0x20 && c != '\t')
            return examiner.error("caractere de controle no código " + std::to_string(tag.code),
                                  tag.value.data());
    if (examiner.census().charset == dxf::Charset::Utf8 && !isValidUtf8(tag.value))
        examiner.error("texto que não é UTF-8 no código " + std::to_string(tag.code) +
                           " (esta versão de arquivo o exige)",
                       tag.value.data());
}

bool isReference(int code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 ||
           code == 1005;
}

void examineReference(Examiner& examiner, const dxf::Tag& tag) {
    const std::uint64_t handle = handleValue(tag.value);
    if (handle == 0 || examiner.census().objects.contains(handle)) return;
    const std::string text = "o código " + std::to_string(tag.code) + " aponta para o objeto " +
                             shown(tag.value) + ", que não existe";
    // Weak references may survive what they meant.
    const bool weak = tag.code == 1005 || (tag.code >= 320 && tag.code <= 339);
    if (weak)
        examiner.warning(text, tag.value.data());
    else
        examiner.error(text, tag.value.data());
}

}  // namespace

void examineGroups(Examiner& examiner, const dxf::Record& record) {
    Extended extended;
    bool inBraces = false;
    for (const dxf::Tag& tag : record.tags) {
        const char* const at = tag.value.data();
        std::string why;
        // In a dimension style group 5 is the name of an arrow's block.
        const bool isName = tag.code == 5 && record.type == "DIMSTYLE";
        if (!isName && !dxf::checkValue(tag, why)) {
            examiner.error(why, at);
            continue;
        }
        if (dxf::kindOf(tag.code) == dxf::ValueKind::Handle && trim(tag.value).empty())
            examiner.warning("o código " + std::to_string(tag.code) + " está vazio; vale 0", at);
        examineRange(examiner, tag);
        if (dxf::kindOf(tag.code) == dxf::ValueKind::Text) examineText(examiner, tag);
        if (isReference(tag.code) && examiner.census().modern) examineReference(examiner, tag);
        if (tag.code >= 1000) {
            examineExtended(examiner, tag, extended);
        } else if (extended.begun) {
            examiner.error("grupo " + std::to_string(tag.code) + " depois dos dados estendidos",
                           at);
        }
        if (tag.code == 102) {
            const bool opens = trim(tag.value).starts_with('{');
            if (opens == inBraces) examiner.error("grupos 102 que não fecham", at);
            inBraces = opens;
        }
    }
    if (inBraces) examiner.error("grupo 102 aberto no fim do registro");
    if (extended.depth != 0) examiner.error("chaves abertas nos dados estendidos");
    if (extended.bytes > kMostExtendedData)
        examiner.error("mais de 16383 bytes de dados estendidos");
}

}  // namespace prancheta::verify
