#!/bin/sh
# recipes.sh: a list whose text is wanted. A list of scrim's own (-l) answers with a number;
# scrim_choose puts the entry itself into a variable, so that entries may be files found just now.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"
cd "$here" || exit

clear >&2
scrim_choose RECIPE 'Which recipe shall be shown?' ./*-*.sh || exit
exec "$RECIPE"
