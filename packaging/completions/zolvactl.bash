# Completion of zolvactl for bash.

_zolvactl()
{
    local commands="summary analyze clean purge installers apps leftovers blocked tally check
        excluded validate-exclusion size status prefs exclusions version"
    local current="${COMP_WORDS[COMP_CWORD]}"
    local previous="${COMP_WORDS[COMP_CWORD - 1]}"
    local command="" change="" key="" options="--json --help --version" word last=""
    local -i i
    COMPREPLY=()

    for ((i = 1; i < COMP_CWORD; i++)); do
        word="${COMP_WORDS[i]}"
        if [[ "$word" == -* ]]; then
            last="$word"
        elif [[ -z "$command" ]]; then
            command="$word"
        elif [[ -z "$change" ]]; then
            change="$word"
        else
            key="$word"
        fi
    done

    case "$command" in
        apps) options="--json --help --apps" ;;
        leftovers) options="--json --help --apps --path" ;;
        excluded | validate-exclusion) options="--json --help --list" ;;
        status) options="--json --help --watch --interval" ;;
        ?*) options="--json --help" ;;
    esac

    if [[ "$previous" != --apps && "$previous" != --path && "$last" != -- && "$current" == -* ]]
    then
        mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
        return
    fi
    case "$command" in
        "")
            mapfile -t COMPREPLY < <(compgen -W "$commands" -- "$current")
            ;;
        analyze)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -d -- "$current")
            ;;
        tally | check | excluded | validate-exclusion)
            compopt -o filenames 2>/dev/null
            mapfile -t COMPREPLY < <(compgen -f -- "$current")
            ;;
        prefs)
            local values
            case "$change:$key" in
                "set:") values="themeMode pollInterval diskThreshold requireTouchID keepInTrash
                    seenAccessIntro" ;;
                "set:themeMode") values="system light dark" ;;
                "set:requireTouchID" | "set:keepInTrash" | "set:seenAccessIntro")
                    values="true false" ;;
                ":") values="set" ;;
                *) values="" ;;
            esac
            mapfile -t COMPREPLY < <(compgen -W "$values" -- "$current")
            ;;
        exclusions)
            if [[ -z "$change" ]]; then
                mapfile -t COMPREPLY < <(compgen -W "add remove" -- "$current")
            else
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
            fi
            ;;
        apps | leftovers)
            if [[ "$previous" == --apps || "$previous" == --path ]]; then
                compopt -o filenames 2>/dev/null
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
            else
                mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
            fi
            ;;
    esac
}

complete -F _zolvactl zolvactl
