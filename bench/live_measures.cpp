#include "live_measures.h"

#include <SDL_ttf.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstddef>
#include <ctime>
#include <fstream>
#include <optional>
#include <random>
#include <thread>
#include <utility>

#include "frontend/gui/sdl_modal_runtime.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "live_hooks.h"
#include "support/byte_input.h"
#include "support/plain_interposers.h"

namespace quindle::bench {
namespace {

namespace gui = frontend::gui;

constexpr int kRounds = 15;
constexpr int kNotches = 100;
constexpr std::chrono::milliseconds kSettling{500};
constexpr std::chrono::seconds kWatched{5};

double Milliseconds(Clock::duration time) {
  return std::chrono::duration<double, std::milli>(time).count();
}

void PushQuit() {
  SDL_Event event{};
  event.type = SDL_QUIT;
  SDL_PushEvent(&event);
}

// Nothing of one measure reaches the next.
class HooksInPlace {
 public:
  HooksInPlace(LiveHooks hooks, std::function<void()> heartbeat) {
    SetLiveHooks(std::move(hooks));
    gui::SetModalDialogHeartbeat(std::move(heartbeat));
  }
  ~HooksInPlace() {
    SetLiveHooks({});
    gui::SetModalDialogHeartbeat({});
  }
  HooksInPlace(const HooksInPlace&) = delete;
  HooksInPlace& operator=(const HooksInPlace&) = delete;
  HooksInPlace(HooksInPlace&&) = delete;
  HooksInPlace& operator=(HooksInPlace&&) = delete;
};

// The value that `share` of all values do not exceed; `values` must not be empty.
double Quantile(std::vector<double> values, double share) {
  std::sort(values.begin(), values.end());
  const auto last = static_cast<double>(values.size() - 1);
  return values[static_cast<std::size_t>(std::lround(share * last))];
}

void Show(const LiveSubject& subject) {
  subject.dialog.show(subject.host, subject.folder);
}

// --- Opening -------------------------------------------------------------------------------------

struct Opening {
  double ms = 0;
  int width = 0;
  int height = 0;
};

Opening OpenDialog(const LiveSubject& subject) {
  SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
  gui::ShutdownSdlUiCachedFonts();  // As the first dialog of a host finds it.
  Opening opening;
  const Clock::time_point called = Clock::now();
  LiveHooks hooks;
  hooks.frame_ended = [&opening, called] {
    if (opening.ms == 0) {
      opening.ms = Milliseconds(Clock::now() - called);
      SDL_GetWindowSize(SDL_GetWindowFromID(testing::NewestWindowId()), &opening.width,
                        &opening.height);
      PushQuit();
    }
  };
  const HooksInPlace in_place(std::move(hooks), {});
  Show(subject);
  return opening;
}

// What no dialog of this size can go below. SDL and SDL_ttf alone, on purpose.
double OpenBareWindowMs(int width, int height) {
  const Clock::time_point called = Clock::now();
  if (TTF_WasInit() == 0) {
    TTF_Init();
  }
  SDL_Window* window = SDL_CreateWindow("Floor", 80, 80, width, height, SDL_WINDOW_HIDDEN);
  SDL_Renderer* renderer = SDL_CreateRenderer(window, -1, SDL_RENDERER_SOFTWARE);
  TTF_Font* font = TTF_OpenFont("data/ttf/IBMPlexSans-SemiBold.ttf", 15);
  SDL_RenderClear(renderer);
  SDL_Surface* text =
      TTF_RenderUTF8_Blended(font, "One line of text", SDL_Color{232, 237, 244, 255});
  SDL_Texture* texture = SDL_CreateTextureFromSurface(renderer, text);
  const SDL_Rect target{10, 10, text->w, text->h};
  SDL_RenderCopy(renderer, texture, nullptr, &target);
  SDL_RenderPresent(renderer);
  SDL_ShowWindow(window);
  SDL_RaiseWindow(window);
  const double opening = Milliseconds(Clock::now() - called);
  SDL_DestroyTexture(texture);
  SDL_FreeSurface(text);
  TTF_CloseFont(font);
  SDL_DestroyRenderer(renderer);
  SDL_DestroyWindow(window);
  return opening;
}

// --- Processor time ------------------------------------------------------------------------------

double ProcessSeconds() {
  timespec time{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

// --- Random input --------------------------------------------------------------------------------

// Two events in each frame, from a seed, so that a finding can be played again.
class RandomUser {
 public:
  void Act() {
    for (int i = 0; i < 2; ++i) {
      std::uint8_t bytes[testing::kBytesPerEvent];
      for (std::uint8_t& byte : bytes) {
        byte = static_cast<std::uint8_t>(random_());
      }
      testing::PushEventFromBytes(bytes);
    }
  }

 private:
  std::mt19937 random_{20260420};
};

// The times between two heartbeats.
class GapMeter {
 public:
  void Beat() {
    const Clock::time_point now = Clock::now();
    if (last_) {
      const double gap = Milliseconds(now - *last_);
      (FoldersOpened() == folders_ ? gaps_ : listing_gaps_).push_back(gap);
    }
    last_ = now;
    folders_ = FoldersOpened();
  }
  // The next beat follows no other.
  void Interrupt() { last_.reset(); }

  [[nodiscard]] const std::vector<double>& Gaps() const { return gaps_; }
  [[nodiscard]] const std::vector<double>& ListingGaps() const { return listing_gaps_; }

 private:
  std::optional<Clock::time_point> last_;
  long folders_ = 0;
  std::vector<double> gaps_;
  std::vector<double> listing_gaps_;
};

// --- Wheel ---------------------------------------------------------------------------------------

// Turns the wheel from a thread of its own, at moments that have nothing to do with the frames.
class WheelTurner {
 public:
  WheelTurner() : thread_([this] { Turn(); }) {}
  ~WheelTurner() {
    stopped_ = true;
    thread_.join();
  }
  WheelTurner(const WheelTurner&) = delete;
  WheelTurner& operator=(const WheelTurner&) = delete;
  WheelTurner(WheelTurner&&) = delete;
  WheelTurner& operator=(WheelTurner&&) = delete;

  [[nodiscard]] Clock::time_point PushedAt() const { return pushed_.load(); }

 private:
  void Turn() {
    std::mt19937 random(7);
    std::this_thread::sleep_for(kSettling);
    for (int notch = 0; notch < kNotches && !stopped_; ++notch) {
      SDL_Event event{};
      event.type = SDL_MOUSEWHEEL;
      event.wheel.y = notch % 2 == 0 ? -1 : 1;
      pushed_ = Clock::now();
      SDL_PushEvent(&event);
      std::this_thread::sleep_for(std::chrono::microseconds(40'000 + random() % 20'000));
    }
    PushQuit();
  }

  std::atomic<Clock::time_point> pushed_{};
  std::atomic<bool> stopped_{false};
  std::thread thread_;
};

// --- Memory --------------------------------------------------------------------------------------

// A line of /proc/self/status such as "VmHWM:   14400 kB", in MB; 0 when it is not there.
double StatusMb(const std::string& wanted) {
  std::ifstream status("/proc/self/status");
  std::string name;
  double kib = 0;
  while (status >> name) {
    if (name == wanted && status >> kib) {
      return kib / 1024;
    }
    status.ignore(1024, '\n');
  }
  return 0;
}

// From here on the peak counts anew.
void ForgetPeak() {
  std::ofstream("/proc/self/clear_refs") << "5";
}

}  // namespace

Figures MeasureOpening(const LiveSubject& subject) {
  OpenDialog(subject);  // The process's first loads what all later ones share.
  std::vector<double> floors;
  std::vector<double> openings;
  for (int round = 0; round < kRounds; ++round) {
    const Opening opening = OpenDialog(subject);
    openings.push_back(opening.ms);
    floors.push_back(OpenBareWindowMs(opening.width, opening.height));
  }
  const double floor = Quantile(floors, 0.5);
  const double opening = Quantile(openings, 0.5);
  return {{"floor_ms", floor}, {"open_ms", opening}, {"open_per_floor", opening / floor}};
}

Figures MeasureFirstOpening(const LiveSubject& subject) {
  return {{"first_open_ms", OpenDialog(subject).ms}};
}

Figures MeasureFirstFloor(const LiveSubject& /*subject*/) {
  return {{"first_floor_ms", OpenBareWindowMs(420, 220)}};
}

Figures MeasureIdle(const LiveSubject& subject) {
  const Clock::time_point opened = Clock::now();
  std::optional<Clock::time_point> began;
  double began_at = 0;
  double used = 0;
  double watched = 0;
  const HooksInPlace in_place({}, [&] {
    const Clock::time_point now = Clock::now();
    if (!began && now - opened >= kSettling) {
      began = now;
      began_at = ProcessSeconds();
    } else if (began && watched == 0 && now - *began >= kWatched) {
      watched = std::chrono::duration<double>(now - *began).count();
      used = ProcessSeconds() - began_at;
      PushQuit();
    }
  });
  Show(subject);
  return {{"idle_percent", 100 * used / watched}};
}

Figures MeasureHeartbeatGaps(const LiveSubject& subject) {
  RandomUser user;
  GapMeter meter;
  const Clock::time_point end = Clock::now() + kWatched;
  const HooksInPlace in_place({}, [&] {
    meter.Beat();
    if (Clock::now() >= end) {
      PushQuit();
    } else {
      user.Act();
    }
  });
  while (Clock::now() < end) {
    meter.Interrupt();
    SDL_FlushEvents(SDL_FIRSTEVENT, SDL_LASTEVENT);
    Show(subject);
  }
  const std::vector<double>& gaps = meter.Gaps();
  const std::vector<double>& listing = meter.ListingGaps();
  return {{"gap_p50_ms", Quantile(gaps, 0.5)},
          {"gap_p99_ms", Quantile(gaps, 0.99)},
          {"gap_max_ms", Quantile(gaps, 1)},
          {"gap_listing_max_ms", listing.empty() ? 0 : Quantile(listing, 1)},
          {"gap_count", static_cast<double>(gaps.size())}};
}

Figures MeasureWheel(const LiveSubject& subject) {
  std::vector<double> latencies;
  bool taken = false;
  const WheelTurner turner;
  LiveHooks hooks;
  hooks.event_taken = [&taken](const SDL_Event& event) {
    taken = taken || event.type == SDL_MOUSEWHEEL;
  };
  hooks.presented = [&] {
    if (taken) {
      latencies.push_back(Milliseconds(Clock::now() - turner.PushedAt()));
      taken = false;
    }
  };
  const HooksInPlace in_place(std::move(hooks), {});
  Show(subject);
  return {{"wheel_p50_ms", Quantile(latencies, 0.5)}, {"wheel_max_ms", Quantile(latencies, 1)}};
}

Figures MeasureMemory(const LiveSubject& subject) {
  ForgetPeak();
  const double before = StatusMb("VmRSS:");
  int frame = 0;
  const HooksInPlace in_place({}, [&frame] {
    if (++frame == 10) {
      PushQuit();
    }
  });
  Show(subject);
  const double peak = StatusMb("VmHWM:");
  return {{"peak_mb", peak}, {"growth_mb", peak - before}};
}

}  // namespace quindle::bench

// --- Where random input goes ---------------------------------------------------------------------

namespace quindle::testing {

// Ids count up; the dialog's is the last that exists.
Uint32 NewestWindowId() {
  static Uint32 newest = 1;
  for (Uint32 id = newest; id < newest + 64; ++id) {
    if (SDL_GetWindowFromID(id) != nullptr) {
      newest = id;
    }
  }
  return newest;
}

void PointAtNewestWindow(int x, int y, bool /*left_down*/) {
  SDL_Window* window = SDL_GetWindowFromID(NewestWindowId());
  if (window != nullptr) {
    SDL_WarpMouseInWindow(window, x, y);
  }
}

}  // namespace quindle::testing
