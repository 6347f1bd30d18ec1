#!/bin/sh
# tmux_test.sh SCRIM: a form in a real tmux, with the descriptions that a user's TERM names there.
# A cursor key must move, never cancel: without keypad-transmit mode its lone escape would.
set -eu
program=$1
work=$(mktemp -d)
term=
trap 'in_tmux kill-server 2>/dev/null || :; rm -rf "$work"' EXIT
printf '%s\n' 'fulls:clear' 'etext:9,3,20::A:CHAR' 'etext:9,5,20::B:CHAR' 'button:_OK:ok' \
  >"$work/form"

# A server for each description: one that is ending would take the next session along.
in_tmux() { tmux -S "$work/$term" -f /dev/null "$@"; }

# until_shown TEXT: waits until the pane shows it.
until_shown() {
  tries=0
  until in_tmux capture-pane -p | grep -qF "$1"; do
    tries=$((tries + 1))
    if [ "$tries" -gt 100 ]; then
      echo "TERM=$term: never shown: $1" && in_tmux capture-pane -p
      exit 1
    fi
    sleep 0.05
  done
}

for term in tmux-256color xterm-256color screen; do
  in_tmux new-session -d -x 80 -y 24 "TERM=$term; export TERM
    before=\$(stty -g); answer=\$($program -f $work/form); status=\$?
    [ \"\$before\" = \"\$(stty -g)\" ] && echo \"same \$status \$answer\"; sleep 60"
  until_shown '(OK)'
  in_tmux send-keys one
  until_shown '[one '
  in_tmux send-keys Down
  in_tmux send-keys two
  until_shown '[two '
  in_tmux send-keys Up Left X Down Down Enter
  until_shown 'same 0 A="onXe";export A;B="two";export B;RETN=ok'
  in_tmux kill-server
done
