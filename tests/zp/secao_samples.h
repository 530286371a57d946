// SPDX-License-Identifier: MIT
// The sections that several tests share, with the values their commands hand over.
#pragma once

#include <numbers>
#include <span>
#include <string>
#include <vector>

#include "zp/objects/secao/secao.h"

namespace casos {

using zp::secao::Classe;

struct Caso {
    std::string nome;
    Classe classe;
    std::vector<double> valores;  ///< one-point form

    std::shared_ptr<const zp::secao::Secao> secao() const {
        return zp::secao::secaoDe(classe, pontos(), valores);
    }
    int pontos() const { return classe == Classe::Tubo ? 2 : 1; }
};

inline constexpr double kRetoA = 0.5 * std::numbers::pi;
inline constexpr double kLonge = 1000.0;

inline Caso u(double h, double b, double t, double aba = 0.0, double r = 0.0) {
    return {
        aba > 0 ? "Ue" : "U", Classe::UDobrado, {h, b, b, t, t, kRetoA, kRetoA, kLonge, r, 0, aba}};
}
inline Caso z(double h, double b, double a, double t) {
    return {"Z", Classe::ZDobrado, {h, b, a, t, t, kRetoA, kRetoA, kLonge, 0, 0, 0, 0}};
}
inline Caso cartola(double h, double b, double a, double t) {
    return {"Cr", Classe::Cartola, {h, b, t, t, a, kLonge, 0, 0}};
}
inline Caso lDobrada(double h, double b, double t) {
    return {"L dobrada", Classe::CantoneiraDobrada, {h, b, t, t, kRetoA, kLonge, 0, 0, 0}};
}
inline Caso lLaminada(double h, double b, double t, double m = 0.0) {
    return {"L laminada",
            Classe::CantLaminada,
            {h, b, t, b / 3, 2 * h / 3, t, 0, 0, kLonge, m, 127.1848 * m}};
}
inline Caso bn(double h, double t, double m = 0.0) {
    return {"BN",
            Classe::BNLaminado,
            {h, t, -2 * h / (6 * std::numbers::sqrt2), t, 0, 0, kLonge, m, 127.1848 * m}};
}
inline Caso uLaminado(double h, double b, double t, double m) {
    return {"U laminado",
            Classe::ULaminado,
            {h, b, t, b, t, t, b / 3, t, 0, 0, kLonge, m * 100 * 1.271848, m}};
}
inline Caso tubo(double d, double parede) { return {"tubo", Classe::Tubo, {d, d - 2 * parede}}; }
inline Caso barra(double d) { return {"barra", Classe::BarraRedonda, {d, kLonge, 0}}; }
inline Caso caixa(double h, double b, double t) {
    return {"caixa", Classe::Box, {h, b, t, t, kLonge, 0, 0}};
}
inline Caso iSoldado(double h, double b, double tf, double tw, double m = 0.0) {
    return {"I soldado", Classe::ISoldado, {h, b, b, tw, tf, kLonge, 0, 0, m}};
}
inline Caso iLaminado(double h, double b, double tf, double tw, int tipo, double m) {
    return {"I laminado",
            Classe::ILaminadoUSA,
            {h, b, tw, tf, double(tipo), 0, 0, kLonge, m * 100 * 1.271848, m}};
}

}  // namespace casos
