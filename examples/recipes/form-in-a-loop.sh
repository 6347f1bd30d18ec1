#!/bin/sh
# form-in-a-loop.sh [FILE]: asks about each line of a file. Inside the loop standard input is the
# file, and a plain scrim would take its lines for keys; scrim_read takes keys from the terminal.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

list=''
# The file is opened before the directory changes.
{
  cd "$here" || exit
  while IFS= read -r name; do
    PHONE='' RECIPE_NAME=$(scrim_fit "$name" 54)
    export RECIPE_NAME
    scrim_read PHONE -- -f form-in-a-loop.scrim || exit
    [ "$RETN" = next ] || break
    list="$list$name: $PHONE
"
  done
} <"${1-$here/names}"
printf '%s' "$list"
