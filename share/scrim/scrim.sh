# shellcheck shell=sh
# scrim.sh: use scrim's answers without eval. Any POSIX shell: dash, bash, busybox sh, ksh.
#
#     . /usr/share/scrim/scrim.sh
#     scrim_read CUST CITY -- -f customer.scrim || exit
#     [ "$RETN" = ok ] && printf '%s\n' "$CUST"
#
# Keys come from /dev/tty where standard input is no terminal, so that all of it works inside
# "while read ...; do ...; done <file". A wrong call prints its usage and returns 64.
# The program is "scrim" on PATH, or what the variable SCRIM names when this file is read.
# A number there is an earlier pick list's answer and names no program.

case ${SCRIM-} in
  *[!-0-9]*) _scrim_program=$SCRIM ;;
  *) _scrim_program=scrim ;;
esac
_scrim_newline='
'
_scrim_bar=

# scrim_read NAME... -- OPTION...
# Runs scrim with the options. Of what comes back it assigns and exports the listed names, and
# sets RETN (a form) or SCRIM (a pick list); nothing else, whatever a value holds. A field that
# the user left alone keeps its variable's value; RETN and an old SCRIM answer are emptied first.
# Returns scrim's exit status, and assigns nothing unless it is 0; 254 when the answer is refused
# (see below). Leaves the form on the screen.
#
# The answer is NAME="value";export NAME;...;RETN=action, with values unquoted. Where a value
# ends is safe to tell only if the whole line can be read in one way: every item closed by its
# own name, no name twice. So give every gadget a name of its own; an action must not hold ";RETN=".
# A value that imitates a whole assignment (x";export CUST;CITY="y, with CITY filled in too) can
# make two readings possible; then nothing is assigned, a message goes to standard error, and
# the status is 254. An answer that is assigned is therefore always what was entered. The same
# happens to an answer for a name that no variable can have: a colon in a preset value ends its
# item, and what follows is taken for the name. Make such values fit with scrim_fit.
scrim_read() {
  _scrim_wanted=' '
  while [ "$#" -gt 0 ] && [ "$1" != -- ]; do
    _scrim_is_name "$1" || { set -- && break; }
    _scrim_wanted="$_scrim_wanted$1 "
    shift
  done
  _scrim_called 'scrim_read NAME... -- OPTION...' 2 "$#" "$@" || return
  shift
  RETN=
  case ${SCRIM-} in
    *[!-0-9]*) ;;
    *) SCRIM= ;;
  esac
  _scrim_call "$@" || return
  _scrim_as_bytes
  _scrim_line=${_scrim_line%.}
  _scrim_take "${_scrim_line%"$_scrim_newline"}" || _scrim_status=254
  _scrim_as_before
  return "$_scrim_status"
}

# scrim_progress ROW WIDTH CURRENT TOTAL
# Draws scrim's progress bar, but only if its place or its number of filled cells is not that of
# the last call. Returns scrim's exit status, 0 when there was nothing to draw. Leaves the bar on the
# screen, where it never shrinks: clear the row before starting another one there.
scrim_progress() {
  for _scrim_number in "$@"; do
    case ${_scrim_number#-} in
      '' | 0?* | *[!0-9]*) set -- ;;
    esac
  done
  _scrim_called 'scrim_progress ROW WIDTH CURRENT TOTAL' 4 4 "$@" || return
  _scrim_filled=0
  [ "$4" -gt 0 ] && _scrim_filled=$(($2 * $3 / $4))
  if [ "$_scrim_bar" != "$1,$2,$_scrim_filled" ]; then
    "$_scrim_program" -t "$1,$2,$3,$4" || return
    _scrim_bar=$1,$2,$_scrim_filled
  fi
}

# scrim_fit TEXT [LENGTH]
# Prints the text as an item of a screen file, or an exported value for one, can hold it: ":"
# becomes ";", "\" becomes "/", "${" becomes "$(", newlines and control characters become blanks,
# and what is longer than LENGTH bytes (79) is cut behind a whole character of UTF-8. Leaves the
# screen as it is.
scrim_fit() {
  case ${2-79} in
    '' | *[!0-9]*) set -- ;;
  esac
  _scrim_called 'scrim_fit TEXT [LENGTH]' 1 2 "$@" || return
  _scrim_item "$1" "${2-79}" | LC_ALL=C sed 's/\\/\//g; s/\${/$(/g'
}

