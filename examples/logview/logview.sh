#!/bin/sh
# logview.sh [FILE]: scroll through a file and print the line that was chosen. Without a file it
# shows a log of its own making. "Again" reads the file anew, at the place where the cursor was.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP

# A copy: the file may grow while it is shown. Its name, and that of the screen file, are without a
# directory: a colon would end the item, a comma the name of the screen file.
LOG_TITLE=${1:-A log}
LOG_FILE=log
export LOG_TITLE LOG_FILE
case ${1-} in
  '' | /*) ;;
  *) set -- "$PWD/$1" ;;
esac
cd "$work" || exit

fetch() {
  if [ $# -gt 0 ]; then
    cat -- "$1"
  else
    number=0
    while [ "$number" -lt 100 ]; do
      number=$((number + 1))
      echo "10:$((10 + number % 50)):00 job $number finished with status $((number % 7 / 6))"
    done
  fi
}

cp "$here/logview.scrim" again.scrim || exit
RETN=again
while [ "$RETN" = again ]; do
  fetch "$@" >"$LOG_FILE" || exit
  POSITION=1,0
  scrim_read POSITION -- -f again.scrim || exit
  # Show the window as it was left.
  { cat "$here/logview.scrim" && echo "swpos:$POSITION"; } >again.scrim
done

[ "$RETN" = show ] && sed -n "${POSITION%,*}p" "$LOG_FILE"
exit 0
