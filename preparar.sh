# SPDX-License-Identifier: MIT
# Shared by ./executar and ./testar: installs what is missing and configures the build folder.

raiz=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

# Debian packages needed to build; the last ones only make it faster, are asked of by tests that check the saved
# drawings with another program, or make the Debian package.
pacotes_essenciais=(g++ cmake ninja-build nlohmann-json3-dev libvalijson-dev libcli11-dev libgtest-dev libxlsxwriter-dev
                    coinor-libcbc-dev qt6-base-dev qt6-svg-dev libqpdf-dev fonts-dejavu-core)
pacotes_uteis=(ccache python3-ezdxf poppler-utils qt6-translations-l10n file dpkg-dev)

faltando() {
    local pacote
    for pacote in "$@"; do
        dpkg-query -W -f='${Status}' "$pacote" 2>/dev/null | grep -q 'install ok installed' || echo "$pacote"
    done
}

instalar() {
    local lista
    mapfile -t lista < <(faltando "$@")
    [ "${#lista[@]}" -eq 0 ] && return 0
    local sudo=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Faltam os pacotes: ${lista[*]}. Instale-os como root: apt-get install ${lista[*]}" >&2
            return 1
        fi
        sudo=(sudo)
    fi
    echo "Instalando: ${lista[*]}"
    "${sudo[@]}" apt-get update -qq || true
    "${sudo[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${lista[@]}" >/dev/null
}

# preparar [ALVO]: what the target needs, everything without one.
preparar() {
    instalar "${pacotes_essenciais[@]}"
    instalar "${pacotes_uteis[@]}" || echo "Aviso: sem ${pacotes_uteis[*]}; a compilação segue sem eles." >&2
    # A warning of another compiler must not keep a user from building; in CI it must.
    local preset=release
    [ "${CI:-}" = true ] && preset=ci
    cmake --preset "$preset" -S "$raiz" >"$raiz/.configurar.log" 2>&1 || {
        cat "$raiz/.configurar.log" >&2
        rm -f "$raiz/.configurar.log"
        return 1
    }
    rm -f "$raiz/.configurar.log"
    cmake --build "$raiz/build" -j "$(nproc)" --target "${1:-all}"
}
