// SPDX-License-Identifier: MIT
// A check's part on dimensions: whether they measure a piece, and say what they measure.
#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "dbdim.h"
#include "dbsymtb.h"
#include "texts/number.h"
#include "zp/matlist/check_survey.h"
#include "zp/objects/cortes.h"
#include "zp/objects/links.h"

namespace zp::matlist {
namespace {

bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

/// Length of what only tells how the text looks, from the beginning of `rest`: "\\A1;", "\\P",
/// "%%c", "%%123"; 0 for the text itself.
std::size_t formatLength(std::wstring_view rest) {
    if (rest.starts_with(L"%%")) {
        const std::wstring_view code = rest.substr(2, 3);
        const bool number = code.size() == 3 && std::ranges::all_of(code, isDigit);
        return std::min<std::size_t>(rest.size(), number ? 5 : 3);
    }
    if (rest.front() != L'\\' || rest.size() < 2) return 0;
    const bool hasValue = std::wstring_view(L"ACHTQWFfp").find(rest[1]) != std::wstring_view::npos;
    const std::size_t end = hasValue ? rest.find(L';') : std::wstring_view::npos;
    return end != std::wstring_view::npos ? end + 1 : 2;
}

std::wstring withoutFormat(std::wstring_view text) {
    std::wstring plain;
    while (!text.empty()) {
        const std::size_t format = formatLength(text);
        plain += format > 0 ? L' ' : text.front();
        text.remove_prefix(std::max<std::size_t>(format, 1));
    }
    return plain;
}

/// All that the numbers of a text can mean: "6.000" is 6 or six thousand.
std::vector<double> numbersIn(const std::wstring& text) {
    std::vector<double> all;
    const auto separator = [](wchar_t c) { return c == L'.' || c == L','; };
    for (std::size_t i = 0; i < text.size();) {
        if (!isDigit(text[i])) {
            ++i;
            continue;
        }
        std::size_t end = i;
        while (end < text.size() &&
               (isDigit(text[end]) ||
                (separator(text[end]) && end + 1 < text.size() && isDigit(text[end + 1]))))
            ++end;
        std::wstring number = text.substr(i, end - i);
        i = end;
        const std::size_t last = number.find_last_of(L".,");
        std::wstring whole = number;
        std::erase_if(whole, separator);
        if (last == std::wstring::npos || number.size() - last == 4)
            all.push_back(texts::toReal(whole, texts::DecimalSign::kPoint));
        if (last != std::wstring::npos)
            all.push_back(texts::toReal(whole.substr(0, whole.size() - (number.size() - last - 1)) +
                                            L'.' + number.substr(last + 1),
                                        texts::DecimalSign::kPoint));
    }
    return all;
}

int decimalsOf(const AcDbDimension& cota, const AcDbDatabase& drawing) {
    AcDbObjectId style = cota.dimensionStyle();
    if (style.isNull()) style = drawing.dimstyle();
    const AcDbObjectPointer<AcDbDimStyleTableRecord> opened(style, AcDb::kForRead);
    const int decimals = opened.object() != nullptr ? opened->values().dimdec : 2;
    return std::clamp(decimals, 0, 8);
}

/// Every coordinate along one direction at which a piece's picture has an edge.
struct Edges {
    std::vector<double> x;
    std::vector<double> y;
    void add(double px, double py) {
        x.push_back(px);
        y.push_back(py);
    }
    void add(const secao::Bounds& box) {
        add(box.x0, box.y0);
        add(box.x1, box.y1);
    }
};

/// In the piece's frame; its plates and middle lines count.
Edges edgesOf(const ZpObject& peca) {
    const Peca& p = Access::of(peca);
    Edges edges;
    const secao::Bounds box = p.chapa() ? edit::boxIn(p.frame(), peca) : p.picture();
    edges.add(box);
    edges.add(0.5 * (box.x0 + box.x1), 0.5 * (box.y0 + box.y1));
    edges.add(0.0, 0.0);
    if (!p.chapa() && p.inSecao())
        for (const secao::Outline& outline : p.secao().outlines()) {
            for (const secao::Segment& s : outline.segments) edges.add(s.a.x, s.a.y);
            for (const secao::ToeCorner& toe : outline.toes) edges.add(toe.corner.x, toe.corner.y);
        }
    if (!p.chapa() && !p.inSecao())
        for (const secao::Level& level : p.secao().vista(p.vista).levels) {
            edges.y.push_back(level.w);
            if (!cortes::oblique(p)) continue;
            // What is bought may lie behind the edges that are seen.
            for (const cortes::Fibre& fibre :
                 {cortes::fibreAt(p, level.w), cortes::longestFibre(p, level.w)})
                edges.x.insert(edges.x.end(), {fibre.from, fibre.to});
        }
    for (const AcDbObjectId& id : edit::chapasOf(peca)) {
        const AcDbObjectPointer<ZpObject> chapa(id, AcDb::kForRead);
        if (chapa.object() != nullptr) edges.add(edit::boxIn(p.frame(), *chapa.object()));
    }
    return edges;
}

/// Sine below which what is measured is at right angles to an axis.
constexpr double kParallel = 1e-6;

/// On an edge, or where two of them would meet. Edges across the direction that is measured count.
bool standsOn(const ZpObject& peca, const Edges& edges, const AcGePoint3d& point,
              const AcGeVector3d& measured) {
    const Frame frame = Access::of(peca).frame();
    const AcGeVector3d local = frame.toLocal(point);
    const double alongX = std::abs(measured.dotProduct(frame.x));
    const double alongY = std::abs(measured.dotProduct(frame.y));
    const auto meets = [](const std::vector<double>& all, double c) {
        return std::ranges::any_of(all,
                                   [&](double e) { return std::abs(e - c) <= kSameCheckedPlace; });
    };
    const auto within = [](const std::vector<double>& all, double c) {
        const auto [low, high] = std::ranges::minmax(all);
        return c >= low - kSameCheckedPlace && c <= high + kSameCheckedPlace;
    };
    return within(edges.x, local.x) && within(edges.y, local.y) &&
           ((alongX > kParallel && meets(edges.x, local.x)) ||
            (alongY > kParallel && meets(edges.y, local.y)));
}

/// An aligned or rotated dimension.
struct Linear {
    AcGePoint3d from;
    AcGePoint3d to;
    AcGeVector3d along;  ///< unit vector
};

std::optional<Linear> linearOf(const AcDbDimension& cota) {
    if (const auto* aligned = AcDbAlignedDimension::cast(&cota)) {
        const AcGePoint3d from = aligned->xLine1Point();
        const AcGePoint3d to = aligned->xLine2Point();
        return Linear{from, to, (to - from).normal()};
    }
    const auto* rotated = AcDbRotatedDimension::cast(&cota);
    if (rotated == nullptr) return {};
    return Linear{rotated->xLine1Point(), rotated->xLine2Point(), direction(rotated->rotation())};
}

/// True when one of its points stands on none of the pieces that it belongs to.
bool measuresNothing(const AcDbDimension& cota, const std::vector<AcDbObjectId>& owners) {
    if (cota.measurement() <= kSameCheckedPlace) return true;
    const std::optional<Linear> linear = linearOf(cota);
    if (!linear) return false;
    bool first = false;
    bool second = false;
    bool known = false;
    for (const AcDbObjectId& id : owners) {
        const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
        if (peca.object() == nullptr) continue;
        known = true;
        const Edges edges = edgesOf(*peca.object());
        first = first || standsOn(*peca.object(), edges, linear->from, linear->along);
        second = second || standsOn(*peca.object(), edges, linear->to, linear->along);
    }
    return known && !(first && second);
}

/// Another number than the measured one, and none that is it.
bool saysOther(const AcDbDimension& cota, int decimals) {
    const std::wstring text = cota.dimensionTextConst();
    if (text.empty() || text.find(L"<>") != std::wstring::npos) return false;
    const std::vector<double> numbers = numbersIn(withoutFormat(text));
    const std::wstring measured = texts::rounded(cota.measurement(), decimals);
    return !numbers.empty() && std::ranges::none_of(numbers, [&](double v) {
        return texts::rounded(v, decimals) == measured;
    });
}

}  // namespace

void checkCotas(Survey& survey) {
    for (const AcDbObjectId& id : survey.cotas) {
        const AcDbObjectPointer<AcDbDimension> cota(id, AcDb::kForRead);
        if (cota.object() == nullptr) continue;
        const std::vector<AcDbObjectId> owners = ownersOf(*cota.object());
        const std::wstring marca = owners.empty() ? std::wstring() : survey.marcaOf(owners.front());
        if (measuresNothing(*cota.object(), owners)) {
            survey.fault(Fault::CotaOfNothing, {id}, marca, cota->textPosition(),
                         L"a cota não mede mais nenhuma aresta da peça.",
                         L"Apague-a, ou refaça as cotas da peça com EDITAPERFIL.");
            continue;
        }
        const int decimals = decimalsOf(*cota.object(), survey.drawing);
        if (saysOther(*cota.object(), decimals))
            survey.fault(Fault::CotaSaysOther, {id}, marca, cota->textPosition(),
                         L"a cota mede " + texts::withComma(cota->measurement(), decimals) +
                             L" e o seu texto diz \"" + cota->dimensionTextConst() + L"\".",
                         L"Apague o texto próprio da cota, ou acerte a medida.");
    }
}

}  // namespace zp::matlist
