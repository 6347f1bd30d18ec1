# shellcheck shell=sh
# scrim.sh: ask one question in one line, and use a form's answer without eval; see scrim.sh(7).
# Any POSIX shell: dash, bash, busybox sh, ksh.
#
#     . share/scrim/scrim.sh      # below the prefix that it is installed in
#     scrim_ask 'Delete the old backups?' && rm -rf old
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
  _scrim_call _scrim_run "$@" || return
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

# scrim_ask QUESTION [YES [NO]]
# Asks in a pop-up with two buttons, of which YES is the active one. Returns 0 for YES, 1 for NO,
# 2 when the user gave up (Esc, ^X), 3 when scrim failed. Leaves the pop-up on the screen.
scrim_ask() {
  _scrim_called 'scrim_ask QUESTION [YES [NO]]' 1 3 "$@" || return
  _scrim_open "$1" 60 18 || return
  _scrim_form "$(_scrim_window && _scrim_answers "${2:-Yes}" "${3:-No}")" || return
  case $_scrim_line in
    RETN=yes*) ;;
    RETN=no*) return 1 ;;
    *) return 2 ;;
  esac
}

# scrim_input NAME PROMPT [INITIAL]
# Asks for a line of up to 79 characters and assigns it to the variable NAME. Enter goes from the
# field to the button (OK), and there ends it. Returns 0; 2 when the user gave up, 3 when scrim
# failed: then the variable keeps its value. What the field cannot hold of INITIAL is shown changed
# or cut, but INITIAL is assigned whole when the user leaves it alone. Leaves the pop-up on the
# screen.
scrim_input() {
  _scrim_called 'scrim_input NAME PROMPT [INITIAL]' 2 3 "$@" || return
  _scrim_text=$(_scrim_item "${3-}" 79)
  # This text alone would make it a password's field.
  [ "$_scrim_text" != '\p' ] || _scrim_text=/p
  _scrim_field "$1" "$2" "${3-}" "$(printf '%s\n' "$_scrim_text" | _scrim_escape)"
}

# scrim_password NAME PROMPT
# The same with a field that shows "*" for each character. The variable is not exported.
scrim_password() {
  _scrim_called 'scrim_password NAME PROMPT' 2 2 "$@" || return
  _scrim_field "$1" "$2" '' '\\p'
}

# scrim_choose NAME PROMPT ENTRY...
# Lets the user choose from a list, which stands under its prompt (one of more than 12 entries,
# beside it), and assigns the entry to the variable NAME: whole, where the list shows 39 bytes of
# it. Returns 0; 2 when the user gave up, 3 when scrim failed: then the variable keeps its value.
# Leaves prompt and list on the screen.
scrim_choose() {
  _scrim_called 'scrim_choose NAME PROMPT ENTRY...' 3 "$#" "$@" || return
  _scrim_name=$1 _scrim_text=$2
  shift 2
  if [ "$#" -le 12 ]; then
    _scrim_open "$_scrim_text" 60 "$((17 - $#))" || return
    _scrim_height=$((_scrim_row + $# + 4))
    _scrim_form "$(_scrim_window "pop:68,$_scrim_height")" || return
    set -- 10 "$(((24 - _scrim_height) / 2 + _scrim_row))" "$@"
  else
    _scrim_open "$_scrim_text" 30 18 || return
    _scrim_form "$(_scrim_window pop:80,24)" || return
    set -- 37 1 "$@"
  fi
  _scrim_call _scrim_run -l -b "$@" || return 3
  case $_scrim_line in
    SCRIM=[0-9]*) _scrim_line=${_scrim_line#SCRIM=} ;;
    *) return 2 ;;
  esac
  shift "$((${_scrim_line%?.} + 2))"
  _scrim_value=$1
  eval "$_scrim_name=\$_scrim_value"
}

# scrim_tell TEXT
# Shows a text of any length, page by page, until the user goes on (Enter, Space, Esc). Returns 0,
# or 3 when scrim failed. Leaves the last page on the screen.
scrim_tell() {
  _scrim_called 'scrim_tell TEXT' 1 1 "$@" || return
  if _scrim_open "$1" 60 18; then
    _scrim_form "$(_scrim_window && _scrim_button OK)"
  else
    [ "$?" -eq 2 ] || return 3
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

# Whether a call has from $2 to $3 words, and the first one is a name where the usage $1 wants one;
# prints the usage if not.
_scrim_called() {
  _scrim_usage=$1 _scrim_least=$2 _scrim_most=$3
  shift 3
  if [ "$#" -ge "$_scrim_least" ] && [ "$#" -le "$_scrim_most" ]; then
    case $_scrim_usage in
      *' NAME '*) _scrim_is_name "$1" && return ;;
      *) return 0 ;;
    esac
  fi
  printf 'usage: %s\n' "$_scrim_usage" >&2
  return 64
}

_scrim_is_name() {
  case $1 in
    '' | [0-9]* | *[!A-Za-z0-9_]* | _scrim*) return 1 ;;
  esac
}

