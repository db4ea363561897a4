#!/usr/bin/env bash
# LmBindings — Copyright (c) 2026 The LmBindings authors. MIT licence, see LICENSE.
#
# ExampleSizeTests.sh <folder> <number>: the sources of an example, comments and blank lines included, have no more
# lines than that. What drives it in tests lies in a folder of its own and is not counted.
set -u
theLines=$(cat "$1"/*.h "$1"/*.cpp | wc -l)
echo "$1 has $theLines lines"
[ "$theLines" -gt 0 ] && [ "$theLines" -le "$2" ]
