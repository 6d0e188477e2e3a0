# Completion of qvlmms for bash. What there is to complete the command's own help tells.

# Offers what begins with a word: files (-f), folders (-d) or some of the words after -W.
_qvlmms_offer() { # WORD_BEGUN COMPGEN_ARGUMENT...
  local begun=$1
  shift
  [ "$1" = -W ] || compopt -o filenames 2>/dev/null
  mapfile -t COMPREPLY < <(compgen "$@" -- "$begun")
}

_qvlmms() { # QVLMMS WORD_BEGUN WORD_BEFORE
  local command='' title='' takes='' name value told
  local commands=() options=()
  local -A value_of=() told_of=()
  ((COMP_CWORD == 1)) || [ "${COMP_WORDS[1]}" = help ] || command=${COMP_WORDS[1]}

  # Rows are a name, what stands for its value if it has one, and words about it.
  while read -r name value told; do
    [[ -n $value && $value != *[^[:upper:]]* ]] || told="$value $told" value=''
    case $title$name in
      *:) title=$name ;;
      Commands:*) commands+=("$name") ;;
      Arguments:*) takes=${takes:-$name} ;;
      *:-*) options+=("$name") value_of[$name]=$value told_of[$name]=$told ;;
      Values:*) told_of[$name]=$told ;;
    esac
  done < <("$1" help ${command:+"$command"} 2>/dev/null | sed -z 's/\n \{4,\}/ /g; s/\n  -., /\n  /g')

  if [ -n "${value_of[$3]-}" ]; then
    takes=${value_of[$3]}
    told=${told_of[$3]}
    [ "$takes" != COLOUR ] || told=${told_of[COLOUR]#'#rrggbb,'}
    told=${told//,/}
  elif [[ -z $command && ($2 != -* || $COMP_CWORD -gt 1) ]]; then
    takes=COMMAND
  elif [ -z "$takes" ] || [[ $2 == -* ]]; then
    takes=OPTION
  fi

  COMPREPLY=()
  case $takes in
    COMMAND) _qvlmms_offer "$2" -W "${commands[*]}" ;;
    OPTION) _qvlmms_offer "$2" -W "${options[*]} ${command:+--help}" ;;
    WORD | COLOUR) _qvlmms_offer "$2" -W "${told// or / }" ;;
    FILE | OUT) _qvlmms_offer "$2" -f ;;
    DIR) _qvlmms_offer "$2" -d ;;
  esac
}
complete -F _qvlmms qvlmms
