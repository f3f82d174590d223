#!/usr/bin/env bash
# Installs the Debian packages the project builds, tests and benchmarks with.
# Idempotent: prints nothing and touches nothing when everything is already there.
set -euo pipefail

packages=(
    cmake ninja-build g++ clang libclang-rt-14-dev clang-format
    libgtest-dev libgmock-dev libbenchmark-dev
    libsqlite3-dev libboost-serialization-dev libpugixml-dev pkg-config
)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
echo "installing: ${missing[*]}"
$sudo apt-get update -qq
DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
