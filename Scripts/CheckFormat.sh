#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# Fails when a source file is not as clang-format leaves it. Another version may format otherwise, so the
# version is fixed here. Comments are left to their authors, since an example or a table in one is lost when its
# lines are filled anew; that none is too long is looked at here.
set -eu
cd "$(dirname "$0")/.."
mapfile -t theFiles < <(find Source Platform Tools Examples Tests Benchmarks -name '*.cpp' -o -name '*.h' -o -name '*.mm' | sort)
clang-format-14 --dry-run --Werror "${theFiles[@]}"
kWidth=110
if LC_ALL=C.UTF-8 grep -nE "^.{$((kWidth + 1)),}\$" "${theFiles[@]}" | grep '//'; then
    echo "These comments are longer than $kWidth characters." >&2
    exit 1
fi
echo "${#theFiles[@]} files"
