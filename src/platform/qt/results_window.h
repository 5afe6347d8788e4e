// The Results window on screen: the user picks one of the sites that a lookup found.
#pragma once

#include "platform/qt/framed_window.h"

std::unique_ptr<FramedWindow> MakeResultsWindow(CommandRunner& runner);
