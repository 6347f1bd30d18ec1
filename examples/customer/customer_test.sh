#!/bin/sh
# customer_test.sh: tests customer.sh without a person: keys are typed into it, and what it prints,
# its status and its screen are compared. scrim and scrim-drive are found through PATH.
here=$(dirname "$(readlink -f "$0")")
work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP

# The script's defaults, so that the test is the same on every day.
export CUSTOMER_NAME='' CUSTOMER_STREET='' CUSTOMER_ZIP='' CUSTOMER_TOWN=Bonn CUSTOMER_LIMIT=''
export CUSTOMER_SINCE=1/2/1999

failures=0

# run KEYS: sets output and status, and leaves the screen at <shot> in $work/screen.
run() {
  status=0
  output=$(scrim-drive -o "$work/screen" -k "$1" "$here/customer.sh") || status=$?
}

# expect WHAT WANTED FOUND
expect() {
  [ "$2" = "$3" ] && return
  printf 'FAILED: %s\n--- wanted\n%s\n--- found\n%s\n' "$1" "$2" "$3"
  failures=$((failures + 1))
}

# Row N of the screen, counted from 0, as it stands between the frame's sides.
row() { sed -n "$(($1 + 1))s/^│\(.*\)│\$/\1/p" "$work/screen" | sed 's/ *$//'; }

run 'Smith & Co<Down>Main Street 5<Tab>53111<Tab><Tab><Tab>2500<Tab>secret<shot><Tab><Enter>'
expect 'saved: status' 0 "$status"
expect 'saved: output' 'Name:   Smith & Co
Street: Main Street 5
Town:   53111 Bonn
Since:  1/2/1999
Credit: 2500
Password of 6 characters' "$output"
expect 'saved: the town' '      Town       [53111   ] [Bonn               ]' "$(row 7)"
expect 'saved: stars' '      Password   [******              ]' "$(row 11)"

# Presets are made to fit: a colon would end the item, and give the field another variable.
CUSTOMER_TOWN='Bonn: C:\p'
run 'Smith<shot><Esc>'
expect 'cancelled: status' 0 "$status"
expect 'cancelled: output' 'Nothing saved (cancel).' "$output"
expect 'cancelled: the town' '      Town       [        ] [Bonn; C;/p         ]' "$(row 7)"

# Without a name, saving does not end the form: any key takes the message away.
run '<LF><shot><Space><Esc>'
grep -q 'Missing value' "$work/screen" || expect 'no name' 'a message' "$(cat "$work/screen")"
expect 'no name: output' 'Nothing saved (cancel).' "$output"

[ "$failures" -eq 0 ]
