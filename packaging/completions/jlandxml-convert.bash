# Completion of jlandxml-convert for bash.
_jlandxml_convert() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]}
    # The shell takes --option=VALUE for three words.
    if [ "$current" = = ]; then
        current=
    elif [ "$previous" = = ]; then
        previous=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    local options='-n --routes -s --settings --folder-settings --skip-locked -o --output --output-dir -j --jobs --dry-run
        --print-settings --check --report --changes --json --strict -q --quiet --dialog -h --help -V --version'
    case $previous in
        -s | --settings | -o | --output | --report | --changes) mapfile -t COMPREPLY < <(compgen -f -- "$current") ;;
        -n | --routes | -j | --jobs | --folder-settings) COMPREPLY=() ;;
        *)
            if [[ $current == -* && $previous != --output-dir ]]; then
                mapfile -t COMPREPLY < <(compgen -W "$options" -- "$current")
            else
                mapfile -t COMPREPLY < <(compgen -d -- "$current")
            fi
            ;;
    esac
}
complete -o filenames -F _jlandxml_convert jlandxml-convert
