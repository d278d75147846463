// Opens the options dialog over the shop database of the reference host. The application, the
// message sender and the strings are objects of this script: any object that knows the names will
// do.
//
//   cscript //nologo shop.js DATABASE [TAB]

var app = { Title: "Tillora Administrator", Path: "C:\\Tillora" };

var messages = {
  Send: function (when) { WScript.Echo("options were saved"); }
};

var strings = {
  ResourceString: function (number) { return "String " + number; }
};

var shop = new ActiveXObject("TilloraHost.Shop");
shop.Open(WScript.Arguments(0));

var dialog = new ActiveXObject("TilloraOptions.Options");
dialog.DBJetObject = shop.Database;
dialog.AppObject = app;
dialog.MsgSndObject = messages;
dialog.ResourceObject = strings;
dialog.SettingsObject = shop.Settings;
if (WScript.Arguments.length > 1) dialog.SelectedTab = Number(WScript.Arguments(1));

try {
  dialog.ShowOptions();
  WScript.Echo("data file changed: " + dialog.ChangedDataFile);
} catch (failure) {
  WScript.Echo("failed: " + (failure.number & 0xffff) + " " + failure.description);
}

shop.Close();
WScript.Echo("done");
