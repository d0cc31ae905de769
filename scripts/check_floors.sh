#!/usr/bin/env bash
# A room of the library includes only rooms below it: codes, model < schema < validation < parser, editor < in_place <
# diagnostics < formatting, report, exchange.
# The library knows nothing of the program, and the program nothing of the library but its public headers.
set -euo pipefail
cd "$(dirname "$0")/.."
status=0
forbid() {  # forbid ROOM PATTERN REASON
  if grep -rnE "#include \"($2)/" "$1"; then
    echo "$1: $3" >&2
    status=1
  fi
}
forbid src/codes 'model|schema|validation|parser|editor|in_place|diagnostics|formatting|report|exchange' 'the table of codes looks up'
forbid src/model 'codes|schema|validation|parser|editor|in_place|diagnostics|formatting|report|exchange' 'the model looks up'
forbid src/schema 'validation|parser|editor|in_place|diagnostics|formatting|report|exchange' 'the schema looks up'
forbid src/validation 'parser|editor|in_place|diagnostics|formatting|report|exchange' 'validation looks up'
forbid src/parser 'validation|editor|in_place|diagnostics|formatting|report|exchange' 'the parser looks sideways or up'
forbid src/editor 'validation|parser|in_place|diagnostics|formatting|report|exchange' 'the editor looks sideways or up'
forbid src/in_place 'validation|diagnostics|formatting|report|exchange' 'editing in place judges nothing, and looks sideways'
forbid src/exchange 'schema|validation|parser|editor|in_place|diagnostics|formatting|report' 'other formats need the model alone'
forbid src/diagnostics 'formatting|report|exchange' 'findings look up'
forbid src/formatting 'report|exchange' 'formatting looks up'
forbid src/report 'parser|editor|in_place|formatting|exchange' 'reports need findings alone'
forbid tools 'model|schema|validation|parser|editor|in_place|diagnostics|formatting|report|exchange' 'the program looks inside the library'
if grep -rlE '#include [<"]yaml-cpp' src include core --include='*.[ch]pp' | grep -v '^src/schema/yaml_document.cpp$'; then
  echo "only src/schema/yaml_document.cpp may see yaml-cpp" >&2
  status=1
fi
if grep -rnE '"(amesp|amesp-inp)\.[a-z_]+"' src tools; then
  echo "codes are named by the constants of <velk/input/amesp/codes.hpp>" >&2
  status=1
fi
only() {  # only PATTERN FILE: no other file of the program includes it
  if grep -rlE "#include <$1" tools | grep -v "^$2\$"; then
    echo "only $2 may include <$1...>" >&2
    status=1
  fi
}
only CLI/ tools/cli/command_line.cpp
if grep -rln 'nlohmann' src tools include --include='*.[ch]pp' | grep -v '^src/report/json_text.cpp$'; then
  echo "only src/report/json_text.cpp may see nlohmann" >&2
  status=1
fi
if grep -rnE '<(iostream|fstream|regex)>' src core include; then
  echo "no streams of files and no regular expressions in the library" >&2
  status=1
fi
[ "$status" -eq 0 ] && echo "floors: ok"
exit "$status"
