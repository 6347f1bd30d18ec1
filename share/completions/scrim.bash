# bash completion for scrim, scrim-check, scrim-drive and scrim-sketch.

# Adds the names that compgen finds, behind the text given; a directory gets its slash.
_scrim_names() {
  local before=$1 name
  shift
  compopt -o nospace -o filenames 2>/dev/null
  while IFS= read -r name; do
    [ -d "$name" ] && name+=/
    COMPREPLY+=("$before$name")
  done < <(compgen "$@" | sort -u)
}

# Adds those of the options in $1 that begin with $2.
_scrim_options() {
  local option
  while IFS= read -r option; do
    COMPREPLY+=("$option")
  done < <(compgen -W "$1" -- "$2")
}

# Completes the last name of a comma-separated list of screen files.
_scrim_screens() {
  local list='' last=${1##*,}
  case $1 in
    *,*) list=${1%,*}, ;;
    *) _scrim_names '' -W stdin -- "$last" ;;
  esac
  _scrim_names "$list" -f -X '!*.scrim' -- "$last"
  _scrim_names "$list" -d -- "$last"
}

_scrim() {
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i word
  COMPREPLY=()
  # The first word without a dash ends the options; -f, -t and -m take words of their own.
  for ((i = 1; i < COMP_CWORD; i++)); do
    word=${COMP_WORDS[i]}
    case $word in
      -f*) ((i + 1 == COMP_CWORD)) || ((i++)) ;;
      -t*) ((i++)) ;;
      -m*) ((i += 2)) ;;
      -*) ;;
      *) return ;;
    esac
  done
  if [[ $previous == -f* ]] && ((i == COMP_CWORD)); then
    _scrim_screens "$current"
    return
  fi
  ((i == COMP_CWORD)) || return
  case $current in
    -[AIUW]*) _scrim_names "${current:0:2}" -f -- "${current:2}" ;;
    '' | -*) _scrim_options '-l -b -f -e -p -t -m -A -I -U -W -r -T -d -D' "$current" ;;
  esac
}

_scrim_check() {
  local current=${COMP_WORDS[COMP_CWORD]}
  COMPREPLY=()
  case $current in
    -*) _scrim_options '-q -W' "$current" ;;
    *) _scrim_screens "$current" ;;
  esac
}

_scrim_drive() {
  local current=${COMP_WORDS[COMP_CWORD]} i option=
  COMPREPLY=()
  # The command is the first word that is neither an option nor its argument.
  for ((i = 1; i < COMP_CWORD; i++)); do
    case $option,${COMP_WORDS[i]} in
      ,--) ((i++)) && break ;;
      ,-[rcTkKqwoa] | ,-[su]*[rcTkKqwoa]) option=${COMP_WORDS[i]} ;;
      ,-*) ;;
      ,*) break ;;
      *) option= ;;
    esac
  done
  case $i,$option,$current in
    "$COMP_CWORD",*[Koa],*) _scrim_names '' -f -- "$current" ;;
    "$COMP_CWORD",?*,*) ;;
    "$COMP_CWORD",,-*) _scrim_options '-s -u -r -c -T -k -K -q -w -o -a' "$current" ;;
    "$COMP_CWORD",*) _scrim_names '' -c -- "$current" ;;
    *) _scrim_names '' -f -- "$current" ;;
  esac
}

_scrim_sketch() {
  local current=${COMP_WORDS[COMP_CWORD]} suffix=sketch
  COMPREPLY=()
  case " ${COMP_WORDS[*]:0:COMP_CWORD} " in
    *' -r '*) suffix=scrim ;;
  esac
  case $current in
    -*) _scrim_options '-f -r -t' "$current" ;;
    *) _scrim_names '' -f -X "!*.$suffix" -- "$current" && _scrim_names '' -d -- "$current" ;;
  esac
}

complete -F _scrim scrim
complete -F _scrim_check scrim-check
complete -F _scrim_drive scrim-drive
complete -F _scrim_sketch scrim-sketch
