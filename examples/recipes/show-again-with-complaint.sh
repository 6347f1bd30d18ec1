#!/bin/sh
# show-again-with-complaint.sh: scrim checks that a field is filled in, the script checks the rest.
# The form comes back with what was typed, and with the script's complaint in a text of its own.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"
cd "$here" || exit

LOGIN='' PORT=22 RECIPE_COMPLAINT=''
while :; do
  RECIPE_LOGIN=$(scrim_fit "$LOGIN") RECIPE_PORT=$(scrim_fit "$PORT")
  export RECIPE_LOGIN RECIPE_PORT RECIPE_COMPLAINT
  scrim_read LOGIN PORT -- -f show-again-with-complaint.scrim || exit
  [ "$RETN" = ok ] || exit 1
  # What the user typed is part of the complaint: as long as the line on the screen, at most.
  case $LOGIN in
    *[!a-z]*)
      RECIPE_COMPLAINT=$(scrim_fit "A login has small letters only, not \"$LOGIN\"." 70)
      continue
      ;;
  esac
  case $PORT in
    '' | *[!0-9]* | ??????*) ;;
    *) [ "$PORT" -lt 1 ] || [ "$PORT" -gt 65535 ] || break ;;
  esac
  RECIPE_COMPLAINT='A port is a number from 1 to 65535.'
done
printf '%s\n' "$LOGIN, port $PORT"
