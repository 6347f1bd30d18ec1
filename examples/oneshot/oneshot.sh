#!/bin/sh
# oneshot.sh: the one-shot modes together: a menu, a progress bar over real work (the words of this
# file are counted), a message and an error.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

count_words() {
  total=$(wc -l <"$here/oneshot.sh")
  lines=0 words=0
  scrim -b 27 8 26 5
  while read -r line; do
    lines=$((lines + 1))
    # shellcheck disable=SC2086 # the words of the line
    set -f && set -- $line && set +f
    words=$((words + $#))
    scrim_progress 10 20 "$lines" "$total"
  done <"$here/oneshot.sh"
  scrim -m "27,13" "$words words in $lines lines."
}

clear >&2
while :; do
  scrim -m "5,1" 'What shall be done?'
  scrim_read -- -l -b 5 3 'Count words' 'Make an error' 'Quit' || exit
  clear >&2
  case $SCRIM in
    0) count_words ;;
    1) scrim -e "There is no file /none: it was never made." && clear >&2 ;;
    *) exit 0 ;;
  esac
done
