#!/bin/sh
# member.sh: a small form that was drawn. `scrim-sketch member.sketch >member.scrim` made its screen
# file, which stands beside it: to change the form, change the drawing.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

# What the user leaves as it is is not handed back: it keeps the value it has here.
NAME='' SINCE='' PLAN=Free MAIL=X LETTER=_
export NAME

scrim_read NAME SINCE PLAN MAIL LETTER -- -f "$here/member.scrim" || exit
[ "$RETN" = save ] || exit 1
printf '%s\n' "$NAME ($PLAN) since ${SINCE:-today}" "Mail: $MAIL  Letter: $LETTER"
