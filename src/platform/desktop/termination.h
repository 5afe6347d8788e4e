// Lets the system's wish that the program end reach it, so that it closes in order.
#pragma once

#include <functional>

// Has `end` called on the event loop: on Linux after SIGINT (a terminal's Ctrl+C), SIGTERM or
// SIGHUP, on Windows at the end of the session.
void OnTermination(const std::function<void()>& end);
