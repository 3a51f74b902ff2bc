// Where a window belongs that no view has asked for.
#pragma once

class QWidget;

// The window that has the plug-in's pane; null while there is no pane.
QWidget *paneWindow();
