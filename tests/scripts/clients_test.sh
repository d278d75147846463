#!/usr/bin/env bash
# Every client that comes with the component, with somebody at the dialog.
set -euo pipefail
source ./client_steps.sh

database=$(windows_path "$TMPDIR/shop.db")

script "$REPO/clients/vbscript/shop.vbs" "$database"
drive wait Options 60 -- key ALT+M CTRL+A -- type 'Corner Shop' -- key ALT+O -- gone Options 10
finish vbscript
printed vbscript_stores 'CompanyName = "Corner Shop"'
printed vbscript_reads_result 'data file changed: False'
printed vbscript_ends 'done'

script "$REPO/clients/vbscript/shop.vbs" "$database"
drive wait Options 60 -- key ALT+M CTRL+A -- type 'Not this' -- key ESC -- gone Options 10
finish vbscript_cancel
printed vbscript_cancel_keeps 'CompanyName = "Corner Shop"'

script "$REPO/clients/vbscript/host_in_script.vbs"
drive wait Options 60 -- key ALT+M CTRL+A -- type 'Shop In A Script' -- key ALT+A \
  -- key ALT+M CTRL+A -- type 'Again' -- key ALT+O -- gone Options 10
finish script_classes
printed script_classes_store 'stored: CompanyName=Shop In A Script'
printed script_classes_store_again 'stored: CompanyName=Again'
printed script_classes_hear_of_saves 'message sent: True' 2
printed script_classes_return 'returned: True'

host=$REPO/clients/vbscript/host_in_script.vbs
script "$host" 4
drive wait Options 60 -- press Options 'Rounding &Item' -- wait 'Rounding Item' 10 -- key ENTER \
  -- gone 'Rounding Item' 10 -- key ALT+O -- gone Options 10
finish script_host
printed script_host_walks_items 'rounding item: Charges:Cash Rounding'
printed script_host_keeps_captions 'settings: 46'
printed script_host_adds_rows \
  'format: Prefix=2 FormatID=3 OptionBits=1 UOMUnitCaption=kg UOMPriceUnitCaption=/kg Inactive=True'
printed script_host_keeps_grades 'grade: GradeNumber=1 Product=Fuel:Diesel Caption=Diesel'
printed script_host_reads_quoted_texts \
  "web site: Description=Neil's orders URL=https://orders.example/?of=O'Neil Inactive=False"

script "$host" 11
window='Password to start Tillora Administrator'
drive wait Options 60 -- key SPACE TAB SPACE -- wait "$window" 10 \
  -- type Secret -- key TAB -- type Secret -- key ENTER -- gone "$window" 10 \
  -- wait Options 10 -- key ALT+O -- gone Options 10
finish script_host_password
printed script_host_keeps_passwords 'password: secret'

script "$host" 10
drive wait Options 60 -- press Options 'D&elete' -- wait 'Delete web site' 10 -- key ALT+Y \
  -- gone 'Delete web site' 10 -- wait Options 10 -- key ALT+O -- gone Options 10
finish script_host_deletion
printed script_host_deletes_rows \
  "web site: Description=Neil's orders URL=https://orders.example/?of=O'Neil Inactive=False" 0

script "$REPO/clients/jscript/shop.js" "$database" 3
drive wait Options 60 -- close Options -- gone Options 10
finish jscript
printed jscript_reads_result 'data file changed: false'

client "$BUILD/cpp_client.exe" "$database"
drive wait Options 60 -- key ALT+M CTRL+A -- type 'One' -- key ALT+A \
  -- key ALT+M CTRL+A -- type 'Two' -- key ALT+A -- key ESC -- gone Options 10
finish cpp
printed cpp_hears_every_apply 'OptionsChanged 0' 2
printed cpp_reads_result 'data file changed: no'

client "$BUILD/cpp_client.exe" "$database" 4
drive wait Options 60 -- key ALT+N DOWN ALT+O -- gone Options 10
finish cpp_rounding
printed cpp_hears_what_changed 'OptionsChanged 512 Rounding'

client "$BUILD/cpp_late_client.exe" "$database" 4
drive wait Options 60 -- press Options 'Rounding &Item' -- wait 'Rounding Item' 10 -- key ESC \
  -- gone 'Rounding Item' 10 -- close Options -- gone Options 10
finish cpp_late
printed cpp_late_returns 'returned: True'
printed cpp_late_reads_result 'data file changed: no'

client "$BUILD/cpp_late_client.exe" "$database" 99
finish_failing cpp_late_failure 2
printed cpp_late_hears_of_failures \
  'failed: 0x800A8B10 TilloraOptions.Options: Index out of bounds'
