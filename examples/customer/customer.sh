#!/bin/sh
# customer.sh: shows the customer form and prints what was entered.
# Values set beforehand fill the fields: CUSTOMER_NAME=Smith examples/customer/customer.sh
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

# What the user leaves as it is is not handed back: it keeps the value it had.
NAME=${CUSTOMER_NAME-} STREET=${CUSTOMER_STREET-} ZIP=${CUSTOMER_ZIP-} TOWN=${CUSTOMER_TOWN-}
SINCE=${CUSTOMER_SINCE-$(date +%m/%d/%Y)} CREDIT=${CUSTOMER_LIMIT-} PASSWORD=''

# A colon would end the item in the screen file, and \p make a password field: what the fields show
# is made to fit.
CUSTOMER_NAME=$(scrim_fit "$NAME") CUSTOMER_STREET=$(scrim_fit "$STREET")
CUSTOMER_ZIP=$(scrim_fit "$ZIP") CUSTOMER_TOWN=$(scrim_fit "$TOWN")
CUSTOMER_SINCE=$(scrim_fit "$SINCE") CUSTOMER_LIMIT=$(scrim_fit "$CREDIT")
export CUSTOMER_NAME CUSTOMER_STREET CUSTOMER_ZIP CUSTOMER_TOWN CUSTOMER_SINCE CUSTOMER_LIMIT

cd "$here" || exit
scrim_read NAME STREET ZIP TOWN SINCE CREDIT PASSWORD -- -f customer.scrim || exit

if [ "$RETN" = save ]; then
  printf '%s\n' "Name:   $NAME" "Street: $STREET" "Town:   $ZIP $TOWN" "Since:  $SINCE" \
    "Credit: $CREDIT" "Password of ${#PASSWORD} characters"
else
  printf '%s\n' "Nothing saved ($RETN)."
fi
