#!/bin/sh
# recipes_test.sh: types keys into each script of examples/recipes and compares what it prints, its
# status and a line of its screen. scrim, scrim-check and scrim-drive are found through PATH.
cd "$(dirname "$0")/../examples/recipes" || exit
work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP
mkdir "$work/a:b,c" && export TMPDIR="$work/a:b,c"
failures=0

# try KEYS WANTED SHOWN COMMAND...: WANTED is the status and what is printed, SHOWN is on the screen.
try() {
  keys=$1 wanted=$2 shown=$3 status=0
  shift 3
  output=$(scrim-drive -o "$work/screen" -k "$keys" sh -eu "$@") || status=$?
  [ "$status $output" = "$wanted" ] && grep -qF -e "$shown" "$work/screen" && return
  printf 'FAILED: %s\n%s\n--- wanted\n%s\n%s\n--- found\n%s\n' "$*" "$keys" "$wanted" "$shown" \
    "$status $output"
  cat "$work/screen"
  failures=$((failures + 1))
}

try 'Ann<Home><Enter><Esc><Esc><Enter><shot>a:\p<Enter><Enter>' '0 Ann: a:\p' 'Name  [Ann  ' \
  ./ask-before-giving-up.sh
try '<BS>x<Enter>\p<Ctrl-X><Enter><shot><Ctrl-X><Right><Enter>' '1 ' 'Note  [/p  ' \
  ./ask-before-giving-up.sh

try 'Ann:<Enter>70000<Enter><Enter><shot><Esc>' '1 ' \
  'A login has small letters only, not "Ann;".' ./show-again-with-complaint.sh
try 'ann<Enter>7000<Enter><Enter><Enter><BS><BS><BS><shot><Enter><Enter>' '0 ann, port 227' \
  'A port is a number from 1 to 65535.' ./show-again-with-complaint.sh

try '<shot><Enter><Enter>' '0 C:\data: old' '[C;/data; old  ' ./preset-with-colon.sh
try '<End>' '1 ' '[x;NAME;CHAR;N  ' ./preset-with-colon.sh x:NAME:CHAR:N
try '<shot>\:<Enter><Enter>' '0 /p\:' '[/p  ' ./preset-with-colon.sh '\p'

try '<PgDn><PgDn><Down>h<Enter><shot>s' '0 job 32 finished' 'job 31 finished' ./log-with-help.sh
try '<Enter><Enter>' '0 Ann Smith' 'Bob: the builder' ./log-with-help.sh names

try '12<Enter><Enter><shot><Enter><Enter>3<Enter><Enter>' '0 Ann Smith: 12
Bob: the builder: 
Dora \ Partners: 3' 'Bob; the builder' ./form-in-a-loop.sh
try '<Esc>' '0 ' 'Ann Smith' ./form-in-a-loop.sh

try '<shot><Down><Down><Down><Enter><Enter><Enter>' '0 C:\data: old' 'preset-with-colon.sh' \
  ./recipes.sh

for screen in ./*.scrim; do
  RECIPE_LOG=names RECIPE_POSITION=1,0 scrim-check "$screen" || failures=$((failures + 1))
done
[ "$failures" -eq 0 ]
