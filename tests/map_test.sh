#!/bin/sh
# map_test.sh: holds every #include of src/ and tools/ against the map in HACKING.md: a room may
# include the rooms below it.
cd "$(dirname "$0")/.." || exit 1

# The rooms from the top, a line each.
ROOMS=$(awk '/^The code is procedural/ { exit }
/^    [ a-z]/ && NF > 2 {
  if ($1 ~ /\/$/) { folder = $1; print folder $2 } else print folder $1
}' HACKING.md)
export ROOMS

for room in $ROOMS; do
  [ -e "$room.h" ] || [ -e "$room.cpp" ] || { echo "$room is on the map, but not there" && exit 1; }
done

grep -rn --include='*.cpp' --include='*.h' '^#include "' src tools | awk '
function room_of(path) {
  sub(/\.(h|cpp)$/, "", path)
  return path
}
BEGIN {
  count = split(ENVIRON["ROOMS"], rooms, "\n")
  for (i = 1; i <= count; i++) place[rooms[i]] = i
}
{
  split($0, part, ":"); split($0, quoted, "\"")
  from = room_of(part[1])
  to = room_of(quoted[2] ~ /^tools/ ? quoted[2] : "src/" quoted[2])
  wrong = ""
  if (!place[from] || !place[to]) wrong = "is not on the map"
  else if (to != from && place[to] <= place[from]) wrong = "is not below"
  if (wrong) { print part[1] ":" part[2] ": " quoted[2] " " wrong; bad = 1 }
}
END { exit bad || NR < 100 }'
