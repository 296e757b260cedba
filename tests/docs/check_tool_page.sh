#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
#
# check_tool_page.sh SOURCE-TREE GEOMTOOL FOLDER: the commands on the pages work, draw the picture
# that is shown, and none is missing.
set -euo pipefail
tree=$1
tool=$2
folder=$3
page=$tree/docs/tool.md

fail() {
    printf '%s\n' "$*" >&2
    exit 1
}

"$tree/docs/gallery/type_pages" "$tool" "$folder" "$page" "$tree/README.md"
cmp "$folder/map.svg" "$tree/docs/images/map.svg" ||
    fail "docs/images/map.svg is not as drawn (scripts/docs renews it)"

commands=$("$tool" --help | sed -n '/^Subcommands:/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p')
(($(wc -l <<<"$commands") >= 20)) || fail "the list of commands is not understood: $commands"
for command in $commands; do
    grep -q "^|.*\`$command\`" "$page" || fail "docs/tool.md does not name $command"
done
