# Opens the options dialog over the shop database of the reference host, from PowerShell.
#
#   powershell -STA -File shop.ps1 DATABASE [TAB]
param([Parameter(Mandatory)][string] $Database, [int] $Tab = 0)
$ErrorActionPreference = 'Stop'

$shop = New-Object -ComObject TilloraHost.Shop
$shop.Open($Database)

$options = New-Object -ComObject TilloraOptions.Options
$options.DBJetObject = $shop.Database
$options.AppObject = $shop.App
$options.MsgSndObject = $shop.Messages
$options.ResourceObject = $shop.Strings
$options.SettingsObject = $shop.Settings
$options.LVFileExtension = 'ldv'
$options.SelectedTab = $Tab

# Events need the types of the library; without them the message sender reports saves.
try {
  $null = $options.ShowOptions()
  "data file changed: $($options.ChangedDataFile)"
} catch [System.Runtime.InteropServices.COMException] {
  'failed: 0x{0:X8} {1}' -f $_.Exception.HResult, $_.Exception.Message
} finally {
  $shop.Close()
}
