#!/bin/sh
# Tests share/scrim/scrim.sh in the shell that runs this file, with a stand-in that prints a given
# answer: what is assigned for each answer, and that nothing else is, whatever a value holds.
# shellcheck disable=SC1003,SC2016 # hostile texts are meant as they stand

cd "$(dirname "$0")" || exit 1
library=$(pwd)/../share/scrim/scrim.sh
scratch=$(mktemp -d) || exit 1
trap 'rm -rf "$scratch"' EXIT
cd "$scratch" || exit 1
export SCRIM="$scratch/stand-in" STATUS=0 LANG=C.UTF-8
unset LC_CTYPE
cat >stand-in <<'END'
#!/bin/sh
printf '%s\n' "$*" >>calls
printenv LC_ALL >locale
printf '%s' "$ANSWER"
[ "$STATUS" != term ] || kill -TERM $$
exit "$STATUS"
END
chmod +x stand-in
# shellcheck source=/dev/null
. "$library"

newline='
'
failures=0
fail() {
  printf 'FAILED: %s: got %s\n' "$1" "$2"
  failures=$((failures + 1))
}

# check CASE ANSWER A B RETN STATUS: what reading A and B from the answer leaves behind. The program
# runs in the caller's locale, which is the same afterwards.
check() {
  export ANSWER="$2"
  locale="${LC_ALL-none},$(printenv LC_ALL)"
  A=old B=old RETN=stale C=other search=$PATH SCRIM=7
  got=0
  scrim_read A B -- -f form 2>messages || got=$?
  got="A=$A B=$B RETN=$RETN $got $SCRIM C=$C"
  [ "$got" = "A=$3 B=$4 RETN=$5 $6 ${7-} C=other" ] || fail "$1" "$got"
  [ "$PATH" = "$search" ] || fail "$1" "another PATH"
  [ ! -e touched ] || fail "$1" "a command run"
  got="${LC_ALL-none},$(printenv LC_ALL),$(cat locale)"
  [ "$got" = "$locale,${locale#*,}" ] || fail "$1" "locale $got"
}

# value CASE VALUE: the value comes back whole, alone, before and behind another one. UTF-8 is told
# by LC_ALL, exported and not, and by LANG.
value() {
  export LC_ALL=C.UTF-8
  check "$1, alone" "A=\"$2\";export A;RETN=ok$newline" "$2" old ok 0
  unset LC_ALL && LC_ALL=C.UTF-8
  check "$1, first" "A=\"$2\";export A;B=\"b\";export B;RETN=ok$newline" "$2" b ok 0
  unset LC_ALL
  check "$1, last" "B=\"b\";export B;A=\"$2\";export A;RETN=ok$newline" "$2" b ok 0
}

value 'plain text' 'John Smith'
value 'empty' ''
value 'quotes' '"a" "";b"; '\''c'\'''
value 'substitutions' '$(touch touched) `touch touched` ${IFS} $((1+1)) \" \\ \'
value 'command behind the quote' '"; touch touched; "'
value 'patterns' '*[?]* ~ %x {a,b} !!'
value 'newlines' "one${newline}two$newline$newline"
value 'an end for another name' 'x";export PATH;'
value 'assignment of an unlisted name' 'x";export PATH;PATH="/evil";export PATH;C="y'
value 'assignment of its own name' 'x";export A;A="y'
value 'a result line' 'x";export A;RETN=evil'
value 'a result line and a newline' "x\";export A;RETN=evil$newline"
value 'bytes above ASCII' 'Köln'
value 'a byte that is no character, and a backslash' "$(printf '\303\\')"
check 'listed name imitated that is absent' \
  "A=\"x\";export A;B=\"y\";export A;RETN=ok$newline" 'x";export A;B="y' old ok 0
two_ways="A=\"x\";export A;B=\"y\";export A;B=\"z\";export B;RETN=ok$newline"
check 'two readings' "$two_ways" old old '' 254
grep -q 'nothing assigned' messages || fail 'two readings' 'no message'
check 'a name not asked for, and none' \
  "C=\"x\";export C;=\"1,0\";export ;B=\"b\";export B;RETN=ok$newline" old b ok 0
for name in 'my town' 1st "$(printf 'a\033b')"; do
  check "an impossible name" "$name=\"x\";export $name;B=\"b\";export B;RETN=ok$newline" old old '' 254
  grep -q '"[1a-z ]*"; nothing assigned' messages || fail "$name" "$(cat messages)"
done
check 'only an action, with a newline of its own' "RETN=x$newline$newline" old old "x$newline" 0
check 'no answer' '' old old '' 0
check 'pick list' "SCRIM=-2$newline" old old '' 0 -2
check 'cut off' 'A="x";export A' old old '' 0
STATUS=3 && check 'failing program' "$two_ways" old old '' 3
STATUS=term && check 'program ended by a signal' "$two_ways" old old '' 143

STATUS=0 ANSWER="LC_ALL=\"POSIX\";export LC_ALL;RETN=ok$newline"
scrim_read LC_ALL -- -f form
[ "$(printenv LC_ALL)" = POSIX ] || fail 'the locale asked for' "${LC_ALL-none}"

rm -f calls
ANSWER=
while IFS= read -r call; do
  got=0
  # shellcheck disable=SC2086 # words
  (IFS=' ' && $call) 2>messages || got=$?
  usage="usage: ${call%% *} "
  case $got,$(cat messages) in
    *"$newline"*) fail "$call" "$(cat messages)" ;;
    64,"$usage"*) ;;
    *) fail "$call" "$got $(cat messages)" ;;
  esac
done <<'END'
scrim_read 1bad -- -f x
scrim_read A;B -- -f x
scrim_read A -f x
scrim_read --
scrim_progress 12 20 a[$(touch${IFS}touched)] 200
scrim_ask a b c d
scrim_input _scrim_row b
scrim_password A
scrim_choose A b
scrim_choose A-B b c
scrim_tell
scrim_fit a x
END
[ ! -e calls ] || fail 'wrong calls' "$(cat calls)"
[ ! -e touched ] || fail 'wrong calls' 'a command run'

# fit WANTED TEXT [LENGTH]
fit() {
  wanted=$1
  shift
  [ "$(scrim_fit "$@")" = "$wanted" ] || fail "fit $1" "$(scrim_fit "$@")"
}
fit 'a;b/c$(HOME} d  e' 'a:b\c${HOME} d	'"$newline"e
fit abc abcdef 3
fit 'aaK' 'aaKöln' 4
fit 'aaKö' 'aaKöln' 5
fit 'aa' 'aa😀' 5
fit "$(printf '\303\\' | tr '\\' /)" "$(printf '\303\\')"
[ "$(scrim_fit "$(printf '%0200d' 0)" | wc -c)" -eq 80 ] || fail 'fit without a length' 'another one'

for current in 0 1 9 10 11 19 20 200; do scrim_progress 10 20 "$current" 200; done
scrim_progress 12 20 200 200
[ "$(cat calls)" = "$(printf -- '-t %s\n' 10,20,0,200 10,20,10,200 10,20,20,200 10,20,200,200 \
  12,20,200,200)" ] || fail progress "$(cat calls)"
[ "$failures" -eq 0 ]
