#!/bin/sh
# tour.sh: a form that teaches forms. Five screens, each shows one family of gadgets beside the
# lines of the file that made it; at the end it prints what a script gets.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP

cd "$here" || exit

# A scroll window is drawn when its screen is first shown. So that a page looks the same when it
# comes back, its window stands on a text of the same lines: the first 13 of each file, as wide as
# the window, are the default values ${0} to ${12}, ${13} to ${25} and so on.
for page in fields choices buttons scroll screens; do
  head -n 13 "$page.scrim" | while IFS= read -r line; do printf '%-44.44s\n' "$line"; done
done >"$work/lines"

NAME='Ann Smith' PIECES=3 DUE=12/31/2026 PIN='' GIFT=X PAPER=_ MAIL=_ COURIER=_ STATE=Open LINE=4,0
export NAME PIECES DUE GIFT
scrim_read NAME PIECES DUE PIN GIFT PAPER MAIL COURIER STATE LINE -- -I"$work/lines" \
  -f fields.scrim,choices.scrim,buttons.scrim,scroll.scrim,screens.scrim,popup.scrim,help.scrim ||
  exit

# What was not changed is not handed back: the variable keeps what it had.
echo "The form was left with RETN=$RETN. The script now has"
printf '  %s\n' "NAME=$NAME" "PIECES=$PIECES" "DUE=$DUE" "PIN of ${#PIN} characters" "GIFT=$GIFT" \
  "PAPER=$PAPER" "MAIL=$MAIL COURIER=$COURIER" "STATE=$STATE" "LINE=$LINE"
