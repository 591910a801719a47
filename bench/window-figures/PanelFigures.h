#pragma once

namespace zolva {

/// From a click on the tray's item to the panel on the display: the first and twenty more.
int panelFigures();

/// What the program takes with its window closed on the Status screen, and its item in the tray;
/// and the children that it has then.
int closedFigures(int seconds);

} // namespace zolva
