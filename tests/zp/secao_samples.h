// SPDX-License-Identifier: MIT
// The sections that several tests share, with the values their commands hand over.
#pragma once

#include <numbers>
#include <span>
#include <string>
#include <vector>

#include "zp/objects/secao/secao.h"

namespace samples {

using zp::secao::Kind;

struct Sample {
    std::string name;
    Kind kind;
    std::vector<double> values;  ///< one-point form

    std::shared_ptr<const zp::secao::Secao> secao() const {
        return zp::secao::secaoFrom(kind, points(), values);
    }
    int points() const { return kind == Kind::Tubo ? 2 : 1; }
};

inline constexpr double kRight = 0.5 * std::numbers::pi;
inline constexpr double kFar = 1000.0;

inline Sample u(double h, double b, double t, double aba = 0.0, double r = 0.0) {
    return {aba > 0 ? "Ue" : "U", Kind::UDobrado, {h, b, b, t, t, kRight, kRight, kFar, r, 0, aba}};
}
inline Sample z(double h, double b, double a, double t) {
    return {"Z", Kind::ZDobrado, {h, b, a, t, t, kRight, kRight, kFar, 0, 0, 0, 0}};
}
inline Sample cartola(double h, double b, double a, double t) {
    return {"Cr", Kind::Cartola, {h, b, t, t, a, kFar, 0, 0}};
}
inline Sample lDobrada(double h, double b, double t) {
    return {"L dobrada", Kind::CantoneiraDobrada, {h, b, t, t, kRight, kFar, 0, 0, 0}};
}
inline Sample lLaminada(double h, double b, double t, double m = 0.0) {
    return {"L laminada",
            Kind::CantLaminada,
            {h, b, t, b / 3, 2 * h / 3, t, 0, 0, kFar, m, 127.1848 * m}};
}
inline Sample bn(double h, double t, double m = 0.0) {
    return {"BN",
            Kind::BNLaminado,
            {h, t, -2 * h / (6 * std::numbers::sqrt2), t, 0, 0, kFar, m, 127.1848 * m}};
}
inline Sample uLaminado(double h, double b, double t, double m) {
    return {"U laminado",
            Kind::ULaminado,
            {h, b, t, b, t, t, b / 3, t, 0, 0, kFar, m * 100 * 1.271848, m}};
}
inline Sample tubo(double d, double parede) { return {"tubo", Kind::Tubo, {d, d - 2 * parede}}; }
inline Sample barra(double d) { return {"barra", Kind::BarraRedonda, {d, kFar, 0}}; }
inline Sample caixa(double h, double b, double t) {
    return {"caixa", Kind::Box, {h, b, t, t, kFar, 0, 0}};
}
inline Sample iSoldado(double h, double b, double tf, double tw, double m = 0.0) {
    return {"I soldado", Kind::ISoldado, {h, b, b, tw, tf, kFar, 0, 0, m}};
}
inline Sample iLaminado(double h, double b, double tf, double tw, int type, double m) {
    return {"I laminado",
            Kind::ILaminadoUSA,
            {h, b, tw, tf, double(type), 0, 0, kFar, m * 100 * 1.271848, m}};
}

}  // namespace samples
