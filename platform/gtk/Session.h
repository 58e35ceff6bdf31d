#pragma once
// Showing windows from any thread of any host, whether it uses the toolkit itself or not.

#include <functional>

/// Whether windows can be shown. Sets the toolkit up if the host hasn't; the host's locale stays as it is.
bool HasDisplay();

/// Runs function on the thread that runs the toolkit's main loop, on this one if no other does, and returns when it is
/// done. Returns 1, or 0 if the display is gone, in which case what the user answered doesn't count.
int RunWithToolkit(const std::function<void()>& function);
