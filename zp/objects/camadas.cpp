// SPDX-License-Identifier: MIT
// The user's layer names.
#include "zp/objects/camadas.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <cwctype>
#include <fstream>
#include <iterator>
#include <map>

namespace zp {
namespace {

std::wstring minusculas(std::wstring texto) {
    for (wchar_t& c : texto) c = static_cast<wchar_t>(std::towlower(static_cast<std::wint_t>(c)));
    return texto;
}

/// Two halves where wide characters have 16 bits and the character does not fit.
void acrescenta(std::wstring& texto, unsigned codigo) {
    if (sizeof(wchar_t) == 2 && codigo > 0xffff) {
        texto += static_cast<wchar_t>(0xd800 + ((codigo - 0x10000) >> 10));
        codigo = 0xdc00 + ((codigo - 0x10000) & 0x3ff);
    }
    texto += static_cast<wchar_t>(codigo);
}

/// False when the bytes are no UTF-8.
bool deUtf8(const std::string& bytes, std::wstring& texto) {
    for (std::size_t i = 0; i < bytes.size();) {
        const auto primeiro = static_cast<unsigned char>(bytes[i++]);
        const int seguem = primeiro < 0x80       ? 0
                           : primeiro >> 5 == 6  ? 1
                           : primeiro >> 4 == 14 ? 2
                           : primeiro >> 3 == 30 ? 3
                                                 : -1;
        if (seguem < 0) return false;
        unsigned codigo = seguem == 0 ? primeiro : primeiro & (0x3fu >> seguem);
        for (int k = 0; k < seguem; ++k, ++i) {
            if (i >= bytes.size() || (static_cast<unsigned char>(bytes[i]) & 0xc0u) != 0x80u)
                return false;
            codigo = codigo << 6 | (static_cast<unsigned char>(bytes[i]) & 0x3fu);
        }
        acrescenta(texto, codigo);
    }
    return true;
}

std::wstring texto(std::string bytes) {
    if (bytes.starts_with("\xEF\xBB\xBF")) bytes.erase(0, 3);
    std::wstring largo;
    if (deUtf8(bytes, largo)) return largo;
    largo.clear();
    // The letters of the western code page are those of Latin-1.
    for (const char c : bytes) largo += static_cast<wchar_t>(static_cast<unsigned char>(c));
    return largo;
}

std::wstring aparado(const std::wstring& t) {
    const std::size_t de = t.find_first_not_of(L" \t\r");
    return de == std::wstring::npos ? L"" : t.substr(de, t.find_last_not_of(L" \t\r") - de + 1);
}

std::u8string semCaixa(const std::filesystem::path& nome) {
    std::u8string s = nome.u8string();
    for (char8_t& c : s)
        if (c >= u8'A' && c <= u8'Z') c = static_cast<char8_t>(c + 32);
    return s;
}

/// Entry of a folder by its name in any case; the name itself when there is none.
std::filesystem::path entrada(const std::filesystem::path& pasta, const std::string& nome) {
    std::error_code erro;
    std::filesystem::path escrita = pasta / nome;
    if (std::filesystem::exists(escrita, erro)) return escrita;
    for (std::filesystem::directory_iterator i(pasta, erro), fim; !erro && i != fim;
         i.increment(erro))
        if (semCaixa(i->path().filename()) == semCaixa(nome)) return i->path();
    return escrita;
}

/// The file in this installation. Every piece asks: while the folder where it stood, or would
/// stand, does not change, that folder is not searched again.
const std::filesystem::path& arquivoEm(const std::filesystem::path& instalacao) {
    struct Achado {
        std::filesystem::path instalacao;
        std::filesystem::path pasta;
        std::filesystem::file_time_type quando;
        std::filesystem::path arquivo;
    };
    static Achado achado;
    std::error_code erro;
    if (!achado.pasta.empty() && achado.instalacao.native() == instalacao.native()) {
        const auto quando = std::filesystem::last_write_time(achado.pasta, erro);
        if (!erro && quando == achado.quando) return achado.arquivo;
    }
    achado = {instalacao, {}, {}, {}};
    std::filesystem::path pasta = entrada(instalacao, "Perfis");
    const auto quando = std::filesystem::last_write_time(pasta, erro);
    achado.arquivo = entrada(pasta, "camadas.ini");
    // A change in the same tick of the clock as the search would not be seen.
    const bool assentada =
        !erro && std::filesystem::file_time_type::clock::now() - quando > std::chrono::seconds(2);
    if (assentada) {
        achado.pasta = std::move(pasta);
        achado.quando = quando;
    }
    return achado.arquivo;
}

}  // namespace

std::map<std::wstring, std::wstring> leCamadas(const std::filesystem::path& arquivo) {
    std::map<std::wstring, std::wstring> camadas;
    std::ifstream entradaDoArquivo(arquivo, std::ios::binary);
    if (!entradaDoArquivo) return camadas;
    const std::wstring tudo = texto({std::istreambuf_iterator<char>(entradaDoArquivo), {}});
    for (std::size_t de = 0; de < tudo.size();) {
        const std::size_t fim = std::min(tudo.find(L'\n', de), tudo.size());
        const std::wstring linha = aparado(tudo.substr(de, fim - de));
        de = fim + 1;
        const std::size_t igual = linha.find(L'=');
        if (linha.empty() || linha[0] == L';' || linha[0] == L'#' || igual == std::wstring::npos)
            continue;
        const std::wstring padrao = minusculas(aparado(linha.substr(0, igual)));
        const std::wstring usuario = aparado(linha.substr(igual + 1));
        if (!padrao.empty() && !usuario.empty()) camadas[padrao] = usuario;
    }
    return camadas;
}

std::filesystem::path arquivoDeCamadas() {
#ifdef _WIN32
    const wchar_t* const pasta = _wgetenv(L"ZPFORJA2010");
    if (pasta == nullptr || *pasta == L'\0') return {};
    const std::filesystem::path caminho = pasta;
#else
    const char* const pasta = std::getenv("ZPFORJA2010");
    if (pasta == nullptr || *pasta == '\0') return {};
    std::string caminho = pasta;
    std::replace(caminho.begin(), caminho.end(), '\\', '/');
#endif
    return arquivoEm(caminho);
}

int corDaCamada(const std::wstring& nomePadrao) {
    struct Cor {
        const wchar_t* nome;
        int cor;
    };
    constexpr std::array<Cor, 4> kCores{
        {{L"perfil", 7}, {L"vista-chapa", 3}, {L"cota", 2}, {L"marca", 1}}};
    const std::wstring nome = minusculas(nomePadrao);
    for (const Cor& c : kCores)
        if (nome == c.nome) return c.cor;
    return 7;
}

}  // namespace zp
