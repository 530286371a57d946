// SPDX-License-Identifier: MIT
// Records of TABLES.
#include <cmath>
#include <span>
#include <vector>

#include "prancheta/base/symbol_name.h"
#include "prancheta/base/text.h"
#include "prancheta/verify/examiner.h"

namespace prancheta::verify {
namespace {

constexpr double kPatternTolerance = 1e-6;

void examineName(Examiner& examiner, const dxf::Record& record, std::string_view name) {
    if (trim(name).empty()) return examiner.error("registro sem nome (grupo 2)");
    const bool anonymous = record.type == "BLOCK_RECORD" || record.type == "VPORT";
    const std::string_view rest = anonymous && name.starts_with('*') ? name.substr(1) : name;
    const std::string read = toUtf8(dxf::decodeText(rest, examiner.census().charset));
    if (read.find_first_of(kForbiddenInNames) != std::string::npos)
        examiner.error("o nome " + shown(name) + " tem caracteres proibidos", name.data());
    // Several records of one name tile the screen.
    if (record.type != "VPORT" && !examiner.define(record.type, name))
        examiner.error("o nome " + shown(name) + " aparece duas vezes na tabela", name.data());
}

void examineLayer(Examiner& examiner, const dxf::Record& record) {
    long long color = 7;
    if (dxf::parseInteger(valueOf(record, 62), color) &&
        (color == 0 || color < -255 || color > 255))
        examiner.error("a cor de uma camada deve ser de 1 a 255 (negativa: desligada)");
    const std::string_view linetype = valueOf(record, 6);
    if (linetype.data() == nullptr)
        examiner.error("a camada não diz o tipo de linha (grupo 6)");
    else if (!examiner.census().knows(Census::kLinetypes, linetype))
        examiner.error("o tipo de linha " + shown(linetype) + " não existe", linetype.data());
}

void examineLinetype(Examiner& examiner, const dxf::Record& record) {
    long long said = 0;
    double length = 0.0;
    double sum = 0.0;
    long long dashes = 0;
    (void)dxf::parseInteger(valueOf(record, 73), said);  // a bad value was told already
    (void)dxf::parseReal(valueOf(record, 40), length);
    for (const dxf::Tag& tag : record.tags) {
        double dash = 0.0;
        if (tag.code != 49 || !dxf::parseReal(tag.value, dash)) continue;
        ++dashes;
        sum += std::abs(dash);
    }
    if (said != dashes)
        examiner.error("o padrão diz ter " + std::to_string(said) + " traços e tem " +
                       std::to_string(dashes));
    else if (std::abs(sum - length) > kPatternTolerance * std::max(1.0, sum))
        examiner.warning("o comprimento do padrão (grupo 40) não é a soma dos traços", record.at);
}

void examineStyle(Examiner& examiner, const dxf::Record& record) {
    double height = 0.0;
    if (dxf::parseReal(valueOf(record, 40), height) && height < 0.0)
        examiner.error("altura de texto negativa");
}

/// What a record of a table must have, beside its name.
struct TableRule {
    std::string_view type;
    std::string_view marker;
    std::span<const int> required;
    void (*check)(Examiner&, const dxf::Record&) = nullptr;
};

constexpr int kFlags[] = {70};
constexpr int kLayer[] = {70, 62};
constexpr int kLinetype[] = {70, 3, 72, 73, 40};
constexpr int kStyle[] = {70, 40, 41, 50, 71, 42, 3, 4};
constexpr TableRule kTableRules[] = {
    {"LAYER", "AcDbLayerTableRecord", kLayer, examineLayer},
    {"LTYPE", "AcDbLinetypeTableRecord", kLinetype, examineLinetype},
    {"STYLE", "AcDbTextStyleTableRecord", kStyle, examineStyle},
    {"DIMSTYLE", "AcDbDimStyleTableRecord", kFlags},
    {"APPID", "AcDbRegAppTableRecord", kFlags},
    {"BLOCK_RECORD", "AcDbBlockTableRecord", {}},
    {"VPORT", "AcDbViewportTableRecord", kFlags},
    {"VIEW", "AcDbViewTableRecord", kFlags},
    {"UCS", "AcDbUCSTableRecord", kFlags},
};

void examineMarkers(Examiner& examiner, const dxf::Record& record, std::string_view marker) {
    std::vector<std::string_view> markers;
    for (const dxf::Tag& tag : record.tags)
        if (tag.code == 100) markers.push_back(trim(tag.value));
    if (markers.size() < 2 || markers[0] != "AcDbSymbolTableRecord" || markers[1] != marker)
        examiner.error("falta o marcador " + std::string(marker) + " ou está fora do lugar");
}

}  // namespace

void examineTableRecord(Examiner& examiner, const dxf::Record& record) {
    const bool modern = examiner.census().modern;
    if (record.type == "TABLE") {
        if (!examiner.define("TABLE", valueOf(record, 2)))
            examiner.error("a tabela aparece duas vezes");
        if (modern && ownerOf(record) != 0) examiner.error("o dono de uma tabela deve ser 0");
        return;
    }
    if (examiner.walker().table.empty()) return examiner.error("registro fora de uma tabela");
    if (record.type != examiner.walker().table)
        examiner.error("registro de outro tipo na tabela " + shown(examiner.walker().table));
    if (modern && ownerOf(record) != examiner.tableHandle())
        examiner.error("o dono (grupo 330) não é a tabela");
    // A style without a name stands for a shape file.
    const std::string_view name = valueOf(record, 2);
    if (record.type != "STYLE" || !trim(name).empty()) examineName(examiner, record, name);
    for (const TableRule& known : kTableRules) {
        if (known.type != record.type) continue;
        if (modern) examineMarkers(examiner, record, known.marker);
        for (const int code : known.required)
            if (modern && valueOf(record, code).data() == nullptr)
                examiner.error("falta o grupo " + std::to_string(code));
        if (known.check != nullptr) known.check(examiner, record);
    }
}

}  // namespace prancheta::verify
