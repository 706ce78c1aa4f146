# Completion of jlandxml-inspect for bash.
_jlandxml_inspect() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    # The shell takes --option=VALUE for three words.
    if [ "$current" = = ]; then
        current=
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    local options='--json --checks --ignore --fail-on --schema --csv --report --list-checks -h --help -V --version'
    case $previous in
        --checks | --ignore) COMPREPLY=() ;;
        --fail-on) mapfile -t COMPREPLY < <(compgen -W '誤り 警告 情報' -- "$current") ;;
        --csv) mapfile -t COMPREPLY < <(compgen -d -- "$current") ;;
        *)
            if [[ $current == -* && $previous != --schema && $previous != --report ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
            else
                mapfile -t COMPREPLY < <(compgen -f -- "$current")
            fi
            ;;
    esac
}
complete -o filenames -F _jlandxml_inspect jlandxml-inspect
