#pragma once

// Times a dialog's frames: from the heartbeat, with which each frame begins, to the pause at its
// end. The pause itself is left out; this program's SDL_Delay does not sleep. All times are
// processor time, so that what else the machine does leaves ratios alone.

#include <chrono>
#include <functional>
#include <vector>

namespace quindle::bench {

using Seconds = std::chrono::duration<double>;

// Processor time of the calling thread, the system's work for it included.
Seconds ProcessorTime();

// Runs `show`, which blocks until its dialog ends, and returns the times of its frames. Before the
// frame with the index `frame_count` the dialog is told to quit; `on_frame`, when there is one, is
// called at the start of each earlier frame with its index. The first time runs from the call of
// `show` to the end of its first frame: what a user waits for.
std::vector<Seconds> TimeFrames(int frame_count, const std::function<void()>& show,
                                const std::function<void(int)>& on_frame = {});

// The middle one of `times`, which must not be empty.
Seconds Median(std::vector<Seconds> times);

}  // namespace quindle::bench
