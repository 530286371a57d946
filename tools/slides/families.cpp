// SPDX-License-Identifier: MIT
// The table of families: one row, one slide library.
#include "families.h"

#include <numbers>

namespace tools {
namespace {

constexpr double kRight = std::numbers::pi / 2;

const std::vector<const char*> kCorners = {"RIGHT DOWN", "LEFT DOWN", "RIGHT UPPER", "LEFT UPPER",
                                           "CENTER"};

}  // namespace

std::span<const Family> families() {
    using enum zp::secao::Classe;
    static const std::vector<Family> rows = {
        {"pu",
         UDobrado,
         {200, 90, 90, 12, 12, kRight, kRight, 1000, 0, 0, 0},
         kCorners,
         1,
         Remap::Channel},
        {"pur",
         UDobrado,
         {200, 90, 90, 9, 9, kRight, kRight, 1000, 0, 0, 35},
         {"RIGHT DOWN", "LEFT DOWN", "MID LEFT"},
         1,
         Remap::Channel},
        {"pl",
         CantoneiraDobrada,
         {120, 120, 12, 12, kRight, 1000, 0, 0, 0},
         {"RIGHT UPPER", "LEFT DOWN", "CENTER"},
         1,
         Remap::Angle},
        {"pz",
         ZDobrado,
         {180, 90, 30, 9, 9, kRight, kRight, 1000, 0, 0, 0, 0},
         {"RIGHT DOWN", "LEFT DOWN"}},
        {"pc",
         Cartola,
         {90, 120, 8, 8, 40, 1000, 0, 0},
         {"RIGHT DOWN", "MID DOWN", "LEFT DOWN", "MID UPPER"}},
        {"pcaixa",
         CaixaDobrado,
         {160, 80, 8, 8, 0, 1000, 0, 0, 30},
         {"RIGHT DOWN", "MID DOWN", "LEFT DOWN", "MID LEFT", "CENTER"}},
        {"pbox", Box, {150, 110, 9, 9, 1000, 0, 0}, kCorners},
        {"ptb", Tubo, {150, 126}, {"DOWN", "RIGHT", "LEFT", "CENTER"}, 2},
        {"pbr", BarraRedonda, {100, 1000, 0}, {"DOWN", "RIGHT", "LEFT", "CENTER"}},
        {"bnlam",
         BNLaminado,
         {120, 14, -2 * 120 / (6 * std::numbers::sqrt2), 14, 0, 0, 1000, 0, 0},
         {"RIGHT UPPER", "RIGHT DOWN", "CENTER"}},
        {"pl_lam",
         CantLaminada,
         {120, 120, 14, 40, 80, 14, 0, 0, 1000, 0, 0},
         {"RIGHT UPPER", "LEFT DOWN", "CENTER"}},
        {"pccl", CantLaminadaCaixa, {120, 120, 12, 12, 0, 0, 1000, 0, 0}, kCorners},
        {"pulam",
         ULaminado,
         {180, 80, 11, 80, 13, 13, 80 / 3.0, 11, 0, 0, 1000, 0, 0},
         kCorners,
         1,
         Remap::Channel},
        {"vi",
         ISoldado,
         {180, 130, 130, 8, 12, 1000, 0, 0, 0},
         {"RIGHT DOWN", "MID DOWN", "LEFT DOWN", "CENTER"}},
        {"psa",
         ISoldado,
         {180, 140, 90, 14, 10, 8, 1000, 0, 0, 0},
         {"RIGHT DOWN", "MID DOWN", "LEFT DOWN", "CENTER"}},
        {"vi_lam",
         ILaminadoUSA,
         // Area of two flanges of 100 x 12, the web and roots of radius 14.
         {180, 100, 8, 12, 0, 0, 0, 1000, 3816.24, 0},
         {"RIGHT DOWN", "MID DOWN", "LEFT DOWN", "CENTER"}},
    };
    return rows;
}

}  // namespace tools
