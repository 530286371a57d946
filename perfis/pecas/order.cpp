// SPDX-License-Identifier: MIT
// From the words of a line to what the dialogs of its command are filled in with.
#include "perfis/pecas/order.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

#include "perfis/pecas/roles.h"
#include "texts/letters.h"
#include "texts/number.h"
#include "zp/matlist/check.h"
#include "zp/matlist/follow.h"
#include "zp/objects/cortes.h"
#include "zp/objects/edit.h"
#include "zp/objects/editable_medidas.h"
#include "zp/objects/member.h"
#include "zp/objects/steel.h"

namespace perfis {
namespace {

using zp::secao::Role;

std::wstring shownKey(std::wstring_view key) {
    return (key == L"l" ? L"L" : std::wstring(key)) + L"=";
}

/// Sets `value` from a key where the line has it; what is wrong, or an empty text.
std::wstring readNumber(const PecaLine& line, const wchar_t* key, double& value) {
    const std::wstring* const text = line.find(key);
    if (text == nullptr) return {};
    const std::optional<double> number = texts::exactReal(*text);
    if (!number) return shownKey(key) + *text + L": isto não é um número.";
    value = *number;
    return {};
}

std::wstring readWhole(const PecaLine& line, const wchar_t* key, int least, int most, int& value) {
    double number = value;
    if (std::wstring fault = readNumber(line, key, number); !fault.empty()) return fault;
    if (number != std::floor(number) || number < least || number > most)
        return shownKey(key) + *line.find(key) + L": informe um número inteiro de " +
               std::to_wstring(least) + L" a " + std::to_wstring(most) + L".";
    value = static_cast<int>(number);
    return {};
}

/// One line, on its way into an order.
class OrderReader {
public:
    OrderReader(const PecaLine& line, const PerfilDescription& description, PecaOrder& order)
        : m_line(line), m_description(description), m_order(order), m_state(order.state) {}

    std::wstring read() {
        for (const auto step :
             {&OrderReader::readVaos, &OrderReader::readVista, &OrderReader::readInsertion,
              &OrderReader::readList, &OrderReader::readRole, &OrderReader::readChapas,
              &OrderReader::readOwn})
            if (std::wstring fault = (this->*step)(); !fault.empty()) return fault;
        m_order.cotas = m_line.cotas;
        return {};
    }

private:
    std::wstring readVaos() {
        for (const auto& [key, role] : {std::pair(L"a", Role::Vao), std::pair(L"av", Role::VaoV)}) {
            if (m_line.find(key) == nullptr) continue;
            const Medida vao = vaoOf(m_description, role);
            if (vao == nullptr) return L"Este perfil não tem " + std::wstring(key) + L"=.";
            if (std::wstring fault = readNumber(m_line, key, m_state.medidas.*vao); !fault.empty())
                return fault;
        }
        return {};
    }

    Face faceOf(int figure) const {
        const auto i = static_cast<std::size_t>(figure);
        return i < m_description.faces.size() ? m_description.faces[i]
                                              : Face{static_cast<ZpObject::ZpVistas>(figure), 0.0};
    }

    std::wstring readVista() {
        VistasChoice& vistas = m_state.vistas;
        const bool hasLength = m_line.find(L"l") != nullptr;
        int vista = hasLength ? ZpObject::kVistaDireita : ZpObject::kVistaSecao;
        double degrees = 0.0;
        for (const std::wstring& fault :
             {readNumber(m_line, L"l", vistas.comprimento),
              readWhole(m_line, L"vista", 0, 4, vista), readNumber(m_line, L"giro", degrees)})
            if (!fault.empty()) return fault;
        vistas.secaoOnly = vista == ZpObject::kVistaSecao;
        if (vistas.secaoOnly && hasLength) {
            if (const auto fault = vistasFault(vistas)) return fault->message + L" Confira L=.";
            m_state.keepsComprimento = true;
        }
        // Of the figures that show this view the one of its own number, or the first.
        const auto seen = static_cast<ZpObject::ZpVistas>(vista);
        int figure = vista;
        for (int other = 1; faceOf(figure).vista != seen && other <= 4; ++other)
            if (faceOf(other).vista == seen) figure = other;
        if (m_line.find(L"giro") != nullptr) {
            const double giro = std::numbers::pi * (degrees / 180.0);
            figure = figureOf(m_description, seen, giro);
            m_state.face = Face{seen, giro};
        } else if (faceOf(figure).vista != seen) {
            m_state.face = Face{seen, 0.0};
        }
        if (!vistas.secaoOnly) vistas.vista = figure;
        return {};
    }

