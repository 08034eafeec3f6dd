#!/usr/bin/env bash
# Formats every C++ file of the project.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
. tools/common.sh
need_packages $LINT_PACKAGES
project_sources | xargs -r -d '\n' clang-format -i
