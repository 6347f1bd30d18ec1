#!/bin/sh
# preset-with-colon.sh [VALUE]: in a screen file a colon ends an item, and a backslash acts. So the
# field shows a copy that fits, under another name than the value's: a user who leaves the field
# alone keeps the value to the letter, and typed colons and backslashes come back as they are.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"
cd "$here" || exit

FOLDER=${1-'C:\data: old'}
RECIPE_FOLDER=$(scrim_fit "$FOLDER")
export RECIPE_FOLDER
scrim_read FOLDER -- -f preset-with-colon.scrim || exit
[ "$RETN" = ok ] || exit 1
printf '%s\n' "$FOLDER"
