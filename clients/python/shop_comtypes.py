"""Opens the options dialog over the shop database of the reference host: comtypes, early bound through
the type library, with the events heard.

    python shop_comtypes.py DATABASE [TAB]
"""

import sys

import comtypes.client
from comtypes import COMError


class Listener:
    """Methods are named after the events. A by-reference argument arrives as a pointer."""

    def __init__(self, change_names):
        self._change_names = change_names

    def OptionsChanged(self, changes):
        mask = getattr(changes, "contents", changes)
        mask = getattr(mask, "value", mask)
        names = [name for name, bit in self._change_names if mask & bit]
        print("OptionsChanged", mask, *names)


def main(database, tab=0):
    shop = comtypes.client.CreateObject("TilloraHost.Shop", dynamic=True)
    shop.Open(database)

    options = comtypes.client.CreateObject("TilloraOptions.Options")
    from comtypes.gen import TilloraOptions as library  # made by CreateObject

    names = ("LaybyCustomerColumns", "ProductColumns", "CustomerColumns", "SalesPersonColumns",
             "Dispensing", "Rounding", "CurrencyColumns", "CurrencyMargin")
    listener = Listener([(name, getattr(library, name)) for name in names])
    connection = comtypes.client.GetEvents(options, listener)

    options.DBJetObject = shop.Database
    options.AppObject = shop.App
    options.MsgSndObject = shop.Messages
    options.ResourceObject = shop.Strings
    options.SettingsObject = shop.Settings
    options.LVFileExtension = "ldv"
    options.SelectedTab = tab
    try:
        options.ShowOptions()
        print("data file changed:", options.ChangedDataFile)
    except COMError as failure:
        print("failed: 0x%08X" % (failure.hresult & 0xFFFFFFFF), failure.text, failure.details)
    finally:
        del connection
        shop.Close()


if __name__ == "__main__":
    main(sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 0)