# Whether a call has from $2 to $3 words; prints its usage $1 if not.
_scrim_called() {
  _scrim_usage=$1 _scrim_least=$2 _scrim_most=$3
  shift 3
  if [ "$#" -ge "$_scrim_least" ] && [ "$#" -le "$_scrim_most" ]; then
    return 0
  fi
  printf 'usage: %s\n' "$_scrim_usage" >&2
  return 64
}

_scrim_is_name() {
  case $1 in
    '' | [0-9]* | *[!A-Za-z0-9_]* | _scrim*) return 1 ;;
  esac
}

# Prints the text $1 without what ends an item: colons, newlines and control characters are others,
# and there are at most $2 bytes. Backslashes and "${" stay.
_scrim_item() {
  printf '%s\n' "$1" | LC_ALL=C awk -v most="$2" "$_scrim_fitting"'
    NR == 1 { text = $0 }
    NR > 1 && length(text) <= most { text = text " " $0 }
    END {
      gsub(/[[:cntrl:]]/, " ", text)
      gsub(/:/, ";", text)
      if (length(text) > most) text = substr(text, 1, fitting(text, most))
      print text
    }'
}

# For awk: how many bytes, at most n, whole characters of UTF-8 take at the start of a longer text.
_scrim_fitting='
  function continues(byte) { return byte >= "\200" && byte < "\300" }
  function fitting(text, n,   i) {
    for (i = n; i >= n - 3; i--) if (!continues(substr(text, i + 1, 1))) return i
    return n
  }'

# Runs scrim. Leaves its answer in _scrim_line, with a dot behind it, and its exit status in
# _scrim_status, and returns it.
_scrim_call() {
  _scrim_status=0
  # scrim handles no signals: one that ends it leaves the terminal raw and its keypad transmitting.
  _scrim_tty=$({ stty -g </dev/tty; } 2>/dev/null) || _scrim_tty=
  _scrim_line=$(_scrim_run "$@") || _scrim_status=$?
  if [ "$_scrim_status" -gt 128 ] && [ -n "$_scrim_tty" ]; then
    { stty "$_scrim_tty" </dev/tty; tput rmkx >/dev/tty; } 2>/dev/null || :
  fi
  return "$_scrim_status"
}

# Runs scrim, with keys from the terminal if there is one. A dot at the end keeps the substitution
# from dropping newlines of a value.
_scrim_run() {
  _scrim_status=0
  if [ -t 0 ] || [ -z "$_scrim_tty" ] || _scrim_reads_screen "$@"; then
    "$_scrim_program" "$@" || _scrim_status=$?
  else
    "$_scrim_program" "$@" </dev/tty || _scrim_status=$?
  fi
  printf .
  # Some shells count a signal from 256.
  [ "$_scrim_status" -le 255 ] || _scrim_status=$((_scrim_status - 128))
  exit "$_scrim_status"
}

# Whether the options read a screen file from standard input.
_scrim_reads_screen() {
  _scrim_option=
  for _scrim_word in "$@"; do
    case $_scrim_option,$_scrim_word, in
      -f,stdin,* | -f,*,stdin,*) return 0 ;;
      -f,*) _scrim_option= ;;
      ,-f*) _scrim_option=-f ;;
      ,-*) ;;
      *) return 1 ;;
    esac
  done
  return 1
}

# Between these two, patterns work on bytes: those of bash and ksh change what is no character of
# the locale.
_scrim_as_bytes() {
  _scrim_locale=${LC_ALL+=}${LC_ALL-}
  LC_ALL=C
}

_scrim_as_before() {
  # A shell complains again here of a locale that the machine does not have.
  case $_scrim_locale in
    =*) { LC_ALL=${_scrim_locale#=}; } 2>/dev/null ;;
    *) unset LC_ALL ;;
  esac
}

