#!/bin/sh
# OUT=FOLDER make_and_run.sh COMMAND...   builds the consumer there and runs the command beside it
set -eu
here=$(cd "$(dirname "$0")" && pwd)
rm -rf "$OUT"
mkdir -p "$OUT"
cd "$OUT"
make -f "$here/Makefile" SOURCE="$here/../Consumer.cpp" consumer
PATH=$OUT:$PATH exec "$@"
