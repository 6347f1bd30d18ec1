#!/bin/sh
# orders.sh [FILE]: add, find and change customers in a database: the sqlite3 file FILE, without it
# the PostgreSQL server that PGHOST names (cluster.sh starts one), else ./customers.db.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

key='integer primary key'
case ${1-} in
  /*) file=$1 ;;
  ?*) file=$PWD/$1 ;;
  *) file=$PWD/customers.db ;;
esac
[ -z "${1-}" ] && [ -n "${PGHOST-}" ] && file='' key='serial primary key'

work=$(mktemp -d) || exit
trap 'rm -rf "$work"' EXIT
trap 'exit 130' INT TERM HUP
# A colon would end the name of the list in its screen file, a comma that of a screen file.
cp "$here"/*.scrim "$work" && cd "$work" || exit

# Parts the columns of a row. Unlike a tab it keeps empty columns apart.
unit=$(printf '\037')

# What values are read and shown by, whatever the server's own settings are.
PGOPTIONS="${PGOPTIONS-} -c standard_conforming_strings=on -c datestyle=iso"
PGOPTIONS="$PGOPTIONS -c client_min_messages=warning"
export PGOPTIONS

# plain EXPRESSION: prints SQL for its text, with a blank for every byte that would end a column or
# a row. Nobody can type these bytes, but another program may have stored them.
plain() {
  printf "replace(replace(replace(replace(cast(%s as text), '\036', ' '), '\037', ' '),
    '\n', ' '), '\r', ' ')" "$1"
}

# sql STATEMENT: runs it; the rows go to the file rows, one a line. When the database refuses, shows
# what it says and returns 1.
sql() {
  if [ -n "$file" ]; then
    sqlite3 -batch -ascii "$file" "$1"
  else
    psql -qAtwX0 -F "$unit" -c "$1"
  fi >answer 2>error || {
    scrim -e "$(head -n 1 error | cut -c 1-56)"
    return 1
  }
  tr '\036\000' '\n\012' <answer >rows
}

# literal COLUMN VALUE: prints the value of a fragment so that it is safe in a statement, or nothing
# if it has not the form that scrim gives to a value of this column.
#
# A fragment must not be pasted as it is: the value stands in it as it was typed, so the quote in
# O'Brien would end the text, and what follows would be SQL. But its outer quotes are known, the
# first and the last character. So all quotes are doubled, then one is taken off at both ends. A
# backslash hides no quote: sqlite3 knows no such thing, PostgreSQL is told so above. Numbers and
# dates are let through only if they are some; a date becomes what both databases read,
# 'year-month-day' (sqlite3 has no to_date, PostgreSQL makes a day of year 1 BC of an empty one).
literal() {
  mask="'MM/DD/YYYY HH24 MI SS')"
  day='\([0-9][0-9]\)/\([0-9][0-9]\)/\([0-9]\{4\}\)'
  case $1 in
    NAME | TOWN) form="s/'/''/g; s/^'\('.*'\)'\$/\1/p" ;;
    CREDIT) form='s/^$/NULL/p; /^-\{0,1\}[0-9]\{1,\}\.\{0,1\}[0-9]*$/p' ;;
    SINCE) form="/^NULL\$/p; s|^to_date('',$mask\$|NULL|p
      s|^to_date('$day [0-9 ]*',$mask\$|'\3-\1-\2'|p" ;;
    *) form=d ;;
  esac
  printf '%s\n' "$2" | LC_ALL=C sed -n "$form"
}

# Takes the fragments apart, into what a statement is made of: columns and values (insert),
# conditions (where), assignments (update). Returns 1 at a value that is none.
take_apart() {
  columns='' values='' conditions='' assignments=''
  while IFS= read -r line; do
    column=${line%% *} value=${line#* } operator='='
    case $value in
      "like '"*) operator=like ;;
      'IS NULL') operator=is ;;
    esac
    value=${value#like } value=${value#IS } value=${value#= }
    value=$(literal "$column" "$value")
    [ -n "$value" ] || return
    columns="$columns${columns:+, }$column"
    values="$values${values:+, }$value"
    assignments="$assignments${assignments:+, }$column = $value"
    case "$operator $value" in
      "like ''" | '= NULL') ;; # typed and deleted again: looks for nothing
      *) conditions="$conditions and $column $operator $value" ;;
    esac
  done <fragments
}

# ask OPTION SCREEN: shows a form that writes fragments. Returns 1 if there is nothing to be done.
ask() {
  scrim_read -- "$1"fragments -f "$2" || exit
  [ "$RETN" = ok ] || return
  take_apart && return
  scrim -e "This is no value for $column, nothing was done."
  return 1
}

# keep_typed: what was typed, for the form to begin with when it is shown again.
keep_typed() {
  while IFS= read -r line; do
    typed=$(printf '%s\n' "${line#* }" | sed "s/^to_date('\([^']*\)'.*/\1/; s/^'\(.*\)'\$/\1/")
    typed=$(scrim_fit "$typed")
    case ${line%% *} in
      NAME) CUSTOMER_NAME=$typed ;;
      TOWN) CUSTOMER_TOWN=$typed ;;
      SINCE) CUSTOMER_SINCE=$typed ;;
      CREDIT) CUSTOMER_CREDIT=$typed ;;
    esac
  done <fragments
}

