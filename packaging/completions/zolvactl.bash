# Completion of zolvactl for bash.

_zolvactl()
{
    local commands="summary analyze clean purge installers trash uninstall put-back trash-meter
        empty-trash apps leftovers blocked tally check excluded validate-exclusion size status
        prefs exclusions version"
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
        clean | purge | installers)
            options="--json --help --run --yes --dry-run --permanent" ;;
        trash) options="--json --help --yes --dry-run --permanent" ;;
        uninstall) options="--json --help --apps --yes --dry-run" ;;
        empty-trash) options="--json --help --yes --dry-run" ;;
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
        tally | check | excluded | validate-exclusion | trash | uninstall | purge | installers)
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
        put-back)
            compopt -o filenames 2>/dev/null
            local trash="${XDG_DATA_HOME:-$HOME/.local/share}/Trash/files"
            mapfile -t COMPREPLY < <(cd "$trash" 2>/dev/null && compgen -f -- "$current")
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
