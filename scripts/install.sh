#!/bin/sh
# install.sh [PREFIX]: puts scrim, and what belongs to it, under PREFIX (/usr/local unless given).
set -eu
mkdir -p "${1:-/usr/local}"
prefix=$(cd "${1:-/usr/local}" && pwd)
cd "$(dirname "$0")"
replacement=$(printf '%s\n' "$prefix" | sed 's/[\\&#]/\\&/g')
sha256sum -c SHA256SUMS >/dev/null
cp -R bin share "$prefix"
# The pages name the place of the shell library.
for page in share/man/man?/scrim*; do
  sed "s#/usr/local/share/scrim#$replacement/share/scrim#" "$page" >"$prefix/$page"
done
echo "scrim is in $prefix/bin"
