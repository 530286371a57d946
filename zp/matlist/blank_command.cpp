// SPDX-License-Identifier: MIT
// DESENVOLVIMENTO: one list of lines and texts, drawn or written as a file.
#include <cmath>
#include <numbers>

#include "acedads.h"
#include "dbapserv.h"
#include "files/replacement.h"
#include "perfis/entities/zpfuncoes.h"
#include "protocol/answers.h"
#include "texts/number.h"
#include "texts/path.h"
#include "zp/matlist/ask_which.h"
#include "zp/matlist/asking.h"
#include "zp/matlist/cut_file.h"
#include "zp/matlist/draughtsman.h"
#include "zp/matlist/secao_command.h"
#include "zp/objects/member.h"
#include "zp/objects/peca.h"
#include "zp/objects/secao/single.h"
#include "zp/objects/strip_rules.h"

namespace zp::matlist {
namespace {

/// Nothing but what is cut.
constexpr const wchar_t* kContour = L"DESENVOLVIMENTO";
constexpr const wchar_t* kBends = L"DOBRA";

struct Blank {
    secao::Strip strip;
    double length = 0.0;
    std::wstring title;
};

/// Nothing, and told, where there is no strip or no length.
std::optional<Blank> blankOf(AcDbObjectId id) {
    const AcDbObjectPointer<ZpObject> peca(id, AcDb::kForRead);
    if (peca.object() == nullptr) return {};
    const std::optional<secao::Strip> strip = zp::stripOf(*peca.object());
    if (!strip) {
        acutPrintf(L"\nEsta peça não é dobrada de uma tira; selecione um perfil dobrado.\n");
        return {};
    }
    const zp::Peca& p = Access::of(*peca.object());
    if (p.inSecao() || !(p.comprimento > 0.0)) {
        acutPrintf(L"\n%ls\n", kNoLength);
        return {};
    }
    const secao::Single single = secao::singleOf(p.perfil(), p.dimensoes());
    std::wstring title = member::marcaOf(*peca.object());
    if (!title.empty()) title += L": ";
    title += single.perfil + L' ' + single.dimensoes + L", chapa " +
             texts::withComma(strip->espessura) + L" x " + texts::withComma(strip->width, 1) +
             L" x " + texts::withComma(peca->getComprimentoReal(), 1);
    if (single.count > 1) title += L" (" + std::to_wstring(single.count) + L" por peça)";
    return Blank{*strip, peca->getComprimentoReal(), title};
}

/// "dobra 90° para cima, ri 3".
std::wstring wordsOf(const secao::Strip::Bend& bend) {
    return L"dobra " + texts::withComma(std::abs(bend.angle) * 180.0 / std::numbers::pi, 1) +
           (bend.angle > 0.0 ? L"° para cima, ri " : L"° para baixo, ri ") +
           texts::withComma(bend.radius);
}

/// Hands every line and text, its layer before it, to `pen`: the lower left corner at the origin,
/// the length along x, texts `h` high.
template <class Pen>
void draw(const Blank& blank, double h, Pen&& pen) {
    const double l = blank.length;
    const double w = blank.strip.width;
    pen.line(kContour, 0.0, 0.0, l, 0.0);
    pen.line(kContour, l, 0.0, l, w);
    pen.line(kContour, l, w, 0.0, w);
    pen.line(kContour, 0.0, w, 0.0, 0.0);
    pen.text(kBends, 0.0, w + h, h, blank.title);
    for (const secao::Strip::Bend& bend : blank.strip.bends) {
        pen.line(kBends, 0.0, bend.at, l, bend.at);
        pen.text(kBends, l + h, bend.at - 0.5 * h, h,
                 texts::withComma(bend.at, 1) + L": " + wordsOf(bend));
    }
}

class DrawingPen {
public:
    explicit DrawingPen(const AcGePoint3d& at) : m_at(at) {}
    void line(const wchar_t* layer, double x0, double y0, double x1, double y1) {
        on(layer).line(place(x0, y0), place(x1, y1));
    }
    void text(const wchar_t* layer, double x, double y, double h, const std::wstring& t) {
        on(layer).text(place(x, y), t, h, Align::Left);
    }

private:
    AcGePoint3d place(double x, double y) const { return {m_at.x + x, m_at.y + y, m_at.z}; }
    static Draughtsman on(const wchar_t* layer) {
        return {AcDbObjectId::kNull, ZpLayerToUsr(layer)};
    }
    AcGePoint3d m_at;
};

void write(const Blank& blank, const std::filesystem::path& file) {
    CutFile pen({{kContour, 7}, {kBends, 1}});
    draw(blank, 0.05 * blank.strip.width, pen);
    if (files::replace(file, std::move(pen).done()) == 0)
        acutPrintf(L"\nDesenvolvimento gravado em %ls.\n", texts::shown(file).c_str());
    else
        protocol::fail(L"Não foi possível gravar " + texts::shown(file) +
                       L"; verifique a pasta e a permissão.");
}

}  // namespace

void blankCommand() {
    AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    if (drawing == nullptr) return;
    const AcDbObjectId bar = askBar(*drawing);
    if (bar.isNull()) return;
    const std::optional<Blank> blank = blankOf(bar);  // may find a width that does not hold
    for (const std::wstring& fault : zp::stripFaults()) acutPrintf(L"\n%ls", fault.c_str());
    if (!blank) return;
    acutPrintf(L"\n%ls\n", blank->title.c_str());
    AcGePoint3d corner;
    const int status =
        getWCSpoint(corner, L"\nCanto inferior esquerdo da chapa ou <só o arquivo>: ");
    if (status == RTNORM)
        draw(*blank, 2.5 * GetScale(), DrawingPen(corner));
    else if (status != RTNONE)
        return;
    if (const auto file = askDestination(L"\nArquivo DXF da chapa <nenhum>: ", {L".dxf"}))
        write(*blank, *file);
}

}  // namespace zp::matlist
