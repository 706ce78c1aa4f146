#!/bin/sh
# Prints the version of what is built here.
sed -n 's/^project(JLandXmlConvert VERSION \([0-9.]*\).*/\1/p' "$(dirname "$0")/../CMakeLists.txt"
