#!/bin/sh
# customer.sh: shows the customer form and prints what was entered.
# Values set beforehand fill the fields: CUSTOMER_NAME=Smith examples/customer/customer.sh
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

CUSTOMER_SINCE=${CUSTOMER_SINCE-$(date +%m/%d/%Y)}
export CUSTOMER_SINCE

# What the user leaves as it is is not handed back: it keeps the value it had.
NAME=$CUSTOMER_NAME STREET=$CUSTOMER_STREET ZIP=$CUSTOMER_ZIP TOWN=$CUSTOMER_TOWN
SINCE=$CUSTOMER_SINCE CREDIT=$CUSTOMER_LIMIT PASSWORD=''

cd "$here" || exit
scrim_read NAME STREET ZIP TOWN SINCE CREDIT PASSWORD -- -f customer.scrim || exit

if [ "$RETN" = save ]; then
  printf '%s\n' "Name:   $NAME" "Street: $STREET" "Town:   $ZIP $TOWN" "Since:  $SINCE" \
    "Credit: $CREDIT" "Password of ${#PASSWORD} characters"
else
  printf '%s\n' "Nothing saved ($RETN)."
fi
