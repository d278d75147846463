' Opens the options dialog over the shop database of the reference host.
'
'   cscript //nologo shop.vbs DATABASE [TAB] [first]
'
' TAB is the tab to open, from 1; "first" sets the options up for the first time.
Option Explicit

Dim shop, dialog
Set shop = CreateObject("TilloraHost.Shop")
shop.Open WScript.Arguments(0)

Set dialog = CreateObject("TilloraOptions.Options")
Set dialog.DBJetObject = shop.Database
Set dialog.AppObject = shop.App
Set dialog.MsgSndObject = shop.Messages
Set dialog.ResourceObject = shop.Strings
Set dialog.SettingsObject = shop.Settings
dialog.LVFileExtension = "ldv"
If WScript.Arguments.Count > 1 Then dialog.SelectedTab = CInt(WScript.Arguments(1))
If WScript.Arguments.Count > 2 Then dialog.FirstUse = (WScript.Arguments(2) = "first")

' A failure of the shop while the dialog is open arrives here with its number, source and text.
On Error Resume Next
dialog.ShowOptions
If Err.Number <> 0 Then
  WScript.Echo "failed: " & Hex(Err.Number) & " " & Err.Source & ": " & Err.Description
Else
  WScript.Echo "data file changed: " & dialog.ChangedDataFile
End If
On Error GoTo 0

WScript.Echo shop.Dump
shop.Close
WScript.Echo "done"
