#!/bin/sh
# log-with-help.sh [FILE]: a scroll window is lost when another screen of the same form was over it.
# So the help is a scrim of its own, and the log is shown anew afterwards, where it was left.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP

# A copy: its lines stay as they are while it is shown, and its name has no colon.
if [ "$#" -gt 0 ]; then cat -- "$1"; else seq -f 'job %g finished' 100; fi >"$work/log" || exit
cp "$here/log-with-help.scrim" "$work" && cd "$work" || exit

POSITION=1,0 RETN=help RECIPE_LOG=log
while [ "$RETN" = help ]; do
  RECIPE_POSITION=$POSITION
  export RECIPE_LOG RECIPE_POSITION
  scrim_read POSITION -- -f log-with-help.scrim || exit
  [ "$RETN" != help ] || scrim_tell 'Up, Down, Page Up and Page Down move through the log.
Enter goes to "Show", which prints the line under the cursor.' || exit
done
[ "$RETN" = show ] || exit 1
sed -n "${POSITION%,*}p" log
