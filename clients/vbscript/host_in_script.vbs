' A whole host in one script: every object that the component asks for is a class below, and keeps
' what it is given in memory. What is stored when the dialog has closed is printed.
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

' One public variable per stored option. A variable that was never set is Empty: nothing is stored.
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

' One condition of a criteria text: a field and the value that it must have.
Class Condition
  Public Field
  Public Wanted
End Class

' Reads criteria: conditions "[Field] = value" joined by AND, where a value is a whole number, True,
' False, or a text of pieces 'letters' and Chr$(code) joined by &.
Class Criteria
  Private mText
  Private mAt
  Private mConditions
  Private mCount

  Public Sub Parse(Text)
    mText = Text
    mAt = 1
    mConditions = Array()
    mCount = 0
    Do
      ReDim Preserve mConditions(mCount)
      Set mConditions(mCount) = New Condition
      mConditions(mCount).Field = FieldName
      Take "="
      mConditions(mCount).Wanted = Value
      mCount = mCount + 1
      SkipBlanks
      If mAt > Len(mText) Then Exit Do
      Take "AND"
    Loop
  End Sub

  Public Function Fits(Table, Row)
    Dim i
    Fits = True
    For i = 0 To mCount - 1
      If Table.Value(Row, mConditions(i).Field) <> mConditions(i).Wanted Then Fits = False
    Next
  End Function

  Private Sub SkipBlanks
    Do While Mid(mText, mAt, 1) = " "
      mAt = mAt + 1
    Loop
  End Sub
  Private Function Follows(Word)
    SkipBlanks
    Follows = (UCase(Mid(mText, mAt, Len(Word))) = UCase(Word))
    If Follows Then mAt = mAt + Len(Word)
  End Function
  Private Sub Take(Word)
    If Not Follows(Word) Then Err.Raise vbObjectError + 1, "ShopTable", "Not understood: " & mText
  End Sub
  Private Function Before(Mark)
    Dim last
    last = InStr(mAt, mText, Mark)
    If last = 0 Then Err.Raise vbObjectError + 1, "ShopTable", "Not understood: " & mText
    Before = Mid(mText, mAt, last - mAt)
    mAt = last + Len(Mark)
  End Function
  Private Function FieldName
    If Follows("[") Then
      FieldName = Before("]")
    Else
      FieldName = Trim(Before("="))
      mAt = mAt - 1
    End If
  End Function
  Private Function Value
    If Follows("True") Then
      Value = True
    ElseIf Follows("False") Then
      Value = False
    ElseIf Mid(mText, mAt, 1) = "'" Or UCase(Mid(mText, mAt, 4)) = "CHR$" Then
      Value = ""
      Do
        If Follows("'") Then
          Value = Value & Before("'")
        Else
          Take "Chr$("
          Value = Value & Chr(CLng(Before(")")))
        End If
      Loop While Follows("&")
    Else
      Dim digits
      Do While InStr("+-0123456789", Mid(mText, mAt, 1)) > 0 And mAt <= Len(mText)
        digits = digits & Mid(mText, mAt, 1)
        mAt = mAt + 1
      Loop
      Value = CLng(digits)
    End If
  End Function
End Class

