# bash completion for tarnwell                                             -*- shell-script -*-

_tarnwell()
{
    local cur prev words cword
    _init_completion || return

    local word folders=0 onlyFolders=0
    for word in "${words[@]:1:cword-1}"; do
        case $word in
            --help | --version) ((onlyFolders)) || return ;;
            --) onlyFolders=1 ;;
            *) ((++folders)) ;;
        esac
    done
    if [[ $cur == -* ]] && ((!onlyFolders)); then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$cur")
    elif ((folders < 5)); then
        _filedir -d
    fi
} &&
    complete -F _tarnwell tarnwell
