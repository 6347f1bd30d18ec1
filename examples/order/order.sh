#!/bin/sh
# order.sh: an order on three screens, with help as a pop-up. Prints the order, or says why not.
# ORDER_DATE=12/31/2026 examples/order/order.sh presets the date, which is today otherwise.
scrim=$(command -v scrim) || { echo 'scrim is not on PATH' >&2; exit 127; }
here=$(dirname "$(readlink -f "$0")")
. "$(dirname "$(readlink -f "$scrim")")/../share/scrim/scrim.sh"

ORDER_DATE=${ORDER_DATE-$(date +%m/%d/%Y)}
ORDER_PIECES=1
export ORDER_DATE ORDER_PIECES

# What the user leaves as it is is not handed back: it keeps the value it had.
CUSTOMER='' MAIL='' ORDERED=$ORDER_DATE ARTICLE=Anvil PIECES=$ORDER_PIECES
GIFT=_ INVOICE=X COURIER=_ BYMAIL=X COLLECTED=_ DELIVER=''

cd "$here" || exit
scrim_read CUSTOMER MAIL ORDERED ARTICLE PIECES GIFT INVOICE COURIER BYMAIL COLLECTED DELIVER \
  -- -f who.scrim,goods.scrim,delivery.scrim,help.scrim || exit

if [ "$RETN" != order ]; then
  echo 'No order.'
  exit 1
fi

how='no delivery'
[ "$COURIER" = X ] && how='by courier'
[ "$BYMAIL" = X ] && how='by mail'
[ "$COLLECTED" = X ] && how='collected'
printf '%s\n' "Customer: $CUSTOMER <$MAIL>" "Order:    $PIECES of $ARTICLE, $how" \
  "Ordered:  $ORDERED"
[ -n "$DELIVER" ] && printf '%s\n' "By:       $DELIVER"
[ "$GIFT" = X ] && echo 'Gift wrapped'
[ "$INVOICE" = X ] && echo 'With invoice'
exit 0
