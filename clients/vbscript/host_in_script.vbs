' Opens the options dialog for a host that is written here, in the script itself: every object that
' the component asks for is a class below. What the dialog stores is printed at the end.
'
'   cscript //nologo host_in_script.vbs [tab]
Option Explicit

Class ShopApp
  Public Title
  Public Path
  Private Sub Class_Initialize
    Title = "Tillora Administrator"
    Path = "C:\Tillora"
  End Sub
End Class

' One public variable per stored option. One that was never set is Empty: nothing is stored for it.
Class OptionsStore
  Public BalanceDueCaption
  Public ChangeCaption
  Public CompanyABN
  Public CompanyACN
  Public CompanyAddress
  Public CompanyEmail
  Public CompanyFax
  Public CompanyName
  Public CompanyPhone
  Public CurrencyListColumns
  Public CustomerListColumns
  Public DefaultCurrencyMargin
  Public EODDefaultReportBits
  Public EODHistoryDays
  Public EODOptionFlags
  Public EODReconcileTotalFlags
  Public FREDPollSeconds
  Public FREDLinkActive
  Public FREDDataFile
  Public ItemsSoldCaption
  Public ItemTaxCaption
  Public LaybyClosingBalanceCaption
  Public LaybyCustomerListColumns
  Public LaybyDateDueCaption
  Public LaybyHistoryDays
  Public LaybyOpeningBalanceCaption
  Public LaybyStartNumber
  Public LaybyTermDays
  Public LaybyTermsText
  Public LVClass
  Public LVSummariseBits
  Public PasswordStartAdmin
  Public AdminSecurityBits
  Public PasswordDeleteTerminal
  Public PasswordAdminOptions
  Public TerminalSecurityBits
  Public PasswordChangePrices
  Public PasswordCompactDatabase
  Public PasswordGlobalOverride
  Public PasswordTransferData
  Public PasswordTerminalOptions
  Public PasswordPostTransactions
  Public PasswordEndOfDay
  Public PrintNRGT
  Public ProductListColumns
  Public PumpOptionBits
  Public PumpPriceUnitCaption
  Public PumpVolumeUnitCaption
  Public RandomPriceScanningFlags
  Public RoundingStep
  Public RoundingFlags
  Public RoundedCaption
  Public RoundingItem
  Public RoundingVarianceCaption
  Public TaxRoundingMode
  Public TaxRoundingDirection
  Public RoundingDirection
  Public SalesPersonCaption
  Public SalesPersonListColumns
  Public TaxExemptCaption
  Public TaxedSellPriceCaption
  Public TaxedWholesaleCaption
  Public TaxTotalCaption
  Public TerminalIDCaption
  Public TimeReportPeriod
  Public TotalCaption
  Public TotalExTaxCaption
  Public TransactionOptionBits
  Public TransactionNumberCaption
  Public PasswordPromotions

  Public Property Get NoValue
    NoValue = False
  End Property
  Public Sub Commit
    WScript.Echo "stored: CompanyName=" & CompanyName
  End Sub
End Class

' A table without rows is all that this host has.
Class EmptyTable
  Public Sub MoveFirst
  End Sub
  Public Sub MoveNext
  End Sub
  Public Property Get EOF
    EOF = True
  End Property
  Public Sub FindFirst(Criteria)
  End Sub
  Public Sub FindNext(Criteria)
  End Sub
  Public Property Get NoMatch
    NoMatch = True
  End Property
  Public Sub AddNew
  End Sub
  Public Sub Edit
  End Sub
  Public Sub Update
  End Sub
  Public Sub Delete
  End Sub
  Public Property Get Field(Name)
    Field = Empty
  End Property
  Public Property Let Field(Name, Value)
  End Property
  Public Property Get Current
    Set Current = Nothing
  End Property
End Class

Class ShopDatabase
  Public DataFile
  Private mRecord
  Private Sub Class_Initialize
    Set mRecord = New OptionsStore
    mRecord.CompanyName = "Corner Shop"
    DataFile = ""
  End Sub
  Public Property Get OptionsRecord
    Set OptionsRecord = mRecord
  End Property
  Public Property Get ClassTable
    Set ClassTable = New EmptyTable
  End Property
  Public Property Get AccountTable
    Set AccountTable = New EmptyTable
  End Property
  Public Property Get RandomPriceTable
    Set RandomPriceTable = New EmptyTable
  End Property
  Public Property Get GradeTable
    Set GradeTable = New EmptyTable
  End Property
  Public Property Get WebSiteTable
    Set WebSiteTable = New EmptyTable
  End Property
  Public Property Get CurrencyTable
    Set CurrencyTable = New EmptyTable
  End Property
  Public Property Get ItemList
    Set ItemList = New EmptyTable
  End Property
  Public Property Get PaymentItemList
    Set PaymentItemList = New EmptyTable
  End Property
  Public Property Get TerminalCount(Criteria)
    TerminalCount = 0
  End Property
End Class

Class MachineSettings
  Public DecimalPlaces
  Public CurrencyFormat
  Public DecimalSeparator
  Private Sub Class_Initialize
    DecimalPlaces = 2
    CurrencyFormat = "$#,##0.00"
    DecimalSeparator = "."
  End Sub
  Public Property Get Setting(Name)
    Setting = Empty
  End Property
  Public Property Let Setting(Name, Value)
    WScript.Echo "setting: " & Name & "=" & Value
  End Property
End Class

Class Messages
  Public Sub Send(When)
    WScript.Echo "message sent: " & IsDate(When)
  End Sub
End Class

Class Strings
  Public Property Get ResourceString(Number)
    ResourceString = "String " & Number
  End Property
End Class

Dim dialog
Set dialog = CreateObject("TilloraOptions.Options")
Set dialog.DBJetObject = New ShopDatabase
Set dialog.AppObject = New ShopApp
Set dialog.SettingsObject = New MachineSettings
Set dialog.MsgSndObject = New Messages
Set dialog.ResourceObject = New Strings
dialog.LVFileExtension = "mdb"
dialog.FirstUse = False
If WScript.Arguments.Count > 0 Then dialog.SelectedTab = CInt(WScript.Arguments(0))

WScript.Echo "returned: " & dialog.ShowOptions
WScript.Echo "data file changed: " & dialog.ChangedDataFile
WScript.Echo "done"