    std::wstring readInsertion() {
        const std::wstring* const text = m_line.find(L"ins");
        if (text == nullptr) return {};
        if (!m_state.vistas.secaoOnly)
            return readWhole(m_line, L"ins", 1, 9, m_state.vistas.alignment);
        const auto plain = [](std::wstring name) {
            std::erase_if(name, [](wchar_t c) { return c == L' ' || c == L'_' || c == L'-'; });
            return texts::lower(name);
        };
        int index = 0;
        for (const Insertion& insertion : m_description.insertions) {
            if (plain(insertion.name) == plain(*text)) {
                m_state.insertion = index;
                return {};
            }
            ++index;
        }
        if (texts::exactReal(*text))
            return readWhole(m_line, L"ins", 0, index - 1, m_state.insertion);
        std::wstring names;
        for (const Insertion& insertion : m_description.insertions)
            names += (names.empty() ? L"" : L", ") + std::wstring(insertion.name);
        return L"ins=" + *text + L": os pontos são " + names + L".";
    }

    std::wstring readList() {
        VistasChoice& vistas = m_state.vistas;
        const std::wstring* const marca = m_line.find(L"marca");
        const bool counted = m_line.find(L"n") != nullptr;
        vistas.materialList = m_line.lista || counted || marca != nullptr;
        if (!vistas.materialList) return {};
        vistas.pecas = 1;
        // None: a further view of a member, which its mark names.
        if (std::wstring fault = readWhole(m_line, L"n", std::numeric_limits<int>::min(),
                                           std::numeric_limits<int>::max(), vistas.pecas);
            !fault.empty())
            return fault;
        if (vistas.secaoOnly && (vistas.pecas != 0 || marca == nullptr))
            return L"A seção não entra na lista de material; diga o comprimento com L=.";
        if (marca == nullptr) return {};
        if (marca->size() >= kLongestMarca)
            return L"A marca pode ter até " + std::to_wstring(kLongestMarca - 1) + L" caracteres.";
        vistas.marca = *marca;
        return {};
    }

    std::wstring readRole() {
        if (const std::wstring* const tipo = m_line.find(L"tipo")) {
            const std::optional<int> type = roleCalled(*tipo);
            if (!type) return L"tipo=" + *tipo + L": os tipos são " + roleWords() + L".";
            m_state.tipoBarra = *type;
        }
        if (const std::wstring* const aco = m_line.find(L"aco")) {
            if (aco->size() > zp::kMostGrade)
                return L"O nome do aço pode ter até " + std::to_wstring(zp::kMostGrade) +
                       L" caracteres.";
            m_state.aco = *aco;
        }
        return {};
    }

    /// "A,C,n" or "A;C;n", where a comma may be the decimal sign; A may be empty.
    std::wstring readChapas() {
        const std::wstring* const text = m_line.find(L"chapas");
        const bool planned = m_line.find(L"plano") != nullptr;
        if (text == nullptr) return planned ? L"plano= precisa de chapas=." : std::wstring();
        const bool semicolons = text->find(L';') != text->npos;
        std::vector<std::wstring> parts = texts::trimmedParts(*text, semicolons ? L';' : L',');
        parts.resize(std::max<std::size_t>(parts.size(), 3));
        OrderedChapas chapas;
        std::array<double, 4> numbers{0.0, 0.0, 1.0, 0.0};
        for (std::size_t i = 0; i < parts.size(); ++i) {
            if (i < numbers.size() && parts[i].empty()) continue;
            const std::optional<double> number = texts::exactReal(parts[i]);
            if (i >= numbers.size() || !number || (i == 2 && *number != std::floor(*number)) ||
                std::abs(*number) > kMostParts)
                return L"chapas=" + *text +
                       L": diga altura, largura e número de partes, como chapas=60,50,5; com "
                       L"decimais, chapas=60,5;50;5.";
            numbers[i] = *number;
        }
        if (!parts[0].empty()) chapas.A = numbers[0];
        chapas.C = numbers[1];
        chapas.n = static_cast<int>(numbers[2]);
        chapas.spacing = numbers[3];
        m_order.chapas = chapas;
        if (!planned) return {};
        m_order.plano = 0;
        return readWhole(m_line, L"plano", 0, 2, *m_order.plano);
    }

