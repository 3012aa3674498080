# Opens the debug console of the running plugin: posts it the message of hot key 1.
Add-Type -Namespace Deck -Name Window -MemberDefinition @'
[DllImport("user32.dll", CharSet = CharSet.Unicode)]
public static extern IntPtr FindWindowEx(IntPtr parent, IntPtr after, string type, string title);
[DllImport("user32.dll")]
public static extern uint GetWindowThreadProcessId(IntPtr window, out uint process);
[DllImport("user32.dll", SetLastError = true)]
private static extern bool PostMessage(IntPtr window, uint message, IntPtr identifier, IntPtr keys);

// 0, or the number of the error.
public static int Post(IntPtr window, uint message, int identifier)
{
    return PostMessage(window, message, new IntPtr(identifier), IntPtr.Zero)
        ? 0 : Marshal.GetLastWin32Error();
}
'@

$hotKeyMessage = 0x0312
$name = 'QtSystemMonitor'

# Other programs' windows may bear the same title, such as a file manager's on a folder of that name.
function Find-PluginWindow {
    $window = [IntPtr]::Zero
    do {
        $window = [Deck.Window]::FindWindowEx([IntPtr]::Zero, $window, [NullString]::Value, $name)
        $id = [uint32]0
        [void][Deck.Window]::GetWindowThreadProcessId($window, [ref]$id)
        $process = Get-Process -Id $id -ErrorAction SilentlyContinue
    } until ($window -eq [IntPtr]::Zero -or $process.ProcessName -eq $name)
    $window
}

$window = Find-PluginWindow
if ($window -eq [IntPtr]::Zero) { throw 'The plugin does not run.' }
$fault = [Deck.Window]::Post($window, $hotKeyMessage, 1)
if ($fault -ne 0) {
    # A program of an administrator's takes no messages from others.
    $reason = (New-Object ComponentModel.Win32Exception $fault).Message
    throw "The plugin's window takes no message: $reason"
}
