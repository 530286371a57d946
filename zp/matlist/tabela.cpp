// SPDX-License-Identifier: MIT
// Table and text file of a material list.
#include "zp/matlist/tabela.h"

#include <algorithm>
#include <array>
#include <memory>
#include <system_error>
#include <type_traits>

#include "adscodes.h"
#include "dbents.h"
#include "files/replacement.h"
#include "perfis/entities/zpfuncoes.h"
#include "zp/objects/secao/secao.h"

namespace zp::lista {
namespace {

using secao::numero;

using Campos = std::array<std::wstring, kColunas>;

Campos titulos() {
    Campos c;
    std::transform(kTitulos.begin(), kTitulos.end(), c.begin(),
                   [](const Coluna& t) { return t.titulo; });
    return c;
}

Campos campos(const Linha& l) {
    return {l.marca,
            std::to_wstring(l.quantidade),
            l.descricao,
            l.dimensoes,
            l.material,
            numero(l.comprimento, 1),
            numero(l.pesoUnitario, 2),
            numero(l.pesoTotal, 2),
            numero(l.areaPintura, 3),
            observacaoDe(l)};
}

Campos campos(const Totais& t) {
    Campos c;
    c[0] = L"TOTAL";
    c[7] = numero(t.peso, 2);
    c[8] = numero(t.pintura, 3);
    return c;
}

void apagaTabela(const Cabecalho& cabecalho) {
    for (const AcDbSoftPointerId& id : cabecalho.tabela) {
        AcDbEntity* parte = nullptr;
        if (acdbOpenAcDbEntity(parte, id, AcDb::kForWrite) != Acad::eOk) continue;
        (void)parte->erase();  // open for write and alive
        (void)parte->close();
    }
}

/// Puts lines and texts on one layer into the drawing and keeps their ids.
class Desenhista {
public:
    explicit Desenhista(const wchar_t* camada) : m_camada(camada) {}
    void linha(const AcGePoint3d& a, const AcGePoint3d& b) {
        poe(std::make_unique<AcDbLine>(a, b));
    }
    void texto(const AcGePoint3d& onde, const std::wstring& t, double altura, bool aDireita) {
        if (t.empty()) return;
        auto entidade = std::make_unique<AcDbText>(onde, t.c_str(), AcDbObjectId::kNull, altura);
        if (aDireita) {
            (void)entidade->setHorizontalMode(2);
            (void)entidade->setAlignmentPoint(onde);
        }
        poe(std::move(entidade));
    }
    std::vector<AcDbSoftPointerId> ids() const { return m_ids; }

private:
    void poe(std::unique_ptr<AcDbEntity> entidade) {
        (void)entidade->setLayer(m_camada);  // a layer that cannot be leaves the current one
        AcDbObjectId id;
        if (append(entidade.get(), id) != RTNORM) return;
        (void)entidade.release()->close();
        m_ids.push_back(AcDbSoftPointerId(id));
    }
    const wchar_t* m_camada;
    std::vector<AcDbSoftPointerId> m_ids;
};

std::wstring semFormula(const std::wstring& texto) {
    return texto.find_first_of(L"=+-@\t\r") == 0 ? L'\'' + texto : texto;
}

std::wstring campoCsv(const std::wstring& campo) {
    if (campo.find_first_of(L";\"\r\n") == std::wstring::npos) return campo;
    std::wstring citado = L"\"";
    for (const wchar_t c : campo) {
        if (c == L'"') citado += L'"';
        citado += c;
    }
    return citado + L'"';
}

void acrescentaCsv(std::wstring& texto, const Campos& c) {
    for (std::size_t i = 0; i < kColunas; ++i) {
        if (i > 0) texto += L';';
        texto += campoCsv(kTitulos[i].numerica ? c[i] : semFormula(c[i]));
    }
    texto += L"\r\n";
}

}  // namespace

Totais totaisDe(const std::vector<Linha>& linhas) {
    Totais t;
    for (const Linha& l : linhas) {
        if (apagada(l)) continue;
        t.peso += l.pesoTotal;
        t.pintura += l.areaPintura;
    }
    return t;
}

std::string utf8(const std::wstring& texto) {
    std::string bytes;
    const auto codigo = [&](std::size_t i) -> std::uint32_t {
        return static_cast<std::make_unsigned_t<wchar_t>>(i < texto.size() ? texto[i] : L'\0');
    };
    for (std::size_t i = 0; i < texto.size(); ++i) {
        std::uint32_t u = codigo(i);
        // Where wide characters have 16 bits, two halves make the rarer ones.
        const std::uint32_t baixa = codigo(i + 1);
        if (u >> 10 == 0x36 && baixa >> 10 == 0x37) {
            u = 0x10000u + ((u & 0x3ffu) << 10) + (baixa & 0x3ffu);
            ++i;
        }
        const auto resto = [&](int desloca) {
            bytes += static_cast<char>(0x80u | (u >> desloca & 0x3fu));
        };
        if (u < 0x80) {
            bytes += static_cast<char>(u);
        } else if (u < 0x800) {
            bytes += static_cast<char>(0xc0u | u >> 6);
            resto(0);
        } else if (u < 0x10000) {
            bytes += static_cast<char>(0xe0u | u >> 12);
            resto(6);
            resto(0);
        } else {
            bytes += static_cast<char>(0xf0u | u >> 18);
            resto(12);
            resto(6);
            resto(0);
        }
    }
    return bytes;
}

std::filesystem::path caminhoDe(const std::wstring& texto) {
    const std::string bytes = utf8(texto);
    return std::u8string_view(reinterpret_cast<const char8_t*>(bytes.data()), bytes.size());
}

std::wstring textoDe(const std::filesystem::path& caminho) {
    try {
        return caminho.wstring();
    } catch (const std::system_error&) {  // a folder that is named in another encoding
        std::wstring texto;
        for (const char c : caminho.string())
            texto += static_cast<unsigned char>(c) < 0x80 ? static_cast<wchar_t>(c) : L'?';
        return texto;
    }
}

bool desenhaTabela(const Lista& lista) {
    std::optional<Cabecalho> cabecalho = leCabecalho(lista.id);
    if (!cabecalho) return false;
    const std::vector<Linha> todas = linhas(lista.id);
    std::vector<Campos> celulas{titulos()};
    for (const Linha& l : todas) celulas.push_back(campos(l));
    celulas.push_back(campos(totaisDe(todas)));

    const double h = 2.5 * GetScale();
    std::array<double, kColunas + 1> x{};
    x[0] = cabecalho->ponto.x;
    for (std::size_t i = 0; i < kColunas; ++i) {
        std::size_t maior = 0;
        for (const Campos& c : celulas) maior = std::max(maior, c[i].size());
        // cppcheck-suppress containerOutOfBounds ; x has one more than kColunas
        x[i + 1] = x[i] + h * (0.9 * static_cast<double>(maior) + 1.6);
    }
    apagaTabela(*cabecalho);
    Desenhista d(ZpLayerToUsr(L"LISTA"));
    const double passo = 2.0 * h;
    const double z = cabecalho->ponto.z;
    const auto y = [&](std::size_t n) {
        return cabecalho->ponto.y - passo * static_cast<double>(n);
    };
    for (std::size_t n = 0; n <= celulas.size(); ++n)
        d.linha({x.front(), y(n), z}, {x.back(), y(n), z});
    for (const double coluna : x) d.linha({coluna, y(0), z}, {coluna, y(celulas.size()), z});
    for (std::size_t n = 0; n < celulas.size(); ++n)
        for (std::size_t i = 0; i < kColunas; ++i) {
            const bool direita = kTitulos[i].numerica && n > 0;
            const double onde = direita ? x[i + 1] - 0.8 * h : x[i] + 0.8 * h;
            d.texto({onde, y(n + 1) + 0.5 * h, z}, celulas[n][i], h, direita);
        }
    cabecalho->tabela = d.ids();
    return gravaCabecalho(lista.id, *cabecalho);
}

std::wstring textoCsv(const std::vector<Linha>& linhas) {
    std::wstring texto;
    acrescentaCsv(texto, titulos());
    for (const Linha& l : linhas) acrescentaCsv(texto, campos(l));
    return texto;
}

bool gravaCsv(const std::filesystem::path& destino, const std::vector<Linha>& linhas) {
    return files::replace(destino, "\xEF\xBB\xBF" + utf8(textoCsv(linhas))) == 0;
}

}  // namespace zp::lista
