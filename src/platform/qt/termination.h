// Lets a terminal's Ctrl+C and the system's wish to end reach the program as an event.
#pragma once

#include <functional>

// Has `end` called on the event loop after SIGINT, SIGTERM or SIGHUP.
void OnTermination(const std::function<void()>& end);
