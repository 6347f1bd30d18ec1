#!/bin/sh
# drive_test.sh [SCRIM-DRIVE]: tests scrim-drive with commands that show, ask or end in one way each.
drive=${1:-scrim-drive}
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT

# check WHAT STATUS OUTPUT PICTURE SCRIM-DRIVE'S-ARGUMENT...: all of the output, part of the picture
# (or of the message, where there is no picture).
check() {
  what=$1 wanted_status=$2 wanted_output=$3 wanted_picture=$4 shown=$work/$1
  shift 4
  status=0
  output=$("$drive" -o "$shown.picture" "$@" 2>"$shown.messages") || status=$?
  [ "$status" = "$wanted_status" ] && [ "$output" = "$wanted_output" ] &&
    cat "$shown".* | grep -qF -e "$wanted_picture" && return
  printf 'FAILED: %s: status %s, output %s\n' "$what" "$status" "$output"
  cat "$shown".*
  touch "$work/failed"
}

# shellcheck disable=SC2016 # for the shell that is driven
one_key='stty -icanon -echo min 1; printf "\033[7mkey\033[m? " >&2
  key=$(dd bs=1 count=1 2>/dev/null | od -An -tx1); echo got$key; printf "%s\r\n" "$key" >&2'

# These two take their time, which is that of scrim-drive: at the same time as the others.
check 'wait' 0 'got 78' 'late' -k '<wait:2500><shot>x' \
  sh -c "(sleep 0.5; printf late >&2) & $one_key" &
check 'a command that does not end' 129 '' 'hung up' -w 100 sh -c 'sleep 600' &

check 'status and output pass through' 7 'to the script' 'to the screen' \
  sh -c 'echo to the script; echo to the screen >&2; exit 7'
check 'a signal' 143 '' 'last words' sh -c 'echo last words >&2; kill -TERM $$'
check 'no such command' 127 '' '/none' /none
check 'a key by name' 0 'got 09' '09' -k '<Tab>' sh -c "$one_key"
check 'a shot before the key' 0 'got 78' 'key?' -k '<shot>x' sh -c "$one_key"
check 'layout is not typed' 0 'got 78' 'key?' -k '
  x' sh -c "$one_key"
check 'SVG with reverse' 0 'got 3c' '>key</text>' -s -k '<shot><lt>' sh -c "$one_key"
check 'the reverse cells' 0 'got 78' 'width="27" height="18" fill="#e4e4e4"/>' -s -k '<shot>x' \
  sh -c "$one_key"
check 'a code that is no character' 0 '' '>a�b</text>' -s -u \
  sh -c "printf 'a\364\220\200\200b' >&2"
check 'a name that would act on the terminal' 125 '' '?[31m: No such' -K "$(printf '\033[31m')" true
# A film: the first screen for 1500 ms, 80 each for "a", "ü" and the first of two equal keys, 800 for
# the second one, and 2000 at the end. Where nothing moves, the second frame is seen.
for part in '{g{animation:4540ms step-end infinite}' '>aü</text>' '×2</text>' \
  'k1{0%{visibility:hidden}33.0396%{visibility:visible}34.8018%{visibility:hidden}}' \
  '<g style="animation-name:k1">' '<g style="animation-name:k0" visibility="hidden">'; do
  check 'a film' 0 '' "$part" -a "$work/a film.svg" -k 'a<shot>ü<Tab><Tab>' \
    sh -c 'stty -icanon min 1; dd bs=1 count=5 >/dev/null 2>&1'
done
check 'unknown key name' 125 '' 'no key <Fire>' -k 'a<Fire>' sh -c 'echo started'
check 'a name without end' 125 '' 'no > after <Tab' -k '<Tab' sh -c 'echo started'
wait
! [ -e "$work/failed" ]
