// SPDX-License-Identifier: MIT
// Entities: markers and groups by a table, names that they use, and what counts must agree with.
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>

#include "prancheta/base/text.h"
#include "prancheta/verify/examiner.h"

namespace prancheta::verify {
namespace {

/// What an entity must have. Markers follow AcDbEntity in this order; more may stand behind them.
struct EntityRule {
    std::string_view type;
    std::span<const std::string_view> markers;
    std::span<const int> required;
    std::span<const int> positive;
    void (*check)(Examiner&, const dxf::Record&) = nullptr;
};

std::optional<double> real(const dxf::Record& record, int code) {
    double value = 0.0;
    const std::string_view text = valueOf(record, code);
    return text.data() != nullptr && dxf::parseReal(text, value) ? std::optional(value)
                                                                 : std::nullopt;
}

long long integer(const dxf::Record& record, int code, long long fallback = 0) {
    long long value = fallback;
    (void)dxf::parseInteger(valueOf(record, code), value);  // a bad value was told already
    return value;
}

long long count(const dxf::Record& record, int code) {
    return std::count_if(record.tags.begin(), record.tags.end(),
                         [code](const dxf::Tag& tag) { return tag.code == code; });
}

void expectCount(Examiner& examiner, const dxf::Record& record, int said, int counted,
                 const char* what) {
    const long long wanted = integer(record, said);
    const long long found = count(record, counted);
    if (wanted != found)
        examiner.error("diz ter " + std::to_string(wanted) + " " + what + " e tem " +
                       std::to_string(found));
}

void examinePolyline(Examiner& examiner, const dxf::Record& record) {
    expectCount(examiner, record, 90, 10, "vértices");
    if (count(record, 10) < 2) examiner.warning("polilinha com menos de dois vértices", record.at);
}

void examineLeader(Examiner& examiner, const dxf::Record& record) {
    expectCount(examiner, record, 76, 10, "vértices");
}

void examineMText(Examiner& examiner, const dxf::Record& record) {
    for (const dxf::Tag& tag : record.tags)
        if ((tag.code == 1 || tag.code == 3) && tag.value.size() > 255)
            examiner.warning("trecho de texto com mais de 250 caracteres", tag.value.data());
}

void examineInsert(Examiner& examiner, const dxf::Record& record) {
    const std::string_view name = valueOf(record, 2);
    examiner.refersTo(name);
    if (!examiner.census().knows(Census::kBlocks, name))
        examiner.error("o bloco " + shown(name) + " não existe", name.data());
    for (const int code : {41, 42, 43})
        if (real(record, code) == 0.0) examiner.error("escala zero num bloco");
}

/// Length that an aligned (1) or a rotated (0) dimension measures, from its two origins.
std::optional<double> linearLength(const dxf::Record& record, long long kind) {
    const auto x1 = real(record, 13);
    const auto y1 = real(record, 23);
    const auto x2 = real(record, 14);
    const auto y2 = real(record, 24);
    if (!x1 || !y1 || !x2 || !y2) return {};
    const double z = real(record, 34).value_or(0.0) - real(record, 33).value_or(0.0);
    if (kind == 1) return std::hypot(*x2 - *x1, *y2 - *y1, z);
    const double angle = real(record, 50).value_or(0.0) * std::numbers::pi / 180.0;
    return std::abs((*x2 - *x1) * std::cos(angle) + (*y2 - *y1) * std::sin(angle));
}

void examineDimension(Examiner& examiner, const dxf::Record& record) {
    const std::string_view block = valueOf(record, 2);
    if (block.data() == nullptr) {
        examiner.error("a cota não diz o seu bloco (grupo 2)");
    } else {
        examiner.refersTo(block);
        if (!examiner.census().knows(Census::kBlocks, block))
            examiner.error("o bloco " + shown(block) + " da cota não existe", block.data());
    }
    const std::string_view style = valueOf(record, 3);
    if (style.data() == nullptr || !examiner.census().knows(Census::kDimStyles, style))
        examiner.error("o estilo de cota " + shown(style) + " não existe");
    const auto said = real(record, 42);
    const long long kind = integer(record, 70) & 15;
    const auto length = linearLength(record, kind);
    if (kind <= 1 && said && length && std::abs(*said - *length) > 1e-6 * std::max(1.0, *length))
        examiner.error("a medida (grupo 42) não é a distância entre os pontos");
}

void examineHatch(Examiner& examiner, const dxf::Record& record) {
    const long long paths = integer(record, 91);
    if (paths < 1) examiner.error("hachura sem contorno");
    if (count(record, 92) != paths)
        examiner.error("diz ter " + std::to_string(paths) + " contornos e tem " +
                       std::to_string(count(record, 92)));
}

void examineSpline(Examiner& examiner, const dxf::Record& record) {
    expectCount(examiner, record, 72, 40, "nós");
    expectCount(examiner, record, 73, 10, "pontos de controle");
}

using Marker = std::string_view;
constexpr Marker kLine[] = {"AcDbLine"};
constexpr Marker kCircle[] = {"AcDbCircle"};
constexpr Marker kArc[] = {"AcDbCircle", "AcDbArc"};
constexpr Marker kPoint[] = {"AcDbPoint"};
constexpr Marker kPolyline[] = {"AcDbPolyline"};
constexpr Marker kText[] = {"AcDbText", "AcDbText"};
constexpr Marker kMText[] = {"AcDbMText"};
constexpr Marker kTrace[] = {"AcDbTrace"};
constexpr Marker kFace[] = {"AcDbFace"};
constexpr Marker kEllipse[] = {"AcDbEllipse"};
constexpr Marker kXline[] = {"AcDbXline"};
constexpr Marker kRay[] = {"AcDbRay"};
constexpr Marker kSpline[] = {"AcDbSpline"};
constexpr Marker kHatch[] = {"AcDbHatch"};
constexpr Marker kLeader[] = {"AcDbLeader"};
constexpr Marker kDimension[] = {"AcDbDimension"};
constexpr Marker kBlockBegin[] = {"AcDbBlockBegin"};
constexpr Marker kBlockEnd[] = {"AcDbBlockEnd"};

constexpr int kEnds[] = {10, 20, 11, 21};
constexpr int kCentre[] = {10, 20, 40};
constexpr int kCentreAngles[] = {10, 20, 40, 50, 51};
constexpr int kPlace[] = {10, 20};
constexpr int kWords[] = {10, 20, 40, 1};
constexpr int kAxis[] = {10, 20, 11, 21, 40, 41, 42};
constexpr int kCorners[] = {10, 20, 11, 21, 12, 22};
constexpr int kNamedPlace[] = {2, 10, 20};
constexpr int kVertexCount[] = {90, 70};
constexpr int kName[] = {2};
constexpr int kSize[] = {40};

constexpr EntityRule kRules[] = {
    {"LINE", kLine, kEnds, {}},
    {"CIRCLE", kCircle, kCentre, kSize},
    {"ARC", kArc, kCentreAngles, kSize},
    {"POINT", kPoint, kPlace, {}},
    {"LWPOLYLINE", kPolyline, kVertexCount, {}, examinePolyline},
    {"TEXT", kText, kWords, kSize},
    {"MTEXT", kMText, kWords, kSize, examineMText},
    {"SOLID", kTrace, kCorners, {}},
    {"TRACE", kTrace, kCorners, {}},
    {"3DFACE", kFace, kCorners, {}},
    {"ELLIPSE", kEllipse, kAxis, kSize},
    {"XLINE", kXline, kEnds, {}},
    {"RAY", kRay, kEnds, {}},
    {"SPLINE", kSpline, {}, {}, examineSpline},
    {"HATCH", kHatch, {}, {}, examineHatch},
    {"LEADER", kLeader, {}, {}, examineLeader},
    {"INSERT", {}, kNamedPlace, {}, examineInsert},
    {"DIMENSION", kDimension, kPlace, {}, examineDimension},
    {"BLOCK", kBlockBegin, kName, {}},
    {"ENDBLK", kBlockEnd, {}, {}},
};

/// Hundredths of a millimetre, and by layer, by block, standard.
constexpr int kLineWeights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

bool belongsToAnother(std::string_view type) {
    return type == "VERTEX" || type == "SEQEND" || type == "ATTRIB";
}

/// Group 67 of the entity's head.
bool saysPaper(const dxf::Record& record) {
    for (const dxf::Tag& tag : record.tags) {
        long long value = 0;
        if (tag.code == 67) return dxf::parseInteger(tag.value, value) && value != 0;
        if (tag.code == 100 && trim(tag.value) != "AcDbEntity") break;
    }
    return false;
}

/// What stands in ENTITIES is in the model or on the paper of the layout in use, as group 67 says.
void examineSpace(Examiner& examiner, const dxf::Record& record, std::uint64_t owner) {
    const Census& census = examiner.census();
    const bool inModel = owner == census.modelSpace;
    if (!inModel && !census.paperSpaces.contains(owner))
        examiner.error(
            "o dono de uma entidade da seção ENTITIES deve ser o espaço do modelo ou do "
            "papel");
    else if (inModel == saysPaper(record))
        examiner.error("o dono da entidade não é o espaço que o grupo 67 diz");
}

void examineOwner(Examiner& examiner, const dxf::Record& record) {
    const Census& census = examiner.census();
    const std::uint64_t owner = ownerOf(record);
    if (owner == 0) return examiner.error("a entidade não tem dono (grupo 330)");
    const auto known = census.objects.find(owner);
    if (known == census.objects.end()) return examiner.error("o dono da entidade não existe");
    if (belongsToAnother(record.type)) return;
    if (known->second.type != "BLOCK_RECORD")
        return examiner.error("o dono da entidade não é um registro de bloco");
    if (examiner.walker().place != Place::Blocks) return examineSpace(examiner, record, owner);
    const auto block = census.blockRecords.find(nameKey(examiner.walker().block, census.charset));
    if (block == census.blockRecords.end())
        examiner.error("o bloco " + shown(examiner.walker().block) + " não tem registro de bloco");
    else if (block->second != owner)
        examiner.error("o dono da entidade é outro bloco");
}

/// First value of a code in the entity's head, or anywhere in a file without markers. Behind the
/// first marker of its type the same codes mean other things.
std::string_view headValueOf(const dxf::Record& record, int code) {
    for (const dxf::Tag& tag : record.tags) {
        if (tag.code == code) return tag.value;
        if (tag.code == 100 && trim(tag.value) != "AcDbEntity") break;
    }
    return {};
}

void examineProperties(Examiner& examiner, const dxf::Record& record) {
    const Census& census = examiner.census();
    const std::string_view layer = headValueOf(record, 8);
    if (layer.data() == nullptr)
        examiner.error("a entidade não diz a camada (grupo 8)");
    else if (!census.knows(Census::kLayers, layer))
        examiner.error("a camada " + shown(layer) + " não existe", layer.data());
    const std::string_view linetype = headValueOf(record, 6);
    if (linetype.data() != nullptr && !census.knows(Census::kLinetypes, linetype))
        examiner.error("o tipo de linha " + shown(linetype) + " não existe", linetype.data());
    long long color = 256;
    long long weight = -1;
    double scale = 1.0;
    (void)dxf::parseInteger(headValueOf(record, 62), color);  // a bad value was told already
    (void)dxf::parseInteger(headValueOf(record, 370), weight);
    (void)dxf::parseReal(headValueOf(record, 48), scale);
    if (color < 0 || color > 257) examiner.error("cor fora de 0 a 256");
    if (std::find(std::begin(kLineWeights), std::end(kLineWeights), weight) ==
        std::end(kLineWeights))
        examiner.error("espessura de linha " + std::to_string(weight) + " não existe");
    if (scale <= 0.0) examiner.error("escala de tipo de linha que não é positiva");
    const std::string_view style = valueOf(record, 7);
    if (style.data() != nullptr && !census.knows(Census::kStyles, style))
        examiner.error("o estilo de texto " + shown(style) + " não existe", style.data());
    if (real(record, 210) == 0.0 && real(record, 220) == 0.0 && real(record, 230) == 0.0)
        examiner.error("direção de extrusão nula");
}

void examineMarkers(Examiner& examiner, const dxf::Record& record, const EntityRule* rule) {
    std::vector<std::string_view> markers;
    for (const dxf::Tag& tag : record.tags)
        if (tag.code == 100) markers.push_back(trim(tag.value));
    if (markers.empty() || markers[0] != "AcDbEntity")
        return examiner.error("falta o marcador AcDbEntity");
    if (rule == nullptr || rule->markers.empty()) return;
    const auto wanted = rule->markers;
    const bool fits = markers.size() > wanted.size() &&
                      std::equal(wanted.begin(), wanted.end(), markers.begin() + 1);
    if (!fits)
        examiner.error("falta o marcador " + std::string(wanted[wanted.size() - 1]) +
                       " ou está fora do lugar");
}

}  // namespace

void examineEntity(Examiner& examiner, const dxf::Record& record) {
    const bool modern = examiner.census().modern;
    if (examiner.walker().place == Place::Blocks && examiner.walker().block.empty())
        examiner.error("registro fora de um bloco");
    if (record.type == "BLOCK" && !examiner.define("BLOCK", examiner.walker().block))
        examiner.error("o bloco " + shown(examiner.walker().block) + " aparece duas vezes");
    if (modern) examineOwner(examiner, record);
    if (record.type != "SEQEND" && record.type != "ENDBLK" && record.type != "BLOCK")
        examineProperties(examiner, record);
    const auto* const rule = std::find_if(std::begin(kRules), std::end(kRules),
                                          [&](const auto& r) { return r.type == record.type; });
    const bool known = rule != std::end(kRules);
    if (modern) examineMarkers(examiner, record, known ? rule : nullptr);
    if (!known) return;
    for (const int code : rule->required)
        if (valueOf(record, code).data() == nullptr)
            examiner.error("falta o grupo " + std::to_string(code));
    for (const int code : rule->positive)
        if (const auto value = real(record, code); value && *value <= 0.0)
            examiner.error("o valor do código " + std::to_string(code) + " deve ser positivo");
    if (rule->check != nullptr) rule->check(examiner, record);
}

}  // namespace prancheta::verify
