#!/bin/sh
# questions.sh: one question after another, each a line of the script and none with a screen file: a
# room is booked, in words only. What the user gives up (Esc) ends the script.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

# A question is drawn over what is there, so the screen is cleared before each.
clear >&2
scrim_input NAME 'Whose meeting is it?' "${USER-}" || exit
clear >&2
scrim_choose ROOM "Where shall $NAME meet?" 'Garden room (6)' 'Hall (40)' 'The roof: if it is dry' || exit

# The things come from a list, the answers from the terminal all the same.
while read -r thing; do
  clear >&2
  scrim_ask "Does $NAME need the $thing?"
  case $? in
    0) ROOM="$ROOM, $thing" ;;
    1) ;;
    *) exit 2 ;;
  esac
done <<'END'
projector
coffee
END

# A small form needs no file either; what is put into it is made to fit.
clear >&2
NOTE="$NAME: $ROOM"
scrim_read NOTE -- -f stdin <<END || exit
pop:64,9
title: What shall stand on the door? 
bdefault:ok
pbutton:4,5:_OK:ok
detext:5,3,54/79:$(scrim_fit "$NOTE"):NOTE:CHAR
pbutton:14,5:_Cancel:cancel
END
[ "$RETN" = ok ] || exit 2

clear >&2
scrim_password WORD 'Your password books it:' || exit
clear >&2
scrim_tell "Booked with a password of ${#WORD} characters:

$NOTE

Please leave the room as you found it, and take the key back to the desk." || exit
printf '%s\n' "$NOTE"
