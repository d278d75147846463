' What a client in a script learns when it hands over the wrong things or its own objects fail.
'
'   cscript //nologo bad_inputs.vbs DATABASE
Option Explicit

Dim shop, dialog
Set shop = CreateObject("TilloraHost.Shop")
shop.Open WScript.Arguments(0)

Class FailingDatabase
  Public ClassTable
  Public AccountTable
  Public RandomPriceTable
  Public GradeTable
  Public WebSiteTable
  Public CurrencyTable
  Public ItemList
  Public PaymentItemList
  Public TerminalCount
  Public DataFile
  Public Property Get OptionsRecord
    Err.Raise vbObjectError + 513, "Shop.Database", "The disk is full."
  End Property
End Class

' Calls ShowOptions again while the dialog is open.
Class ImpatientSender
  Public Sub Send(When)
    On Error Resume Next
    dialog.ShowOptions
    Report "shown again", Err.Number, Err.Source, ""
    On Error GoTo 0
  End Sub
End Class

Sub Report(what, number, source, description)
  WScript.Echo what & ": " & Hex(number) & " " & source & " " & description
End Sub

Sub Fresh
  Set dialog = CreateObject("TilloraOptions.Options")
  Set dialog.DBJetObject = shop.Database
  Set dialog.AppObject = shop.App
  Set dialog.MsgSndObject = shop.Messages
  Set dialog.ResourceObject = shop.Strings
  Set dialog.SettingsObject = shop.Settings
End Sub

On Error Resume Next

Set dialog = CreateObject("TilloraOptions.Options")
dialog.ShowOptions
Report "nothing set", Err.Number, Err.Source, ""
Err.Clear

Fresh
Set dialog.DBJetObject = shop.Settings
Report "wrong object", Err.Number, Err.Source, Err.Description
Err.Clear

dialog.SelectedTab = 99
dialog.ShowOptions
Report "tab 99", Err.Number, Err.Source, ""
Err.Clear

Fresh
Set dialog.DBJetObject = New FailingDatabase
Report "failing object set", Err.Number, Err.Source, ""
Err.Clear
dialog.ShowOptions
' Some script engines pass on only the number of what their own classes raise.
Report "failing script class", Err.Number, "", ""
Err.Clear

Dim other
Set other = CreateObject("TilloraHost.Shop")
other.Open WScript.Arguments(0)
Fresh
Set dialog.DBJetObject = other.Database
other.Close
dialog.ShowOptions
Report "failing host", Err.Number, Err.Source, Err.Description
Err.Clear

' The dialog opens here for the first time: the person or test running this changes something and
' presses OK.
Fresh
Set dialog.MsgSndObject = New ImpatientSender
WScript.Echo "returned: " & dialog.ShowOptions
Report "after all", Err.Number, Err.Source, ""
shop.Close
WScript.Echo "done"
