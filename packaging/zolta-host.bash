# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of zolta-host's arguments in bash.
_zolta_host()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local sounds='!*.@(wav|flac|ogg|WAV|FLAC|OGG)'
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    if ((COMP_CWORD > 1)) && [[ ${COMP_WORDS[COMP_CWORD - 2]} == --render ]]; then
        mapfile -t COMPREPLY < <(compgen -f -X "$sounds" -- "$current"; compgen -d -- "$current")
        return
    fi
    case $previous in
        --render | --audio)
            mapfile -t COMPREPLY < <(compgen -f -X "$sounds" -- "$current"; compgen -d -- "$current")
            ;;
        --plugin | --state | --save-state | --screenshot | --session)
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            ;;
        --language) mapfile -t COMPREPLY < <(compgen -W 'en de ja' -- "$current") ;;
        --meters) mapfile -t COMPREPLY < <(compgen -W 'on off' -- "$current") ;;
        --channel) mapfile -t COMPREPLY < <(compgen -W '0 1 2 3 4 5 6 7' -- "$current") ;;
        --rate | --sample-rate)
            mapfile -t COMPREPLY < <(compgen -W '44100 48000 96000 192000' -- "$current")
            ;;
        --set)
            compopt -o nospace
            mapfile -t COMPREPLY < <(compgen -W "$(printf 'fx_rackfx_prm_%d= ' {1..27})" -- "$current")
            ;;
        --scale | --device | --block) ;;
        *)
            mapfile -t COMPREPLY < <(compgen -W \
                "$(zolta-host --help 2>/dev/null | grep -o -- '^  --[a-z-]*')" -- "$current")
            ;;
    esac
}
complete -F _zolta_host zolta-host
