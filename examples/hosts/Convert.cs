// A host in C#: converts a deck into a file without dialogs and prints its account. No test compiles it.
//
// Usage: Convert DECK TARGET

using System;
using System.Runtime.InteropServices;

internal static class Convert
{
    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    private delegate void LineFunction(IntPtr user, int kind, IntPtr text);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    private delegate void ProgressFunction(IntPtr user, IntPtr deck, ulong read, ulong bytes);

    [UnmanagedFunctionPointer(CallingConvention.Cdecl)]
    private delegate int CancelledFunction(IntPtr user);

    // T_NAS2ZDT_OPTIONS_D: zero is the default everywhere but in its size.
    [StructLayout(LayoutKind.Sequential)]
    private struct Options
    {
        public UIntPtr Size;
        public int Flatten, Faithful, Account, Check, Model, Strict, HasSubcase, Subcase, Super, Threads, HasTolerance;
        public double Tolerance;
        public long MostRanges, MostDecks, MostOutput, MostFrames;
        public IntPtr Allowed, Restated, View, Vtu, User;
        public LineFunction Line;
        public ProgressFunction Progress;
        public CancelledFunction Cancelled;
    }

    private const string Library = "nas2zdt"; // nas2zdt.dll, libnas2zdt.so

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    private static extern int Nas2zdtConvertFile(
        [MarshalAs(UnmanagedType.LPUTF8Str)] string deck,
        [MarshalAs(UnmanagedType.LPUTF8Str)] string target,
        ref Options options,
        out IntPtr result);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    private static extern IntPtr Nas2zdtGetText(IntPtr result);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    private static extern IntPtr Nas2zdtGetAccount(IntPtr result);

    [DllImport(Library, CallingConvention = CallingConvention.Cdecl)]
    private static extern void Nas2zdtFreeResult(IntPtr result);

    private static int Main(string[] arguments)
    {
        if (arguments.Length != 2)
        {
            Console.Error.WriteLine("usage: Convert DECK TARGET");
            return 2;
        }
        var options = new Options
        {
            Size = (UIntPtr)Marshal.SizeOf<Options>(),
            Account = 1,
            Progress = (user, deck, read, bytes) =>
                Console.Error.WriteLine($"{Marshal.PtrToStringUTF8(deck)}: {read} of {bytes} bytes"),
        };
        int code = Nas2zdtConvertFile(arguments[0], arguments[1], ref options, out IntPtr result);
        GC.KeepAlive(options.Progress); // the library calls it as long as the conversion goes on
        if (code == 0)
            Console.WriteLine(Marshal.PtrToStringUTF8(Nas2zdtGetAccount(result)));
        else
            Console.Error.WriteLine(Marshal.PtrToStringUTF8(Nas2zdtGetText(result)));
        Nas2zdtFreeResult(result);
        return code == 0 ? 0 : 1;
    }
}
