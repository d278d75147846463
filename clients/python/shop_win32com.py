"""Opens the options dialog over the shop database of the reference host: win32com, late bound. The
message sender and the strings are objects of this program; events are heard.

    python shop_win32com.py DATABASE [TAB]
"""

import sys

import pythoncom
import win32com.client
from win32com.server.util import wrap


class Messages:
    _public_methods_ = ["Send"]

    def Send(self, when):
        print("options were saved at", when)


class Strings:
    _public_methods_ = ["ResourceString"]

    def ResourceString(self, number):
        return "String %d" % number


class Listener:
    """An event is a method with On before its name; what it returns goes back by reference."""

    def OnOptionsChanged(self, changes):
        print("OptionsChanged", changes)
        return changes


def main(database, tab=0):
    shop = win32com.client.Dispatch("TilloraHost.Shop")
    shop.Open(database)

    options = win32com.client.gencache.EnsureDispatch("TilloraOptions.Options")
    listener = win32com.client.WithEvents(options, Listener)
    options.DBJetObject = shop.Database
    options.AppObject = shop.App
    options.MsgSndObject = wrap(Messages())
    options.ResourceObject = wrap(Strings())
    options.SettingsObject = shop.Settings
    options.LVFileExtension = "ldv"
    options.SelectedTab = tab
    try:
        options.ShowOptions()
        print("data file changed:", options.ChangedDataFile)
    except pythoncom.com_error as failure:
        print("failed: 0x%08X" % (failure.hresult & 0xFFFFFFFF), failure.excepinfo)
    finally:
        listener.close()
        shop.Close()


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 0)