add() {
  CUSTOMER_NAME='' CUSTOMER_TOWN='' CUSTOMER_SINCE='' CUSTOMER_CREDIT=''
  export CUSTOMER_NAME CUSTOMER_TOWN CUSTOMER_SINCE CUSTOMER_CREDIT
  until ask -A entry.scrim; do
    [ "$RETN" = ok ] || return
    keep_typed
  done
  sql "insert into customers ($columns) values ($values) returning id" || return
  message="Stored as customer $(cat rows)."
}

search() {
  ask -W find.scrim || return
  day="substr(day, 6, 2) || '/' || substr(day, 9, 2) || '/' || substr(day, 1, 4)"
  sql "select $(plain id), $(plain name), $(plain town), $(plain "$day"), $(plain credit)
    from (select *, cast(since as text) as day from customers) as dated
    where true $conditions order by name, id" || return
  if [ ! -s rows ]; then
    message='Nobody was found.'
    return
  fi
  # A letter outside ASCII takes more bytes than columns, and a row with such letters does not reach
  # the end of the window: what another row had there stays. So all rows end in 16 blanks.
  while IFS=$unit read -r id name town since credit; do
    printf '%12.12s %-10.10s %-19.19s %-12.12s\n' "$credit" "$since" "$name" "$town"
  done <rows >list
  FOUND=list POSITION=1,0
  export FOUND
  scrim_read POSITION -- -f found.scrim || exit
  [ "$RETN" = change ] && change "${POSITION%,*}"
}

# change NUMBER: the row of that number among those found. The form shows values made to fit; only a
# field that the user changes is written, so the row keeps what the others have.
change() {
  IFS=$unit read -r id name town since credit <<END
$(sed -n "$1p" rows)
END
  # Below the rows there is none. What stands in a statement has to be a number.
  case ${id#-} in
    '' | *[!0-9]*)
      message='No customer was chosen.'
      return
      ;;
  esac
  CUSTOMER_NAME=$(scrim_fit "$name") CUSTOMER_TOWN=$(scrim_fit "$town")
  CUSTOMER_SINCE=$(scrim_fit "$since") CUSTOMER_CREDIT=$(scrim_fit "$credit")
  export CUSTOMER_NAME CUSTOMER_TOWN CUSTOMER_SINCE CUSTOMER_CREDIT
  ask -U change.scrim || return
  message='Nothing was changed.'
  [ -n "$assignments" ] || return
  sql "update customers set $assignments where id = $id returning id" || return
  [ -s rows ] && message="Customer $id is changed."
}

sql "create table if not exists customers (id $key, name varchar(60) not null,
  town varchar(40), since date, credit numeric(10,2))" || exit
message=''
while :; do
  clear >&2
  scrim -m 5,1 'Customers'
  scrim -m 5,9 "$message"
  message=''
  scrim_read -- -l -b 5 3 'Add a customer' 'Find customers' 'Quit' || exit
  case $SCRIM in
    0) add ;;
    1) search ;;
    *) clear >&2 && exit 0 ;;
  esac
done
