<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name>ChatArea</name>
    <message>
        <source>The message could not be sent.</source>
        <translation>The message could not be sent.</translation>
    </message>
    <message>
        <source>Reference host for FriendUI</source>
        <translation>Reference host for FriendUI</translation>
    </message>
    <message>
        <source>Choose a contact on the left to open a chat.
The people of the sample company come, go and answer by themselves; the event monitor (F12) shows what the plug-in and this host say to each other.</source>
        <translation>Choose a contact on the left to open a chat.
The people of the sample company come, go and answer by themselves; the event monitor (F12) shows what the plug-in and this host say to each other.</translation>
    </message>
</context>
<context>
    <name>ChatPage</name>
    <message>
        <source>A message holds at most %1 characters.</source>
        <translation>A message holds at most %1 characters.</translation>
    </message>
    <message>
        <source>no connection</source>
        <translation>no connection</translation>
    </message>
    <message>
        <source>%1 members</source>
        <translation>%1 members</translation>
    </message>
    <message>
        <source>Message; Enter sends, Shift+Enter begins a line</source>
        <translation>Message; Enter sends, Shift+Enter begins a line</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>No messages yet</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Send</translation>
    </message>
</context>
<context>
    <name>ChatView</name>
    <message>
        <source>(shortened)</source>
        <translation>(shortened)</translation>
    </message>
</context>
<context>
    <name>EventModel</name>
    <message>
        <source>→ plug-in</source>
        <translation>→ plug-in</translation>
    </message>
    <message>
        <source>← plug-in</source>
        <translation>← plug-in</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Direction</source>
        <translation>Direction</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Code</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Sender</source>
        <translation>Sender</translation>
    </message>
    <message>
        <source>Receiver</source>
        <translation>Receiver</translation>
    </message>
    <message>
        <source>Payload</source>
        <translation>Payload</translation>
    </message>
</context>
<context>
    <name>EventMonitor</name>
    <message>
        <source>%1 events</source>
        <translation>%1 events</translation>
    </message>
    <message>
        <source>%1 of %2 events</source>
        <translation>%1 of %2 events</translation>
    </message>
    <message>
        <source>%1 older ones dropped</source>
        <translation>%1 older ones dropped</translation>
    </message>
    <message>
        <source>paused</source>
        <translation>paused</translation>
    </message>
    <message>
        <source>every plug-in</source>
        <translation>every plug-in</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 bytes</translation>
    </message>
    <message>
        <source>Filter: words in any column</source>
        <translation>Filter: words in any column</translation>
    </message>
    <message>
        <source>Codes: 4118, 4356-4362</source>
        <translation>Codes: 4118, 4356-4362</translation>
    </message>
    <message>
        <source>Both directions</source>
        <translation>Both directions</translation>
    </message>
    <message>
        <source>To the plug-in</source>
        <translation>To the plug-in</translation>
    </message>
    <message>
        <source>From the plug-in</source>
        <translation>From the plug-in</translation>
    </message>
    <message>
        <source>Pause</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Clear</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Copy as JSON</source>
        <translation>Copy as JSON</translation>
    </message>
</context>
<context>
    <name>HistoryWindow</name>
    <message>
        <source>Message history: %1</source>
        <translation>Message history: %1</translation>
    </message>
    <message>
        <source>No messages yet</source>
        <translation>No messages yet</translation>
    </message>
</context>
<context>
    <name>HostApplication</name>
    <message>
        <source>The plug-in has no pane.</source>
        <translation>The plug-in has no pane.</translation>
    </message>
</context>
<context>
    <name>HostWindows</name>
    <message>
        <source>A chat was asked for without a jid.</source>
        <translation>A chat was asked for without a jid.</translation>
    </message>
    <message>
        <source>Send a file</source>
        <translation>Send a file</translation>
    </message>
    <message>
        <source>This host transfers no files. A client would now let the user choose files for:</source>
        <translation>This host transfers no files. A client would now let the user choose files for:</translation>
    </message>
    <message>
        <source>New group chat</source>
        <translation>New group chat</translation>
    </message>
    <message>
        <source>Subject</source>
        <translation>Subject</translation>
    </message>
    <message>
        <source>There is no file transfer with %1 to cancel.</source>
        <translation>There is no file transfer with %1 to cancel.</translation>
    </message>
    <message>
        <source>The conversation with %1 is pinned.</source>
        <translation>The conversation with %1 is pinned.</translation>
    </message>
    <message>
        <source>The conversation with %1 is no longer pinned.</source>
        <translation>The conversation with %1 is no longer pinned.</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Picture</translation>
    </message>
    <message>
        <source>This host has no picture viewer. A client would now show the picture of %1:</source>
        <translation>This host has no picture viewer. A client would now show the picture of %1:</translation>
    </message>
    <message>
        <source>Topic page</source>
        <translation>Topic page</translation>
    </message>
    <message>
        <source>The plug-in that shows topic pages is not part of this host.</source>
        <translation>The plug-in that shows topic pages is not part of this host.</translation>
    </message>
    <message>
        <source>Add people to the team</source>
        <translation>Add people to the team</translation>
    </message>
    <message>
        <source>Manage the group chat</source>
        <translation>Manage the group chat</translation>
    </message>
    <message>
        <source>This host has no page for the owner and the managers of a group chat.</source>
        <translation>This host has no page for the owner and the managers of a group chat.</translation>
    </message>
    <message>
        <source>Write a mail</source>
        <translation>Write a mail</translation>
    </message>
    <message>
        <source>This host sends no mail. A client would now open a new mail to:</source>
        <translation>This host sends no mail. A client would now open a new mail to:</translation>
    </message>
    <message>
        <source>No service for external contacts: the request to %1 was not sent.</source>
        <translation>No service for external contacts: the request to %1 was not sent.</translation>
    </message>
    <message>
        <source>No service for external contacts: the answer to %1 was not sent.</source>
        <translation>No service for external contacts: the answer to %1 was not sent.</translation>
    </message>
    <message>
        <source>No service for external contacts: %1 was not blacklisted.</source>
        <translation>No service for external contacts: %1 was not blacklisted.</translation>
    </message>
