#!/usr/bin/env bash
# Builds and runs orvhost, the reference host; arguments go to orvhost.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/setup.sh"
cmake -S "$root" -B "$root/build" -G Ninja >/dev/null
cmake --build "$root/build" --target orvhost >/dev/null
exec "$root/build/orvhost" "$@"