# Folds the text $1 to lines of $2 bytes and shows them in pop-ups of $3 lines, until the last page
# is left: its lines in _scrim_lines, and in _scrim_row the row of its gadgets, in the same place as
# on the pages before. Returns 2 when the user gave up, 3 when scrim failed.
_scrim_open() {
  _scrim_lines=$(_scrim_fold "$1" "$2")
  _scrim_row=$(($(_scrim_count_lines) + 3))
  while [ "$(_scrim_count_lines)" -gt "$3" ]; do
    _scrim_rest=$(printf '%s\n' "$_scrim_lines" | sed "1,${3}d")
    _scrim_lines=$(printf '%s\n' "$_scrim_lines" | sed -n "1,${3}p")
    _scrim_row=$(($3 + 3))
    _scrim_form "$(_scrim_window && _scrim_button More)" || return
    case $_scrim_line in RETN=cancel*) return 2 ;; esac
    _scrim_lines=$_scrim_rest
  done
}

_scrim_count_lines() {
  printf '%s\n' "$_scrim_lines" | wc -l
}

# Prints the text $1, folded at blanks to lines of $2 bytes, as a screen file writes them.
_scrim_fold() {
  printf '%s\n' "$1" | expand | LC_ALL=C awk -v width="$2" "$_scrim_fitting"'
    {
      sub(/[ \r]+$/, "")
      for (at = 1; length(line = substr($0, at, width + 1)) > width; at += taken) {
        taken = width + 1
        while (taken > 1 && substr(line, taken, 1) != " ") taken--
        kept = taken - 1
        if (!kept) kept = taken = fitting(line, width)
        print substr(line, 1, kept)
        while (substr($0, at + taken, 1) == " ") taken++
      }
      print line
    }' | _scrim_escape
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

# Writes lines so that a screen file shows them as they are: nothing in them acts or ends a block.
_scrim_escape() {
  # shellcheck disable=SC2016 # for scrim: a reference to no name gives nothing
  LC_ALL=C sed 's/\\/&&/g; s/\${/$${}{/g; s/^endtext:/${}&/'
}

# Prints the start of a screen file: the window $1, or a pop-up for one row of buttons, and in it the
# lines that _scrim_open left.
_scrim_window() {
  printf '%s\ntext:\n%s\nendtext:\n' "${1-pop:68,$((_scrim_row + 3))}" "$_scrim_lines"
}

# Prints a button, and one under it for the space bar alone.
_scrim_button() {
  printf 'dpbutton:4,%s:(_%s:ok\n' "$_scrim_row" "$1"
  printf 'pbutton:4,%s: _ :ok\n' "$_scrim_row"
}

# Prints two buttons with the labels $1 and $2, in ASCII. The hot key of each is its first letter or
# digit that is not the other one's.
_scrim_answers() {
  { scrim_fit "$1" 24 && scrim_fit "$2" 24; } | LC_ALL=C sed 's/_/\\&/g' |
    LC_ALL=C awk -v row="$_scrim_row" '
    {
      gsub(/[\200-\277]/, "")
      gsub(/[\300-\377]/, "?")
      for (at = 1; at <= length($0); at++) {
        key = tolower(substr($0, at, 1))
        if (key ~ /[a-z0-9]/ && key != taken) break
      }
      label = substr($0, 1, at - 1) "_" substr($0, at)
      if (NR == 1) print "dpbutton:4," row ":(" label ":yes"
      if (NR == 2) print "pbutton:" column "," row ":(" label ":no"
      column = length($0) + 10
      taken = key
    }'
}

# Asks for a line: variable, prompt, value if nothing is changed, the field's text in a screen file.
_scrim_field() {
  _scrim_open "$2" 60 16 || return
  # Enter in a field goes to what is declared before it.
  _scrim_form "$(
    _scrim_window "pop:68,$((_scrim_row + 5))"
    printf 'pbutton:4,%s:(_OK:ok\n' "$((_scrim_row + 2))"
    printf 'detext:5,%s,58/79:%s:TEXT:CHAR\n' "$_scrim_row" "$4"
    printf 'pbutton:12,%s:(_Cancel:cancel\nbdefault:ok\n' "$((_scrim_row + 2))"
  )" || return
  _scrim_value=$3
  _scrim_as_bytes
  _scrim_line=${_scrim_line%?.}
  case $_scrim_line in
    *RETN=cancel) _scrim_status=2 ;;
    TEXT=*) _scrim_value=${_scrim_line#*\"} _scrim_value=${_scrim_value%\";export TEXT;RETN=ok} ;;
  esac
  _scrim_as_before
  [ "$_scrim_status" -ne 0 ] || eval "$1=\$_scrim_value"
  _scrim_line='' _scrim_value=''
  return "$_scrim_status"
}

# Shows a screen file, given as text. Returns 3 when scrim failed.
_scrim_form() {
  _scrim_call _scrim_show "$1" || return 3
}

_scrim_show() {
  printf '%s\n' "$1" | _scrim_run -f stdin
}

# Runs _scrim_run or _scrim_show. Leaves scrim's answer in _scrim_line, with a dot behind it, and its
# exit status in _scrim_status, and returns it.
_scrim_call() {
  _scrim_status=0
  # scrim handles no signals: one that ends it leaves the terminal raw and its keypad transmitting.
  _scrim_tty=$({ stty -g </dev/tty; } 2>/dev/null) || _scrim_tty=
  _scrim_line=$("$@") || _scrim_status=$?
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
