# bash completion for scrim.

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
  local current=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD - 1]} i name word
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
    '' | -*)
      while IFS= read -r name; do
        COMPREPLY+=("$name")
      done < <(compgen -W '-l -b -f -e -p -t -m -A -I -U -W -r -T -d -D' -- "$current")
      ;;
  esac
}

complete -F _scrim scrim
