#!/usr/bin/env bash
# Builds for speed and prints the table of benchmarks. Installs what is missing first.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
tools/needs bench
cmake --preset release -DSORVO_BENCH=ON >/dev/null
cmake --build build/release --target sorvo_bench >&2
exec build/release/sorvo_bench "$@"
