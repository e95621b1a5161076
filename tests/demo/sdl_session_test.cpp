// The demo's session in memory, on an SDL that was built without some of its drivers.

#include "sdl_session.h"

#include <SDL.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/real_function.h"

namespace quindle::demo {
namespace {

std::vector<std::string>& MissingDrivers() {
  static std::vector<std::string> drivers;
  return drivers;
}

}  // namespace
}  // namespace quindle::demo

extern "C" int SDL_Init(Uint32 flags) {
  static auto* const real = quindle::testing::RealFunction<decltype(SDL_Init)>("SDL_Init");
  const char* const wanted = SDL_GetHint(SDL_HINT_VIDEODRIVER);
  for (const std::string& driver : quindle::demo::MissingDrivers()) {
    if (wanted != nullptr && driver == wanted) {
      return SDL_SetError("%s not available", wanted);
    }
  }
  return real(flags);
}

namespace quindle::demo {
namespace {

class SdlSessionInMemory : public ::testing::Test {
 protected:
  void TearDown() override {
    MissingDrivers().clear();
    SDL_ResetHint(SDL_HINT_VIDEODRIVER);
  }
};

TEST_F(SdlSessionInMemory, PrefersTheDriverThatMayHaveOpenGl) {
  const SdlSession session(VideoChoice::Memory);
  EXPECT_STREQ(SDL_GetCurrentVideoDriver(), "offscreen");
}

TEST_F(SdlSessionInMemory, TakesDummyWhereOffscreenIsMissing) {
  MissingDrivers() = {"offscreen"};
  const SdlSession session(VideoChoice::Memory);
  EXPECT_STREQ(SDL_GetCurrentVideoDriver(), "dummy");
}

TEST_F(SdlSessionInMemory, SaysThatNothingIsShownWithoutEither) {
  MissingDrivers() = {"offscreen", "dummy"};
  try {
    const SdlSession session(VideoChoice::Memory);
    FAIL() << "a session without a driver";
  } catch (const NothingShownError& error) {
    EXPECT_STREQ(error.what(), "no display: dummy not available");
  }
  EXPECT_EQ(SDL_WasInit(SDL_INIT_VIDEO), 0U);
}

}  // namespace
}  // namespace quindle::demo
