// SPDX-License-Identifier: MIT
// Lacing, kept or from plates.
#include "perfis/commands/travejamento_values.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "perfis/entities/zpfuncoes.h"

namespace perfis {
namespace {

/// Plates whose lines are nearer than this are one row, mm.
constexpr double kSameRow = 1e-6;

bool isFlat(const ChapaValues& chapa) { return chapa.vista == ZpObject::kVistaEsquerda; }

/// In a section a plate shows its thickness and its height: lying, standing, or as a rectangle of
/// its own without depth.
PecaTravejamento inSecao(const PecaValues& peca) {
    PecaTravejamento travejamento;
    bool lying = false;
    bool standing = false;
    for (const ChapaValues& chapa : peca.chapas) {
        if (!isFlat(chapa)) {
            travejamento.chapas.A = chapa.d1;
            continue;
        }
        const bool lies = chapa.d2 <= chapa.d3;
        lying = lying || lies;
        standing = standing || !lies;
        travejamento.chapas.A = std::max(chapa.d2, chapa.d3);
        if (chapa.d1 != kUnknownLargura) travejamento.chapas.C = chapa.d1;
    }
    if (lying != standing)
        travejamento.planes =
            lying ? TravejamentoPlanes::kHorizontal : TravejamentoPlanes::kVertical;
    return travejamento;
}

/// A plate may stand on another one: where the spacing and the width add up, the last one between
/// the ends meets the far end.
int differentPlaces(std::vector<double> places) {
    std::ranges::sort(places);
    const auto same = [](double a, double b) { return b - a <= kSameRow; };
    const auto repeated = std::ranges::unique(places, same);
    return static_cast<int>(places.size() - repeated.size());
}

/// Places of plates on the line of the first one.
int firstRow(const PecaValues& peca) {
    const ChapaValues& first = peca.chapas.front();
    std::vector<double> places;
    for (const ChapaValues& chapa : peca.chapas)
        if (isFlat(chapa) == isFlat(first) && std::abs(chapa.y - first.y) <= kSameRow)
            places.push_back(chapa.x);
    return differentPlaces(std::move(places));
}

/// From the left edge of the first plate to that of the next one; 0 without a second one.
double chapaPitch(const PecaValues& peca) {
    double pitch = 0.0;
    for (const ChapaValues& chapa : peca.chapas)
        if (chapa.x > kSameRow && (pitch == 0.0 || chapa.x < pitch)) pitch = chapa.x;
    return pitch;
}

PecaTravejamento asKept(const PecaValues& peca) {
    const zp::Lacing& lacing = peca.lacing;
    const bool chosen = lacing.planes >= static_cast<int>(TravejamentoPlanes::kHorizontal) &&
                        lacing.planes <= static_cast<int>(TravejamentoPlanes::kBoth);
    return {{lacing.A, lacing.C, lacing.n},
            chosen ? static_cast<TravejamentoPlanes>(lacing.planes) : TravejamentoPlanes::kBoth,
            lacing.L1,
            peca.comprimentoTravejado};
}

}  // namespace

PecaTravejamento travejamentoOf(const PecaValues& peca) {
    if (peca.lacing.n > 0) return asKept(peca);
    if (peca.chapas.empty()) return {};
    if (peca.vista == ZpObject::kVistaSecao) return inSecao(peca);
    const ChapaValues& first = peca.chapas.front();
    PecaTravejamento travejamento;
    travejamento.chapas = {first.d3, first.d1, std::max(1, firstRow(peca) - 1)};
    travejamento.pitch = chapaPitch(peca);
    travejamento.comprimento = peca.comprimentoTravejado;
    const bool flat = std::ranges::any_of(peca.chapas, isFlat);
    const bool onEdge = !std::ranges::all_of(peca.chapas, isFlat);
    if (flat == onEdge) return travejamento;
    // Seen from the side the horizontal plates stand on edge, seen from above the vertical ones.
    const bool fromTheSide = peca.vista == ZpObject::kVistaDireita;
    travejamento.planes =
        onEdge == fromTheSide ? TravejamentoPlanes::kHorizontal : TravejamentoPlanes::kVertical;
    return travejamento;
}

double spacingFor(const PecaTravejamento& travejamento, double comprimento) {
    double spacing = travejamento.pitch;
    const bool asLong = std::abs(comprimento - travejamento.comprimento) <= kSameRow;
    if (!asLong || !(spacing > 0.0))
        (void)CalcEspacamento(travejamento.chapas, comprimento, spacing);
    return spacing;
}

zp::Lacing lacingFor(double A, double C, const ChapaSpacing& spacing, int planes) {
    if (!(C > 0.0) || !(spacing.L1 > 0.0) || !rowHolds(spacing, C)) return {A, C, 1, planes, 0.0};
    const int n = std::max(1, differentPlaces(chapaStations(spacing, C)) - 1);
    double even = 0.0;
    (void)CalcEspacamento({A, C, n}, spacing.comp, even);
    const bool own = std::abs(spacing.L1 - even) > kSameRow;
    return {A, C, n, planes, own ? spacing.L1 : 0.0};
}

std::wstring tooManyParts(const PecaTravejamento& travejamento, double comprimento) {
    const int n = travejamento.chapas.n;
    const std::wstring where = L" em " + std::wstring(FormatInString(comprimento)) + L" mm; ";
    return L"Erro no Travejamento: " +
           (n == 1
                ? L"1 parte não cabe" + where + L"diminua a largura das chapas em Travejar."
                : std::to_wstring(n) + L" partes não cabem" + where + L"diminua-as em Travejar.");
}

}  // namespace perfis
