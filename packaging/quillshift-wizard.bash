# Completion of quillshift-wizard for bash.
_quillshift_wizard() {
    local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}
    local sets="866 1251 koi8-r koi8-u iso-8859-5 mac utf-8 utf-16le utf-16be 1252 437 1253"
    case $before in
    --to) COMPREPLY=($(compgen -W "utf-8 1251 keep" -- "$current")) ;;
    --from) COMPREPLY=($(compgen -W "$sets" -- "$current")) ;;
    --exclude) # a list; what stands before its last comma stays
        local done=""
        [[ $current == *,* ]] && done=${current%,*},
        COMPREPLY=($(compgen -P "$done" -W "$sets" -- "${current##*,}"))
        ;;
    --depth) COMPREPLY=($(compgen -W "0 1 2 3" -- "$current")) ;;
    --list) COMPREPLY=() ;;
    *)
        if [[ $current == -* ]]; then
            COMPREPLY=($(compgen -W "--detect --list --from --to --depth --exclude --write --report --undo \
                --files-from -0 --json --help --version" -- "$current"))
        else
            COMPREPLY=()
            compopt -o default
        fi
        ;;
    esac
}
complete -F _quillshift_wizard quillshift-wizard
