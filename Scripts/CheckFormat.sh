#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Fails when a source file is not as clang-format leaves it. Another version may format otherwise, so the
# version is fixed here.
set -eu
cd "$(dirname "$0")/.."
mapfile -t theFiles < <(find Source Platform Examples Tests Benchmarks -name '*.cpp' -o -name '*.h' -o -name '*.mm' | sort)
clang-format-14 --dry-run --Werror "${theFiles[@]}"
echo "${#theFiles[@]} files"
