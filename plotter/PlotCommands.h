// The menus, the tool bar and the keys of the window.
#pragma once

class PlotWindow;

void AddCommands(PlotWindow& window);
// Ticks what is on.
void ShowTicks(PlotWindow& window);
