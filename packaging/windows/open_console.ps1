# Opens the debug console of the running plugin: posts it the message of hot key 1.
Add-Type -Namespace Deck -Name Window -MemberDefinition @'
[DllImport("user32.dll", CharSet = CharSet.Unicode)]
public static extern IntPtr FindWindow(string type, string title);
[DllImport("user32.dll")]
public static extern bool PostMessage(IntPtr window, uint message, IntPtr identifier, IntPtr keys);
'@

$hotKeyMessage = 0x0312
$window = [Deck.Window]::FindWindow([NullString]::Value, 'QtSystemMonitor')
if ($window -eq [IntPtr]::Zero) { throw 'The plugin does not run.' }
[void][Deck.Window]::PostMessage($window, $hotKeyMessage, [IntPtr]1, [IntPtr]::Zero)