' A table that is kept in memory: the names of its fields, and rows that are arrays of their values.
Class ShopTable
  Private mFields
  Private mRows
  Private mCount
  Private mCurrent
  Private mBegun
  Private mIsNew
  Private mNoMatch

  Private Sub Class_Initialize
    mRows = Array()
    mCount = 0
    mCurrent = 0
    mNoMatch = False
  End Sub
  Public Sub Create(Fields)
    mFields = Fields
  End Sub
  Public Sub Add(Values)
    ReDim Preserve mRows(mCount)
    mRows(mCount) = Values
    mCount = mCount + 1
  End Sub
  Public Function Value(Row, Name)
    Dim values
    values = mRows(Row)
    Value = values(Position(Name))
  End Function
  Private Function Position(Name)
    Dim i
    For i = 0 To UBound(mFields)
      If UCase(mFields(i)) = UCase(Name) Then
        Position = i
        Exit Function
      End If
    Next
    Err.Raise vbObjectError + 2, "ShopTable", "There is no field " & Name & "."
  End Function

  Public Sub MoveFirst
    mCurrent = 0
  End Sub
  Public Sub MoveNext
    mCurrent = mCurrent + 1
  End Sub
  Public Property Get EOF
    EOF = (mCurrent >= mCount)
  End Property
  Public Sub FindFirst(Criteria)
    Find Criteria, 0
  End Sub
  Public Sub FindNext(Criteria)
    Find Criteria, mCurrent + 1
  End Sub
  Private Sub Find(Text, First)
    Dim wanted, row
    Set wanted = New Criteria
    wanted.Parse Text
    mNoMatch = True
    For row = First To mCount - 1
      If wanted.Fits(Me, row) Then
        mCurrent = row
        mNoMatch = False
        Exit For
      End If
    Next
  End Sub
  Public Property Get NoMatch
    NoMatch = mNoMatch
  End Property
  Public Sub AddNew
    Dim values
    values = mFields
    Dim i
    For i = 0 To UBound(values)
      values(i) = Empty
    Next
    mBegun = values
    mIsNew = True
  End Sub
  Public Sub Edit
    mBegun = mRows(mCurrent)
    mIsNew = False
  End Sub
  Public Sub Update
    If mIsNew Then
      Add mBegun
    Else
      mRows(mCurrent) = mBegun
    End If
  End Sub
  Public Sub Delete
    Dim row
    For row = mCurrent To mCount - 2
      mRows(row) = mRows(row + 1)
    Next
    mCount = mCount - 1
    mCurrent = mCurrent - 1
  End Sub
  Public Property Get Field(Name)
    Field = Value(mCurrent, Name)
  End Property
  Public Property Let Field(Name, NewValue)
    mBegun(Position(Name)) = NewValue
  End Property

  Public Sub Print(Title)
    Dim row, i, line
    For row = 0 To mCount - 1
      line = Title & ":"
      For i = 0 To UBound(mFields)
        line = line & " " & mFields(i) & "=" & Value(row, mFields(i))
      Next
      WScript.Echo line
    Next
  End Sub
End Class

' An item of the catalogue, or a payment item.
Class Item
  Public ItemType
  Public ProductNumber
  Public Group
  Public Name
  Public Description
  Public Account
End Class

' A walk over items. Each walk has its own place; the items are shared.
Class ItemWalk
  Private mItems
  Private mAt
  Public Sub Over(Items)
    mItems = Items
    mAt = 0
  End Sub
  Public Sub MoveFirst
    mAt = 0
  End Sub
  Public Sub MoveNext
    mAt = mAt + 1
  End Sub
  Public Property Get EOF
    EOF = (mAt > UBound(mItems))
  End Property
  Public Property Get Current
    Set Current = mItems(mAt)
  End Property
End Class

Function NewItem(ItemType, ProductNumber, Group, Name, Description, Account)
  Set NewItem = New Item
  NewItem.ItemType = ItemType
  NewItem.ProductNumber = ProductNumber
  NewItem.Group = Group
  NewItem.Name = Name
  NewItem.Description = Description
  NewItem.Account = Account
End Function

