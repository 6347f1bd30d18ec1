#!/bin/sh
# ask-before-giving-up.sh: no key throws away what was typed. Keys that scrim does not know, as Home
# and End, cancel a form. The values come back all the same, so the form can go on with them.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"
cd "$here" || exit

NAME='' NOTE=''
while :; do
  # Only what is shown is made to fit: a field left alone keeps its variable as it is.
  RECIPE_NAME=$(scrim_fit "$NAME") RECIPE_NOTE=$(scrim_fit "$NOTE")
  export RECIPE_NAME RECIPE_NOTE
  scrim_read NAME NOTE -- -f ask-before-giving-up.scrim || exit
  [ "$RETN" = cancel ] || break
  # Enter and Esc go back to the form; 1 is the second button, 3 a failure.
  status=0
  scrim_ask 'The form is not saved. Go on with it?' 'Go on' 'Throw it away' || status=$?
  case $status in
    0 | 2) ;;
    *) exit "$status" ;;
  esac
done
printf '%s\n' "$NAME: $NOTE"
