// Puts the plug-in together: the pane's factory and the actions behind it.
#pragma once

// Registers both with the hub. Called when the plug-in object is made; a second
// call changes nothing. Builds no widget.
void assemblePane();
