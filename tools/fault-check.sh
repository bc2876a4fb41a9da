#!/usr/bin/env bash
# Deliberate faults, one at a time: each is put into the source, the tests
# are built and run, and the script says which tests caught it (a fault that
# no test catches is a hole in the suite).  The source is restored after
# each.  Not part of CI.
#   bash tools/fault-check.sh [BUILD_DIR]     (default: build, a Release build)
set -uo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)
cd "$top"
build=${1:-build}
[ -x "$build/tests/gx_tests" ] || { echo "build the tests in $build first" >&2; exit 2; }

# file | what stands there | what the fault puts in its place | what it is
faults=(
  "src/projections/transverse_mercator.cpp|double P4 = 5 - t2|double P4 = 5 + t2|a flipped sign in a series term"
  "src/frame/wkt.cpp|length + extra + 1 >= GX_WKT_SIZE - 2|length + extra + 1 >= GX_WKT_SIZE - 1|an off-by-one in the WKT length rule"
  "src/projections/lambert_conformal_conic.cpp|double phi2 = parms[GX_PARM_STANDARD_PARALLEL_2];|double phi2 = parms[GX_PARM_STANDARD_PARALLEL_1];|a wrong parameter slot"
  "src/methods/nadcon.cpp|if (header.swap) gx_swap32_array(values|if (false) gx_swap32_array(values|a missing byte swap in a grid reader"
  "src/methods/ntv2.cpp|if (c->swap) gx_swap32_array(&value, 1);|;|a missing byte swap in the NTv2 reader"
  "src/projections/contract.h|return phi < 0 ? -GX_HALFPI_CLAMP : GX_HALFPI_CLAMP;|return phi;|a skipped pole clamp"
  "src/geodesy/geodesic.cpp|  if (c2 != 0.0) return c2;|  return c2;|cos^2 alpha of 0 on the equator"
  "src/projections/krovak.cpp|double az = gx_delta(parms[GX_PARM_AZIMUTH]);|double az = -gx_delta(parms[GX_PARM_AZIMUTH]);|Krovak's azimuth negated"
  "src/projections/azimuthal_equidistant.cpp|p[1] = v >= 0.0 ? y : -y;|p[1] = v >= 0.0 ? -y : y;|Two_Point_Equidistant's side"
  "src/projections/robinson.cpp|while (i < kRows - 1 \&\& t > kY[i]) ++i;|while (i < kRows - 2 \&\& t > kY[i]) ++i;|Robinson's inverse on the wrong row"
)

for fault in "${faults[@]}"; do
  IFS='|' read -r file from to what <<<"$fault"
  cp "$file" "$file.fault-backup"
  python3 - "$file" "$from" "$to" <<'PY'
import sys
path, old, new = sys.argv[1], sys.argv[2].replace("\\&", "&"), sys.argv[3].replace("\\&", "&")
text = open(path).read()
if old not in text:
    sys.exit(f"not found in {path}: {old}")
open(path, "w").write(text.replace(old, new, 1))
PY
  if [ $? -ne 0 ]; then mv "$file.fault-backup" "$file" && touch "$file"; echo "?? $what: the place was not found"; continue; fi
  if cmake --build "$build" -j"$(nproc)" --target gx_tests >/dev/null 2>&1; then
    caught=$("$build/tests/gx_tests" --gtest_brief=1 2>/dev/null | grep -E '^\[  FAILED  \]' | grep -v 'listed below' |
             sed 's/\[  FAILED  \] //; s/,.*//; s/ (.*//' | sort -u)
    count=$(printf '%s\n' "$caught" | grep -c .)
    if [ "$count" -gt 0 ]; then
      echo "caught   $what: $count tests, e.g. $(printf '%s\n' "$caught" | head -n 3 | tr '\n' ' ')"
    else
      echo "MISSED   $what"
    fi
  else
    echo "?? $what: does not build"
  fi
  mv "$file.fault-backup" "$file" && touch "$file"
done
cmake --build "$build" -j"$(nproc)" --target gx_tests >/dev/null 2>&1
