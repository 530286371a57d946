// SPDX-License-Identifier: MIT
// Records of TABLES.
#include <cmath>

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
    if (rest.find_first_of(kForbiddenInNames) != std::string_view::npos &&
        rest.find("\\U+") == std::string_view::npos)
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

struct TableCheck {
    std::string_view type;
    void (*check)(Examiner&, const dxf::Record&);
};

constexpr TableCheck kChecks[] = {
    {"LAYER", examineLayer}, {"LTYPE", examineLinetype}, {"STYLE", examineStyle}};

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
    for (const TableCheck& known : kChecks)
        if (known.type == record.type) known.check(examiner, record);
}

}  // namespace prancheta::verify