Class ShopDatabase
  Public DataFile
  Public Record
  Public Classes
  Public Accounts
  Public RandomPrices
  Public Grades
  Public WebSites
  Public Currencies
  Private mItems
  Private mPaymentItems

  Private Sub Class_Initialize
    DataFile = ""
    Set Record = New OptionsStore
    Record.CompanyName = "Corner Shop"
    Set Classes = NewTable(Array("Name", "Hidden"))
    Classes.Add Array("Counter sales", False)
    Classes.Add Array("Old counter", True)
    Set Accounts = NewTable(Array("Name", "Inactive", "AccountType"))
    Accounts.Add Array("Rounding", False, "INC")
    Set RandomPrices = NewTable(Array("Prefix", "FormatID", "OptionBits", "UOMUnitCaption", _
                                      "UOMPriceUnitCaption", "Inactive"))
    Set Grades = NewTable(Array("GradeNumber", "Product", "Caption"))
    Grades.Add Array(1, "Fuel:Diesel", "Diesel")
    Set WebSites = NewTable(Array("Description", "URL", "Inactive"))
    WebSites.Add Array("Neil's orders", "https://orders.example/?of=O'Neil", False)
    Set Currencies = NewTable(Array("Name"))
    mItems = Array(NewItem("OTHC", "", "Charges", "Cash Rounding", "Rounding of cash", "Rounding"), _
                   NewItem("STOCK", "100", "Fuel", "Diesel", "Diesel", "Fuel sales"))
    mPaymentItems = Array(NewItem("", "", "", "Cash", "Notes and coins", "Till"))
  End Sub
  Private Function NewTable(Fields)
    Set NewTable = New ShopTable
    NewTable.Create Fields
  End Function
  ' A table is always handed out at its first row.
  Private Function AtFirst(Table)
    Table.MoveFirst
    Set AtFirst = Table
  End Function

  ' Nothing of this host can fail, so one record is enough: nothing is ever undone.
  Public Property Get OptionsRecord
    Set OptionsRecord = Record
  End Property
  Public Property Get ClassTable
    Set ClassTable = AtFirst(Classes)
  End Property
  Public Property Get AccountTable
    Set AccountTable = AtFirst(Accounts)
  End Property
  Public Property Get RandomPriceTable
    Set RandomPriceTable = AtFirst(RandomPrices)
  End Property
  Public Property Get GradeTable
    Set GradeTable = AtFirst(Grades)
  End Property
  Public Property Get WebSiteTable
    Set WebSiteTable = AtFirst(WebSites)
  End Property
  Public Property Get CurrencyTable
    Set CurrencyTable = AtFirst(Currencies)
  End Property
  Public Property Get ItemList
    Set ItemList = New ItemWalk
    ItemList.Over mItems
  End Property
  Public Property Get PaymentItemList
    Set PaymentItemList = New ItemWalk
    PaymentItemList.Over mPaymentItems
  End Property
  Public Property Get TerminalCount(Criteria)
    TerminalCount = 0
  End Property
End Class

Class MachineSettings
  Public DecimalPlaces
  Public CurrencyFormat
  Public DecimalSeparator
  Public DispensingAvailable
  Private mNames
  Private mValues
  Private mCount
  Private Sub Class_Initialize
    DecimalPlaces = 2
    CurrencyFormat = "$#,##0.00"
    DecimalSeparator = "."
    DispensingAvailable = True
    mNames = Array()
    mValues = Array()
    mCount = 0
  End Sub
  Private Function Find(Name)
    For Find = 0 To mCount - 1
      If mNames(Find) = Name Then Exit For
    Next
  End Function
  Public Property Get Setting(Name)
    Dim at
    at = Find(Name)
    If at < mCount Then Setting = mValues(at)
  End Property
  Public Property Let Setting(Name, Value)
    Dim at
    at = Find(Name)
    If at = mCount Then
      mCount = mCount + 1
      ReDim Preserve mNames(mCount - 1)
      ReDim Preserve mValues(mCount - 1)
      mNames(at) = Name
    End If
    mValues(at) = Value
  End Property
  Public Property Get Count
    Count = mCount
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

Dim database, settings, dialog
Set database = New ShopDatabase
Set settings = New MachineSettings
Set dialog = CreateObject("TilloraOptions.Options")
Set dialog.DBJetObject = database
Set dialog.AppObject = New ShopApp
Set dialog.SettingsObject = settings
Set dialog.MsgSndObject = New Messages
Set dialog.ResourceObject = New Strings
dialog.LVFileExtension = "mdb"
dialog.FirstUse = False
If WScript.Arguments.Count > 0 Then dialog.SelectedTab = CInt(WScript.Arguments(0))

WScript.Echo "returned: " & dialog.ShowOptions
WScript.Echo "data file changed: " & dialog.ChangedDataFile
WScript.Echo "settings: " & settings.Count
WScript.Echo "password: " & database.Record.PasswordStartAdmin
WScript.Echo "rounding item: " & database.Record.RoundingItem
database.RandomPrices.Print "format"
database.Grades.Print "grade"
database.WebSites.Print "web site"
WScript.Echo "done"
