// The Pointing window on screen: the compass and the figures from the home station.
#pragma once

#include "platform/qt/framed_window.h"

std::unique_ptr<FramedWindow> MakePointingWindow(CommandRunner& runner, QWidget& mainWindow);
