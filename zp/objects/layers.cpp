// SPDX-License-Identifier: MIT
// The user's layer names.
#include "zp/objects/layers.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>

#include "texts/encoding.h"
#include "texts/letters.h"
#include "texts/path.h"

namespace zp {
namespace {

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
    std::filesystem::path pasta = texts::entryOf(instalacao, "Perfis");
    const auto quando = std::filesystem::last_write_time(pasta, erro);
    achado.arquivo = texts::entryOf(pasta, "camadas.ini");
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
    const std::wstring tudo =
        texts::decodeText(std::string{std::istreambuf_iterator<char>(entradaDoArquivo), {}});
    for (std::size_t de = 0; de < tudo.size();) {
        const std::size_t fim = std::min(tudo.find(L'\n', de), tudo.size());
        const std::wstring linha = texts::trimmed(tudo.substr(de, fim - de));
        de = fim + 1;
        const std::size_t igual = linha.find(L'=');
        if (linha.empty() || linha[0] == L';' || linha[0] == L'#' || igual == std::wstring::npos)
            continue;
        const std::wstring padrao = texts::lower(texts::trimmed(linha.substr(0, igual)));
        const std::wstring usuario = texts::trimmed(linha.substr(igual + 1));
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
    const std::wstring nome = texts::lower(nomePadrao);
    for (const Cor& c : kCores)
        if (nome == c.nome) return c.cor;
    return 7;
}

}  // namespace zp
