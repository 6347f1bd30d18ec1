#!/bin/sh
# cluster.sh start|stop DIR: a PostgreSQL server of one's own, for trying. "start" makes DIR, which
# holds all of it, also the Unix socket, the only way in; after that "PGHOST=DIR psql" connects, for
# the same user alone. "stop" ends the server and removes DIR, a full name whose parents everybody
# may pass if root starts it. Status 127: PostgreSQL is not installed.
case $1,$2 in
  start,/* | stop,/*) dir=$2 ;;
  *) echo "usage: cluster.sh start|stop /DIR" >&2 && exit 1 ;;
esac

# Debian keeps the server's programs out of PATH.
for bin in /usr/lib/postgresql/*/bin; do
  PATH=$PATH:$bin
done
if ! { command -v initdb && command -v psql; } >/dev/null; then
  echo 'cluster.sh: PostgreSQL is not installed' >&2
  exit 127
fi

# PostgreSQL refuses to run as root.
as_server() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

start() {
  [ "$(id -u)" -ne 0 ] || chown postgres "$dir" || return
  cd "$dir" || return
  as_server initdb -N -D . -U "$(id -un)" -A peer --no-locale -E UTF8 || return
  : >for-trying || return
  # The socket's directory is relative to DIR, so no name needs quoting. Nothing outlives a crash.
  cat >>postgresql.conf <<END || return
listen_addresses = ''
unix_socket_directories = '.'
fsync = off
END
  as_server pg_ctl start -w -D . -l log || return
  PGHOST=$dir createdb -w -T template0
}

stop() {
  if ! cd "$dir" || [ ! -f for-trying ]; then
    echo "cluster.sh: not started by this script: $dir" >&2
    return 1
  fi
  [ ! -f postmaster.pid ] || as_server pg_ctl stop -w -m fast -D . || return
  cd / && rm -rf "$dir"
}

if [ "$1" = stop ]; then
  stop >/dev/null
else
  mkdir -m 700 "$dir" || exit
  said=$(start 2>&1) && exit
  printf '%s\n' "$said" >&2
  (stop) >/dev/null 2>&1
  rm -rf "$dir"
  exit 1
fi
