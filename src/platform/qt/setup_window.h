// The GPS set-up window on screen: the port and the speed of a receiver.
#pragma once

#include "platform/qt/framed_window.h"

std::unique_ptr<FramedWindow> MakeSetUpWindow(CommandRunner& runner);
