# Completion of vistanectl for bash. It asks the program's own help, so that it knows every command there is.

# The first words of a section ("Subcommands", "Options") of the help of the command so far.
__vistanectl_words() {
    local section=$1
    shift
    "$@" --help 2>/dev/null | awk -v section="$section:" '
        /^[^ ]/ { inside = $0 == section; next }
        inside && /^  [^ ]/ { split($1, names, ","); for (i in names) print names[i] }'
}

_vistanectl() {
    local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}
    local command=("${COMP_WORDS[0]}") word i
    for ((i = 1; i < COMP_CWORD; i++)); do
        word=${COMP_WORDS[i]}
        [[ $word != -* ]] && __vistanectl_words Subcommands "${command[@]}" | grep -qxF -- "$word" &&
            command+=("$word")
    done
    case ${command[*]:1} in
    get | set | reset | list | explain)
        [[ $current != -* && $previous == "${command[-1]}" ]] &&
            mapfile -t COMPREPLY < <(compgen -W "$("${command[0]}" list 2>/dev/null | cut -f 1)" -- "$current") &&
            return
        ;;
    "pack install" | "pack check" | "pack export" | "scene load")
        [[ $current != -* ]] && mapfile -t COMPREPLY < <(compgen -f -- "$current") && return
        ;;
    esac
    local section=Subcommands
    [[ $current == -* ]] && section=Options
    mapfile -t COMPREPLY < <(compgen -W "$(__vistanectl_words $section "${command[@]}")" -- "$current")
}
complete -o filenames -F _vistanectl vistanectl
