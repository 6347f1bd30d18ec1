#!/bin/sh
# customer.sh: shows the customer form, evaluates what it hands back and prints what was entered.
# Values set beforehand fill the fields: CUSTOMER_NAME=Smith examples/customer/customer.sh
cd "$(dirname "$0")" || exit

CUSTOMER_SINCE=${CUSTOMER_SINCE-$(date +%m/%d/%Y)}
export CUSTOMER_SINCE

result=$(scrim -f customer.scrim) || exit
eval "$result"

case $RETN in
  save)
    printf '%s\n' "Name:      ${NAME-$CUSTOMER_NAME}" "Street:    ${STREET-$CUSTOMER_STREET}" \
      "Town:      ${ZIP-$CUSTOMER_ZIP} ${TOWN-$CUSTOMER_TOWN}" \
      "Since:     ${SINCE-$CUSTOMER_SINCE}" "Credit:    ${CREDIT-$CUSTOMER_LIMIT}"
    ;;
  *) printf '%s\n' "Nothing saved ($RETN)." ;;
esac
