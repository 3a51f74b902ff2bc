// The scroll bar of the plug-in's lists: a narrow handle without arrows, wider
// under the pointer, in the colours of the skin.
#pragma once

class QAbstractScrollArea;

// Gives the area's vertical scroll bar this look.
void useSlimScrollBar(QAbstractScrollArea *area);
