# Completion of qvlmms for bash. Offers what the command's own help lists.

# Offers files (-f), folders (-d) or words of the list after -W that begin with a word.
_qvlmms_offer() { # WORD_BEGUN COMPGEN_ARGUMENT...
  local begun=$1
  shift
  [ "$1" = -W ] || compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen "$@" -- "$begun")
}

_qvlmms() { # QVLMMS WORD_BEGUN WORD_BEFORE
  local command='' title='' wanted='' name value help
  local commands=() options=()
  local -A value_of=() help_of=()
  ((COMP_CWORD == 1)) || [ "${COMP_WORDS[1]}" = help ] || command=${COMP_WORDS[1]}

  # A row of the help: a name, the name of its value if it has one, and an explanation.
  while read -r name value help; do
    [[ -n $value && $value != *[^[:upper:]]* ]] || help="$value $help" value=''
    case $title$name in
      *:) title=$name ;;
      Commands:*) commands+=("$name") ;;
      Arguments:*) wanted=${wanted:-${name//[][]/}} ;;
      *:-*) options+=("$name") value_of[$name]=$value help_of[$name]=$help ;;
      Values:*) help_of[$name]=$help ;;
    esac
  done < <("$1" help ${command:+"$command"} 2>/dev/null | sed -z 's/\n \{4,\}/ /g; s/\n  -., /\n  /g')

  if [ -n "${value_of[$3]-}" ]; then
    wanted=${value_of[$3]}
    help=${help_of[$3]}
    [ "$wanted" != COLOR ] || help=${help_of[COLOR]#'#rrggbb,'}
    help=${help//,/}
  elif [[ -z $command && ($2 != -* || $COMP_CWORD -gt 1) ]]; then
    wanted=COMMAND
  elif [ -z "$wanted" ] || [[ $2 == -* ]]; then
    wanted=OPTION
  fi

  COMPREPLY=()
  case $wanted in
    COMMAND) _qvlmms_offer "$2" -W "${commands[*]}" ;;
    OPTION) _qvlmms_offer "$2" -W "${options[*]} ${command:+--help}" ;;
    WORD | COLOR) _qvlmms_offer "$2" -W "${help// or / }" ;;
    FILE | OUT) _qvlmms_offer "$2" -f ;;
    DIR) _qvlmms_offer "$2" -d ;;
  esac
}
complete -F _qvlmms qvlmms
