# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
# Completion of lminspect for bash.

_lminspect()
{
    local theWord=${COMP_WORDS[COMP_CWORD]} thePrevious=${COMP_WORDS[COMP_CWORD - 1]} theList theCommands
    theCommands='log why graph page lint diff run attach detach ask'
    # bash takes --kind=changed apart at the equals sign.
    if [ "$theWord" = = ]; then
        theWord=
    elif [ "$thePrevious" = = ]; then
        thePrevious=${COMP_WORDS[COMP_CWORD - 2]}
    fi
    case $thePrevious in
    --kind)
        theList='begin end lost module made named destroyed observe unobserve depend undepend bind unbind
            changing changed equal refused told notify transform update action event read write flush diagnostic'
        mapfile -t COMPREPLY < <(compgen -W "$theList" -- "$theWord")
        return
        ;;
    -o | --output)
        mapfile -t COMPREPLY < <(compgen -f -- "$theWord")
        return
        ;;
    --command)
        mapfile -t COMPREPLY < <(compgen -W "$theCommands" -- "$theWord")
        return
        ;;
    attach | detach)
        theList=$(lminspect attach 2>/dev/null | sed 's/^[0-9]*  //')
        mapfile -t COMPREPLY < <(compgen -W "$theList" -- "$theWord")
        return
        ;;
    ask)
        theList=$(lminspect ask 2>/dev/null | sed 's/^[0-9]*  //')
        mapfile -t COMPREPLY < <(compgen -W "$theList" -- "$theWord")
        return
        ;;
    --object | --key | --caller | --since | --until | --nth | --at)
        return
        ;;
    esac
    if [ "$COMP_CWORD" -eq 3 ] && [ "${COMP_WORDS[1]}" = ask ]; then
        mapfile -t COMPREPLY < <(compgen -W 'objects keys bound why changes set help' -- "$theWord")
        return
    fi
    if [[ $theWord == -* ]]; then
        theList='--help --version --all --dot --at= --causes --callers --object= --key= --kind= --caller= --since= --until= --nth= --output= --command='
        mapfile -t COMPREPLY < <(compgen -W "$theList" -- "$theWord")
        if [[ ${#COMPREPLY[@]} -eq 1 && ${COMPREPLY[0]} == *= ]]; then
            compopt -o nospace 2>/dev/null
        fi
    elif [ "$COMP_CWORD" -eq 1 ]; then
        mapfile -t COMPREPLY < <(compgen -W "$theCommands" -- "$theWord")
    else
        mapfile -t COMPREPLY < <(compgen -f -- "$theWord")
    fi
}
complete -o filenames -F _lminspect lminspect
