// The three windows that the main window opens, on screen.
#pragma once

#include "platform/qt/framed_window.h"

// The Pointing window: the compass and the figures from the home station.
std::unique_ptr<FramedWindow> MakePointingWindow(CommandRunner& runner, QWidget& mainWindow);
// The Results window: the user picks one of the sites that a lookup found.
std::unique_ptr<FramedWindow> MakeResultsWindow(CommandRunner& runner);
// The GPS set-up window: the port and the speed of a receiver.
std::unique_ptr<FramedWindow> MakeSetUpWindow(CommandRunner& runner);
