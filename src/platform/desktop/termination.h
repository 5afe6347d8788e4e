// Ends the program cleanly when the system asks for it.
#pragma once

#include <functional>

// Installs `end` as the handler of a request to end, called once on the event loop: on Linux after
// SIGINT (Ctrl+C in a terminal), SIGTERM or SIGHUP, on Windows at the end of the session. On Linux
// a second SIGINT ends the program at once, in case it hangs.
void OnTermination(const std::function<void()>& end);
