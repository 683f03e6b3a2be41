# SPDX-License-Identifier: GPL-3.0-or-later
# Completion of zolta-host's arguments in bash, from what the program itself says of its options.

# What follows the option $1, as "--help" shows it; nothing where nothing does.
_zolta_host_argument()
{
    zolta-host --help 2>/dev/null |
        awk -F '  +' -v option="$1" '{ split($2, word, " ") } word[1] == option { print word[2] }'
}

_zolta_host_options()
{
    zolta-host --help 2>/dev/null | grep -o -- '^  --[a-z-]*'
}

_zolta_host()
{
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    local argument sounds='\.(wav|flac|ogg)$' words=
    COMPREPLY=()
    compopt -o filenames 2>/dev/null
    argument=$(_zolta_host_argument "$previous")
    if ((COMP_CWORD > 1)) && [[ ${COMP_WORDS[COMP_CWORD - 2]} == --render ]]; then
        argument=SOUND
    fi
    if [[ ! $argument && $current && $current != -* ]]; then
        argument=SOUND
    fi
    case $argument in
        SOUND | IN)
            mapfile -t COMPREPLY < <(compgen -f -- "$current" | grep -iE "$sounds"; compgen -d -- "$current")
            ;;
        FILE*) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
        *'|'*) words=${argument//|/ } ;;
        2-32) words=$(seq 2 2 32) ;; # channels come in pairs
        [0-9]*-[0-9]*) words=$(seq "${argument%-*}" "${argument#*-}") ;;
        HZ) words='44100 48000 96000 192000' ;;
        NAME=*)
            compopt -o nospace 2>/dev/null
            words=$(printf 'fx_rackfx_prm_%d= ' {1..27})
            ;;
        '') words=$(_zolta_host_options) ;;
    esac
    if [[ $words ]]; then
        mapfile -t COMPREPLY < <(compgen -W "$words" -- "$current")
    fi
}
complete -F _zolta_host zolta-host