    /// A mass other than that of the list is that of another list; 0: of the outline.
    std::wstring readOwn() {
        if (std::wstring fault = readNumber(m_line, L"m", m_state.medidas.m); !fault.empty())
            return fault;
        for (const auto& [key, text] : m_line.values) {
            // A line's own "a", "n" and "l" are none of them.
            if (zp::sheets::medidaFor(key) == nullptr || key == L"m") continue;
            double value = 0.0;
            if (std::wstring fault = readNumber(m_line, key.c_str(), value); !fault.empty())
                return fault;
            m_state.own.push_back({key, value});
        }
        return {};
    }

    static constexpr std::size_t kLongestMarca = 32;
    static constexpr double kMostParts = 1e9;

    const PecaLine& m_line;
    const PerfilDescription& m_description;
    PecaOrder& m_order;
    RunState& m_state;
};

/// Where in the line a tile's fault is mended.
const wchar_t* wordFor(const wchar_t* tile) {
    static constexpr std::pair<std::wstring_view, const wchar_t*> kWords[] = {
        {L"OutraVista", L" Confira L=."},    {L"l", L" Confira L=."},
        {L"num_pecas", L" Confira n=."},     {L"travejar", L" Confira chapas=."},
        {L"altura", L" Confira chapas=."},   {L"largura", L" Confira chapas=."},
        {L"n_partes", L" Confira chapas=."}, {L"l_travejam", L" Confira chapas=."},
        {L"plano", L" Confira plano=."},     {L"a", L" Confira a=."},
        {L"av", L" Confira av=."},
    };
    for (const auto& [key, word] : kWords)
        if (key == tile) return word;
    return L" Confira as medidas.";
}

std::wstring sentence(const Fault& fault) {
    std::wstring text = fault.message;
    if (!text.ends_with(L'.')) text += L'.';
    return text + wordFor(fault.tile);
}

/// Values of its own are examined as the property sheet does.
std::wstring ownFault(PerfilRun& run, PecaOrder& order) {
    const std::vector<OwnMedida> own = std::exchange(order.state.own, {});
    (void)run.accept(order);
    const RuledPeca model = run.accepted();
    for (const OwnMedida& value : own) {
        const zp::sheets::Medida& medida = *zp::sheets::medidaFor(value.key);
        const std::wstring fault =
            zp::sheets::change(zp::Access::of(*model.peca), medida, value.value / medida.factor);
        if (!fault.empty()) return value.key + L"=: " + fault;
    }
    order.state.own = own;
    return {};
}

/// Angles of the ends, in degrees from square as the property sheet has them. L is the length of
/// the longest fibre, as the list has it: the axis is as much shorter or longer as the ends make
/// it.
std::wstring readCortes(const PecaLine& line, PerfilRun& run, PecaOrder& order) {
    constexpr std::size_t kAcross = 2;  // behind the angles in the view those across it
    constexpr const wchar_t* kKeys[] = {L"corte_inicio", L"corte_fim", L"fundo_inicio",
                                        L"fundo_fim"};
    const auto said = [&](const wchar_t* key) { return line.find(key) != nullptr; };
    const auto first = std::ranges::find_if(kKeys, said);
    if (first == std::end(kKeys)) return {};
    if (order.state.vistas.secaoOnly)
        return shownKey(*first) + *line.find(*first) +
               (line.find(L"l") == nullptr ? L": a seção não tem pontas; diga o comprimento com L=."
                                           : L": a seção não tem pontas; use vista= de 1 a 4.");
    const RuledPeca model = run.accepted();
    zp::Peca& p = zp::Access::of(*model.peca);
    for (std::size_t i = 0; i < std::size(kKeys); ++i) {
        double degrees = 0.0;
        if (std::wstring fault = readNumber(line, kKeys[i], degrees); !fault.empty()) return fault;
        const double angle = std::numbers::pi * (degrees / 180.0);
        if (!(std::abs(angle) <= zp::cortes::kSteepest))
            return shownKey(kKeys[i]) + *line.find(kKeys[i]) +
                   L": o corte vai de -85 a 85 graus, contados do esquadro.";
        const std::size_t end = i % kAcross;
        p.cortes[end] = i < kAcross ? zp::cortes::withAngle(p, end, angle)
                                    : zp::cortes::withDepthAngle(p, end, angle);
    }
    order.state.cortes = p.cortes;
    double& comprimento = order.state.vistas.comprimento;
    comprimento -= zp::cortes::longest(p) - p.comprimento;
    if (!(comprimento > 0.0)) return L"L=" + *line.find(L"l") + L" é pouco para estes cortes.";
    p.setComprimento(comprimento);
    return zp::cortes::fault(p);
}

}  // namespace

std::wstring makeReady(const PecaLine& line, Designations& designations, ReadyPeca& ready) {
    const PerfilCommand* only = nullptr;
    if (const std::wstring* const name = line.find(L"cmd")) {
        only = commandCalled(*name);
        if (only == nullptr) return L"cmd=" + *name + L": nenhum comando de perfil tem este nome.";
    }
    DesignatedSize size;
    if (std::wstring fault = designations.find(line.designation, only, size); !fault.empty())
        return fault;
    const PerfilDescription& description = size.command->description;
    PecaOrder order{.state = resetState(description), .cotas = false, .chapas = {}, .plano = {}};
    order.state.medidas = size.medidas;
    order.state.source = size.source;
    if (std::wstring fault = OrderReader(line, description, order).read(); !fault.empty())
        return fault;
    if (size.listed) order.state.picked = order.state.medidas;
    ready.command = size.command;
    ready.run = newRun(*size.command);
    if (const std::optional<Fault> fault = ready.run->accept(order)) return sentence(*fault);
    if (!order.state.own.empty()) {
        if (std::wstring fault = ownFault(*ready.run, order); !fault.empty()) return fault;
        (void)ready.run->accept(order);  // as it did before
    }
    if (std::wstring fault = readCortes(line, *ready.run, order); !fault.empty()) return fault;
    if (const std::optional<Fault> fault = ready.run->accept(order)) return sentence(*fault);
    ready.marca = order.state.vistas.marca;
    ready.counts = order.state.vistas.pecas > 0;
    return {};
}

std::wstring marcaFault(const ReadyPeca& ready, AcDbDatabase& drawing) {
    const std::wstring& marca = ready.marca;
    if (marca.empty()) return {};
    const AcDbObjectId row = zp::matlist::rowOfMarca(drawing, marca);
    if (row.isNull())
        return ready.counts
                   ? std::wstring()
                   : L"n=0 é outra vista de uma peça, e a marca " + marca + L" ainda não existe.";
    const AcDbObjectPointer<ZpObject> other(zp::matlist::barIn(row), AcDb::kForRead);
    if (other.object() == nullptr)
        return L"marca=" + marca +
               L" já está na lista, de chapas ou de uma peça apagada; escolha outra.";
    const RuledPeca model = ready.run->accepted();
    // It is not in the drawing yet, whose steel it takes.
    zp::Member member = zp::member::of(*model.peca);
    if (member.grade.empty()) member.grade = zp::drawingSteel(drawing);
    zp::member::set(*model.peca, member);
    if (zp::member::same(*model.peca, *other.object())) return {};
    return L"marca=" + marca + L" já é de outra peça, " + zp::matlist::sizeOf(*other.object()) +
           L" com " + texts::withComma(other->getComprimentoReal(), 1) + L" mm; escolha outra.";
}

std::wstring makeReady(const std::wstring& text, Designations& designations, ReadyPeca& ready) {
    PecaLine line;
    if (std::wstring fault = readLine(text, line); !fault.empty()) return fault;
    return makeReady(line, designations, ready);
}

}  // namespace perfis
