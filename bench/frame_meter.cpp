#include "frame_meter.h"

#include <SDL.h>

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <utility>

#include "frontend/gui/sdl_modal_runtime.h"

namespace quindle::bench {
namespace {

struct FrameTimes {
  Seconds started{};
  std::vector<Seconds> times;
  bool in_frame = false;
};
FrameTimes g_frames;

void StartFrame() {
  g_frames.started = ProcessorTime();
  g_frames.in_frame = true;
}

void EndFrame() {
  if (g_frames.in_frame) {
    g_frames.times.push_back(ProcessorTime() - g_frames.started);
    g_frames.in_frame = false;
  }
}

void Quit() {
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
}

}  // namespace

Seconds ProcessorTime() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::vector<Seconds> TimeFrames(int frame_count, const std::function<void()>& show,
                                const std::function<void(int)>& on_frame) {
  g_frames = {};
  int frame = 0;
  frontend::gui::SetModalDialogHeartbeat([frame_count, &frame, &on_frame] {
    if (frame == frame_count) {
      Quit();
      return;
    }
    if (on_frame) {
      on_frame(frame);
    }
    if (frame > 0) {  // The first frame's time began with the call of `show`.
      StartFrame();
    }
    ++frame;
  });
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  StartFrame();
  show();
  frontend::gui::SetModalDialogHeartbeat({});
  return std::move(g_frames.times);
}

Seconds Median(std::vector<Seconds> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

}  // namespace quindle::bench

extern "C" void SDL_Delay(Uint32 /*ms*/) {
  quindle::bench::EndFrame();
}