</context>
<context>
    <name>ImportReport</name>
    <message>
        <source>Import of %1</source>
        <translation>Import of %1</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
<context>
    <name>LeverMenu</name>
    <message>
        <source>Hello, we met at the fair.</source>
        <translation>Hello, we met at the fair.</translation>
    </message>
    <message>
        <source>&amp;Levers</source>
        <translation>&amp;Levers</translation>
    </message>
    <message>
        <source>Fail</source>
        <translation>Fail</translation>
    </message>
    <message>
        <source>Never answer</source>
        <translation>Never answer</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Everything</translation>
    </message>
    <message>
        <source>People come, go and answer</source>
        <translation>People come, go and answer</translation>
    </message>
    <message>
        <source>Somebody writes now</source>
        <translation>Somebody writes now</translation>
    </message>
    <message>
        <source>Somebody asks to become a contact</source>
        <translation>Somebody asks to become a contact</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>The core could not do: %1</source>
        <translation>The core could not do: %1</translation>
    </message>
    <message>
        <source>New message from %1</source>
        <translation>New message from %1</translation>
    </message>
    <message>
        <source>The plug-in sent %1; nothing in this host answers it.</source>
        <translation>The plug-in sent %1; nothing in this host answers it.</translation>
    </message>
    <message>
        <source>The plug-in sent %1 with an unreadable payload of %2 bytes.</source>
        <translation>The plug-in sent %1 with an unreadable payload of %2 bytes.</translation>
    </message>
    <message>
        <source>Go offline</source>
        <translation>Go offline</translation>
    </message>
    <message>
        <source>Go online</source>
        <translation>Go online</translation>
    </message>
    <message>
        <source>connected as %1</source>
        <translation>connected as %1</translation>
    </message>
    <message>
        <source>not connected</source>
        <translation>not connected</translation>
    </message>
    <message>
        <source>%1 contacts in %2 groups, %3 people online</source>
        <translation>%1 contacts in %2 groups, %3 people online</translation>
    </message>
    <message>
        <source>FriendUI reference host</source>
        <translation>FriendUI reference host</translation>
    </message>
    <message>
        <source>&amp;Session</source>
        <translation>&amp;Session</translation>
    </message>
    <message>
        <source>Presence</source>
        <translation>Presence</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Language</translation>
    </message>
    <message>
        <source>Skin</source>
        <translation>Skin</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Quit</translation>
    </message>
    <message>
        <source>Light</source>
        <translation>Light</translation>
    </message>
    <message>
        <source>Dark</source>
        <translation>Dark</translation>
    </message>
    <message>
        <source>Event monitor</source>
        <translation>Event monitor</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Tools</translation>
    </message>
</context>
<context>
    <name>PaneArea</name>
    <message>
        <source>Plug-in modules (*.so *.dll *.dylib)</source>
        <translation>Plug-in modules (*.so *.dll *.dylib)</translation>
    </message>
    <message>
        <source>The contacts could not be loaded</source>
        <translation>The contacts could not be loaded</translation>
    </message>
    <message>
        <source>Try again</source>
        <translation>Try again</translation>
    </message>
    <message>
        <source>Choose another module…</source>
        <translation>Choose another module…</translation>
    </message>
</context>
<context>
    <name>PeoplePicker</name>
    <message>
        <source>Find by name</source>
        <translation>Find by name</translation>
    </message>
    <message>
        <source>%1 chosen</source>
        <translation>%1 chosen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
</context>
<context>
    <name>PluginLoader</name>
    <message>
        <source>The file does not exist.</source>
        <translation>The file does not exist.</translation>
    </message>
    <message>
        <source>The file is no Qt plug-in.</source>
        <translation>The file is no Qt plug-in.</translation>
    </message>
    <message>
        <source>The plug-in implements another interface: %1.</source>
        <translation>The plug-in implements another interface: %1.</translation>
    </message>
    <message>
        <source>The plug-in's root object lacks the interface.</source>
        <translation>The plug-in's root object lacks the interface.</translation>
    </message>
</context>
<context>
    <name>PresenceWords</name>
    <message>
        <source>offline</source>
        <translation>offline</translation>
    </message>
    <message>
        <source>available</source>
        <translation>available</translation>
    </message>
    <message>
        <source>away</source>
        <translation>away</translation>
    </message>
    <message>
        <source>away for long</source>
        <translation>away for long</translation>
    </message>
    <message>
        <source>do not disturb</source>
        <translation>do not disturb</translation>
    </message>
    <message>
        <source>free for chat</source>
        <translation>free for chat</translation>
    </message>
    <message>
        <source>on the phone app</source>
        <translation>on the phone app</translation>
    </message>
</context>
<context>
    <name>RequestNote</name>
    <message>
        <source>… %1 more</source>
        <translation>… %1 more</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
</context>
</TS>
