#!/usr/bin/env bash
# Wrong objects, numbers and failures as a script sees them: number, source and description arrive.
set -euo pipefail
source ./client_steps.sh

script "$REPO/tests/scripts/bad_inputs.vbs" "$(windows_path "$TMPDIR/shop.db")"
drive wait Options 60 -- key ALT+M CTRL+A -- type 'Corner Shop' -- key ALT+O -- gone Options 10
finish bad_inputs
printed object_not_set 'nothing set: 5B TilloraOptions.Options '
printed wrong_object 'wrong object: 80020005 TilloraOptions.Options DBJetObject must be a JetDatabase; the object given has no member OptionsRecord.'
printed tab_beyond_the_last 'tab 99: 8B10 TilloraOptions.Options '
printed script_class_is_taken 'failing object set: 0  '
printed script_class_failure 'failing script class: 80040201  '
printed host_failure 'failing host: D5C TilloraHost.OptionsRecord The shop database was closed.'
printed shown_again 'shown again: 190 TilloraOptions.Options '
printed dialog_survives 'returned: True'
printed no_error_is_left 'after all: 0  '
