// Opens the options dialog over the shop database of the reference host, from C#: late bound, so
// that no interop assembly is needed except for the events, whose interface is declared below.
//
//   csc /platform:x64 Program.cs        then        Program.exe DATABASE [TAB]
using System;
using System.Runtime.InteropServices;
using System.Runtime.InteropServices.ComTypes;

/// The events of Options, as the type library describes them.
[ComVisible(true), Guid("adb5da98-9474-45cc-95fd-0587205bc0c9")]
[InterfaceType(ComInterfaceType.InterfaceIsIDispatch)]
public interface IOptionsEvents
{
    [DispId(1)]
    void OptionsChanged(ref int changes);
}

[ComVisible(true), ClassInterface(ClassInterfaceType.None)]
public sealed class Listener : IOptionsEvents
{
    const int Rounding = 0x200;

    public void OptionsChanged(ref int changes)
    {
        Console.WriteLine("OptionsChanged {0}{1}", changes,
                          (changes & Rounding) != 0 ? " rounding" : "");
    }
}

/// Any class that is visible to COM will do as a host object.
[ComVisible(true), ClassInterface(ClassInterfaceType.AutoDispatch)]
public sealed class Messages
{
    public void Send(DateTime when)
    {
        Console.WriteLine("options were saved at {0}", when);
    }
}

public static class Program
{
    static dynamic Create(string programId)
    {
        Type type = Type.GetTypeFromProgID(programId, true);
        return Activator.CreateInstance(type);
    }

    [STAThread]
    public static int Main(string[] arguments)
    {
        if (arguments.Length < 1)
        {
            Console.WriteLine("usage: Program DATABASE [TAB]");
            return 1;
        }
        dynamic shop = Create("TilloraHost.Shop");
        shop.Open(arguments[0]);

        object created = Create("TilloraOptions.Options");
        var container = (IConnectionPointContainer)created;
        Guid events = typeof(IOptionsEvents).GUID;
        IConnectionPoint point;
        int cookie;
        container.FindConnectionPoint(ref events, out point);
        point.Advise(new Listener(), out cookie);

        dynamic options = created;
        options.DBJetObject = shop.Database;
        options.AppObject = shop.App;
        options.MsgSndObject = new Messages();
        options.ResourceObject = shop.Strings;
        options.SettingsObject = shop.Settings;
        options.LVFileExtension = "ldv";
        options.SelectedTab = arguments.Length > 1 ? short.Parse(arguments[1]) : (short)0;
        try
        {
            options.ShowOptions();
            Console.WriteLine("data file changed: {0}", options.ChangedDataFile);
            return 0;
        }
        catch (COMException failure)
        {
            Console.WriteLine("failed: 0x{0:X8} {1}: {2}", failure.ErrorCode, failure.Source,
                              failure.Message);
            return 2;
        }
        finally
        {
            point.Unadvise(cookie);
            shop.Close();
        }
    }
}
