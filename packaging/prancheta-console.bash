# SPDX-License-Identifier: MIT
# bash completion: the options are those that the program's help shows.
_prancheta_console() {
    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]} ending=
    case $before in
        --instalacao | --catalogos)
            mapfile -t COMPREPLY < <(compgen -d -- "$word")
            return ;;
        --formato)
            mapfile -t COMPREPLY < <(compgen -W 'r12 2000 2018 modelo texto csv json' -- "$word")
            return ;;
        --layout)
            mapfile -t COMPREPLY < <(compgen -W 'todos' -- "$word")
            return ;;
        -r | --roteiro) ending='*' ;;
        --pecas) ending='*.csv' ;;
        --estado) ending='*.json' ;;
        --registro) ending='*.jsonl' ;;
        --modulo) ending='*.arx' ;;
        --pdf | --svg | --png) ending="*.${before#--}" ;;
        *) ending='*.dxf' ;;
    esac
    if [[ $word == -* ]]; then
        local options
        options=$("${COMP_WORDS[0]}" --ajuda 2>/dev/null | sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr ',' '\n')
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$word")
        return
    fi
    compopt -o filenames 2>/dev/null
    mapfile -t COMPREPLY < <(compgen -d -- "$word"; compgen -f -X "!$ending" -- "$word")
}
complete -F _prancheta_console prancheta-console