# Takes one answer apart and assigns it. No user's text can follow the last ";RETN=".
_scrim_take() {
  case $1 in
    *';RETN='*) _scrim_line=${1%;RETN=*} _scrim_action=${1##*;RETN=} ;;
    RETN=*) _scrim_line='' _scrim_action=${1#RETN=} ;;
    SCRIM=*[!-0-9]* | SCRIM=) return 0 ;;
    SCRIM=*) SCRIM=${1#SCRIM=} && return 0 ;;
    *) return 0 ;;
  esac
  if [ -n "$_scrim_line" ]; then
    _scrim_readings=0 _scrim_steps=0 _scrim_found=_scrim_count _scrim_wrong=
    _scrim_items "$_scrim_line;" ';'
    if [ "$_scrim_readings" -ne 1 ]; then
      printf 'scrim_read: the answer cannot be read in one way only; nothing assigned\n' >&2
      return 1
    fi
    if [ -n "$_scrim_wrong" ]; then
      printf 'scrim_read: no variable can be named "%s"; nothing assigned\n' \
        "$(scrim_fit "$_scrim_wrong")" >&2
      return 1
    fi
    _scrim_steps=0 _scrim_found=_scrim_assign
    _scrim_items "$_scrim_line;" ';'
  fi
  # shellcheck disable=SC2034 # for the caller
  RETN=$_scrim_action
}

# Tries every way to read the items at the start of $1, each with a ";" behind it; $2 holds the
# names used so far. Behind these stand the items taken, newest first, four words each: the name, the
# value, and two words for _scrim_ends: the text behind the value, and the names used until then.
# (Positional parameters are the only variables that a POSIX function has for itself.) Calls $_scrim_found with the items of each reading.
_scrim_items() {
  while [ -n "$1" ]; do
    _scrim_name=${1%%=\"*} _scrim_rest=${1#*=\"} _scrim_used=$2
    case $1 in *=\"*) ;; *) return 0 ;; esac
    case $2 in *";${_scrim_name:- };"*) return 0 ;; esac
    shift 2
    _scrim_end="\";export $_scrim_name;"
    case $_scrim_rest in
      *"$_scrim_end"*"$_scrim_end"*)
        _scrim_ends "$_scrim_name" '' "$_scrim_rest" "$_scrim_used$_scrim_name;" "$@"
        return 0
        ;;
      *"$_scrim_end"*) ;;
      *) return 0 ;;
    esac
    set -- "${_scrim_rest#*"$_scrim_end"}" "$_scrim_used$_scrim_name;" \
      "$_scrim_name" "${_scrim_rest%%"$_scrim_end"*}" '' '' "$@"
  done
  shift 2
  "$_scrim_found" "$@"
}

# The value of the item $1 may end in several places: tries each. $2 is the value up to the place
# reached, $3 the text behind it, $4 the names used, then the items taken before. Gives up, as
# for two readings, after 1000 places.
_scrim_ends() {
  while [ "$_scrim_readings" -le 1 ]; do
    _scrim_end="\";export $1;"
    case $3 in *"$_scrim_end"*) ;; *) return 0 ;; esac
    _scrim_steps=$((_scrim_steps + 1))
    [ "$_scrim_steps" -le 1000 ] || _scrim_readings=2
    _scrim_name=$1 _scrim_value=$2${3%%"$_scrim_end"*} _scrim_rest=${3#*"$_scrim_end"}
    _scrim_used=$4
    shift 4
    set -- "$_scrim_name" "$_scrim_value" "$_scrim_rest" "$_scrim_used" "$@"
    _scrim_items "$3" "$4" "$@"
    # This place may have been text: let the value go on behind it.
    _scrim_name=$1 _scrim_value="$2\";export $1;" _scrim_rest=$3 _scrim_used=$4
    shift 4
    set -- "$_scrim_name" "$_scrim_value" "$_scrim_rest" "$_scrim_used" "$@"
  done
}

_scrim_count() {
  _scrim_readings=$((_scrim_readings + 1))
  while [ "$#" -gt 0 ]; do
    case $1 in
      [0-9]* | *[!A-Za-z0-9_]*) _scrim_wrong=$1 ;;
    esac
    shift 4
  done
}

_scrim_assign() {
  while [ "$#" -gt 0 ]; do
    case $_scrim_wanted in
      *" $1 "*)
        _scrim_value=$2
        # Only the name, one of the caller's own, is evaluated.
        eval "$1=\$_scrim_value; export $1"
        [ "$1" != LC_ALL ] || _scrim_locale="=$2"
        ;;
    esac
    shift 4
  done
}
