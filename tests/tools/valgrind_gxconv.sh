#!/usr/bin/env bash
# gxconv under Valgrind, on its built-in example and on bad input: no
# invalid read or write and no leak, whatever status the tool itself ends with.
#   valgrind_gxconv.sh GXCONV DATA_DIR
set -u
tool=$1
data=$2
bad=$(mktemp)
trap 'rm -f "$bad"' EXIT
printf '15 50\n\n# comment\nabc 50\n15\n15 50 100\nnan 50\n16,51 label\n' > "$bad"
failed=0
check() {
  valgrind --leak-check=full --errors-for-leak-kinds=definite,possible --error-exitcode=99 -q \
    "$tool" "$@" > /dev/null 2>&1
  if [ $? -eq 99 ]; then echo "valgrind finds errors in: gxconv $*"; failed=1; fi
}
check
check --from "@$data/wgs84.wkt" --to "@$data/utm33n.wkt" "$bad"
check --from "@$data/wgs84.wkt" --to 'PROJCS["broken"' "$bad"
check --from "@$data/wgs84.wkt" --to "@$data/utm33n.wkt" --via 'GEOGTRAN[' "$bad"
check --from "@$data/wgs84.wkt" --from "@$data/wgs84.wkt" --to "@$data/utm33n.wkt" "$bad"
check --from "@$data/wgs84.wkt" --to "@$data/utm33n.wkt" /no/such/file
check --from MGRS --to "@$data/wgs84.wkt" "$bad"
check --wkt 'GEOGCS["x",DATUM["d",SPHEROID["s",1,0]]'
exit $failed
