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
        texto += static_cast<wchar_t>(codigo);
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

std::string semCaixa(std::string s) {
    std::transform(s.begin(), s.end(), s.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return s;
}

/// Entry of a folder by its name in any case; the name itself when there is none. Every piece asks: a folder that
/// did not change is not listed again.
std::filesystem::path entrada(const std::filesystem::path& pasta, const std::string& nome) {
    std::error_code erro;
    if (std::filesystem::exists(pasta / nome, erro)) return pasta / nome;
    struct Listada {
        std::filesystem::file_time_type quando;
        std::filesystem::path achada;
    };
    static std::map<std::filesystem::path, Listada> listadas;
    const auto quando = std::filesystem::last_write_time(pasta, erro);
    if (erro) return pasta / nome;
    // A change in the same tick of the clock as the listing would not be seen.
    const bool assentada =
        std::filesystem::file_time_type::clock::now() - quando > std::chrono::seconds(2);
    Listada& antes = listadas[pasta / nome];
    if (assentada && antes.quando == quando) return antes.achada;
    antes = {assentada ? quando : std::filesystem::file_time_type(), pasta / nome};
    for (std::filesystem::directory_iterator i(pasta, erro), fim; !erro && i != fim;
         i.increment(erro)) {
        if (semCaixa(i->path().filename().string()) != semCaixa(nome)) continue;
        antes.achada = i->path();
        break;
    }
    return antes.achada;
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
    const char* pasta = std::getenv("ZPFORJA2010");
    if (pasta == nullptr || *pasta == '\0') return {};
    std::string caminho = pasta;
#ifndef _WIN32
    std::replace(caminho.begin(), caminho.end(), '\\', '/');
#endif
    return entrada(entrada(caminho, "Perfis"), "camadas.ini");
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
