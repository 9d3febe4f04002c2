# Completion of kl5276ctl for bash. Fields and their words come from the program itself.

# Files, also with blanks in their names; a folder goes on behind its slash.
_kl5276ctl_files() {
    local file
    compopt -o filenames 2>/dev/null
    while IFS= read -r file; do
        COMPREPLY+=("$file")
    done < <(compgen -f -- "$1")
}

_kl5276ctl() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD - 1]} ctl=${COMP_WORDS[0]}
    local commands="ports id get set output sweep am fsk psk modulation load save memory wave clock fields batch"
    local options="--port --rate --timeout --log --quiet --dry-run --from --help"
    local command= field= word
    COMPREPLY=()
    # "=" separates words: field = value.
    if [ "$cur" = "=" ]; then
        field=$prev cur=
    elif [ "$prev" = "=" ]; then
        field=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    for word in "${COMP_WORDS[@]:1:COMP_CWORD-1}"; do
        case " $commands " in *" $word "*) command=$word; break ;; esac
    done
    if [ -n "$field" ]; then
        COMPREPLY=($(compgen -W "$("$ctl" fields 2>/dev/null | awk -F'\t' -v f="$field" \
            '$1 == f && $2 ~ /\|/ { gsub(/\|/, " ", $2); print $2 }')" -- "$cur"))
        return
    fi
    case $prev in
        --rate) COMPREPLY=($(compgen -W "4800 9600 19200 38400 115200" -- "$cur")); return ;;
        --port)
            COMPREPLY=($(compgen -W "com1 com2 com3 com4" -- "$cur"))
            _kl5276ctl_files "${cur:-/dev/tty}"
            return
            ;;
        --from | --recording | -o | --out) _kl5276ctl_files "$cur"; return ;;
        --size) COMPREPLY=($(compgen -W "4k 16k" -- "$cur")); return ;;
        --scale) COMPREPLY=($(compgen -W "full trace zero" -- "$cur")); return ;;
        --timeout | --formula | --channel) return ;;
    esac
    local words=
    case $command in
        "") words="$commands $options" ;;
        get) words="$("$ctl" fields 2>/dev/null | cut -f1) --json" ;;
        set)
            words="$("$ctl" fields 2>/dev/null | cut -f1 | sed 's/$/=/') --clamp"
            compopt -o nospace 2>/dev/null
            ;;
        id | ports) words=--json ;;
        output) words="on off" ;;
        sweep) words="lin log off --clamp" ;;
        am) words="internal external --clamp" ;;
        fsk | psk) words=--clamp ;;
        modulation) words="off --clamp" ;;
        memory) [[ $prev == memory ]] && words="send read compare" || words="4k 16k" ;;
        wave) words="--formula --recording --channel --scale --full-range --size --out -o" ;;
        load) words="--memories --clamp" ;;
        save) words=--memories ;;
    esac
    [[ $cur != -* ]] || words+=" $options"  # they may also stand behind the command
    COMPREPLY=($(compgen -W "$words" -- "$cur"))
    case $command in
        load | save | batch) _kl5276ctl_files "$cur" ;;
        memory) [[ $prev == [14]*k ]] && COMPREPLY=() && _kl5276ctl_files "$cur" ;;
    esac
}
complete -F _kl5276ctl kl5276ctl
