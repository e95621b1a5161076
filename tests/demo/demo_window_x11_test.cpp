// The demo window on a real display, driven by a user's hands.

#include <SDL.h>
#include <SDL_image.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "command_table.h"
#include "host_window.h"
#include "sdl_session.h"
#include "support/child_process.h"
#include "support/temporary_directory.h"
#include "support/text_watch.h"
#include "support/wait_until.h"
#include "support/x11_display.h"

namespace quindle::demo {
namespace {

using testing::ChildProcess;
using testing::ClickAt;
using ::testing::HasSubstr;
using testing::PressKey;
using testing::ProgramResult;
using testing::TemporaryDirectory;
using testing::WaitForProgram;
using testing::WaitForX11Focus;
using testing::WaitForX11Window;
using testing::WaitForX11WindowGone;
using testing::X11WindowId;

constexpr const char* kHostTitle = "Quindle demo host";
constexpr const char* kBoxTitle = "Message box";
// In the first button, and in the line of the result, of a window of 900 x 760 pixels.
constexpr SDL_Point kFirstButton{40, 610};
constexpr SDL_Rect kResultLine{12, 672, 876, 44};

frontend::gui::OwnedSdlSurface LoadPicture(const std::string& file) {
  const frontend::gui::OwnedSdlSurface picture(IMG_Load(file.c_str()));
  return frontend::gui::OwnedSdlSurface(
      SDL_ConvertSurfaceFormat(picture.get(), SDL_PIXELFORMAT_RGB24, 0));
}

std::string PixelsIn(const std::string& file, const SDL_Rect& area) {
  const frontend::gui::OwnedSdlSurface picture = LoadPicture(file);
  std::string pixels;
  for (int y = area.y; y < area.y + area.h; ++y) {
    pixels.append(static_cast<const char*>(picture->pixels) + y * picture->pitch + 3 * area.x,
                  static_cast<size_t>(3 * area.w));
  }
  return pixels;
}

std::string PixelsIn(X11WindowId window, const SDL_Rect& area) {
  const TemporaryDirectory folder;
  const std::string file = folder.path() / "window.png";
  testing::SaveX11Screenshot(window, file);
  return PixelsIn(file, area);
}

// The lower half of the guest picture, which no message box covers.
std::string GuestPixels(X11WindowId window) {
  return PixelsIn(window, {80, 340, 740, 230});
}

class DemoWindow : public testing::X11DisplayTest {
 protected:
  void SetUp() override {
    WaitForX11WindowGone(kHostTitle);  // That of the test before.
    program_ = std::make_unique<ChildProcess>(std::vector<std::string>{QUINDLE_DEMO_PROGRAM});
    host_ = WaitForX11Window(kHostTitle);
    WaitForX11Focus(host_);
    testing::WaitForX11WindowToRest(host_);
  }

  void ExpectAnimated() const {
    const std::string before = GuestPixels(host_);
    EXPECT_TRUE(testing::WaitUntil([&] { return GuestPixels(host_) != before; }));
  }

  void ExpectCleanEnd() {
    const ProgramResult result = WaitForProgram(program_.get());
    EXPECT_EQ(result.exit_status, 0) << result.err;
  }

  std::unique_ptr<ChildProcess> program_;
  X11WindowId host_ = 0;
};

TEST_F(DemoWindow, ButtonOpensADialogWhileTheAnimationGoesOn) {
  ExpectAnimated();
  ClickAt(host_, kFirstButton.x, kFirstButton.y);
  WaitForX11Focus(WaitForX11Window(kBoxTitle));
  ExpectAnimated();
  const std::string while_open = PixelsIn(host_, kResultLine);

  PressKey("Escape");
  WaitForX11WindowGone(kBoxTitle);
  EXPECT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kResultLine) != while_open; }));
  ExpectAnimated();
}

TEST_F(DemoWindow, NumberKeyOpensADialog) {
  PressKey("1");
  WaitForX11Focus(WaitForX11Window(kBoxTitle));
  PressKey("Escape");
  WaitForX11WindowGone(kBoxTitle);
  WaitForX11Focus(host_);
}

TEST_F(DemoWindow, ReleaseBesideTheButtonOpensNothing) {
  testing::DragFromTo(host_, kFirstButton.x, kFirstButton.y, kFirstButton.x, 300);
  // A dialog would take this close for its own, and the program would stay.
  testing::CloseByWindowManager(host_);
  ExpectCleanEnd();
}

TEST_F(DemoWindow, ClosingTheWindowEndsTheProgram) {
  testing::CloseByWindowManager(host_);
  ExpectCleanEnd();
}

TEST_F(DemoWindow, QuitDuringADialogEndsTheProgramToo) {
  PressKey("1");
  WaitForX11Focus(WaitForX11Window(kBoxTitle));
  kill(program_->Id(), SIGTERM);  // SDL turns it into a quit event.
  ExpectCleanEnd();
}

TEST_F(DemoWindow, EveryDialogOpensByItsKey) {
  const size_t count = std::min<size_t>(MakeDemoCommands().size(), 10);
  for (size_t i = 0; i < count; ++i) {
    PressKey(std::string(1, "1234567890"[i]));
    // 0 while it cannot be told: a key pressed then may go nowhere.
    ASSERT_TRUE(testing::WaitUntil([&] {
      const X11WindowId focused = testing::FocusedX11Window();
      return focused != 0 && focused != host_;
    })) << i;
    PressKey("Escape");
    WaitForX11Focus(host_);
  }
}

// The line of the status, in a window of 900 x 760 pixels.
constexpr SDL_Rect kStatusLine{12, 722, 876, 28};

TEST_F(DemoWindow, KeyMCapturesTheMouseWhichIsFreeInADialog) {
  const std::string free = PixelsIn(host_, kStatusLine);
  PressKey("m");
  ASSERT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kStatusLine) != free; }));
  const std::string captured = PixelsIn(host_, kStatusLine);
  PressKey("1");
  const X11WindowId box = WaitForX11Window(kBoxTitle);
  WaitForX11Focus(box);
  testing::WaitForX11WindowToRest(box);
  const SDL_Rect size = testing::X11WindowGeometry(box);
  ClickAt(box, size.w - 72, size.h - 36);
  WaitForX11WindowGone(kBoxTitle);
  WaitForX11Focus(host_);
  EXPECT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kStatusLine) == captured; }));
  PressKey("m");
  EXPECT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kStatusLine) == free; }));
}

TEST_F(DemoWindow, KeyF11FillsTheScreenUnderADialogToo) {
  const auto fills_screen = [this] {
    const SDL_Rect area = testing::X11WindowGeometry(host_);
    return area.w == 1280 && area.h == 1024;
  };
  PressKey("F11");
  ASSERT_TRUE(testing::WaitUntil(fills_screen));
  PressKey("1");
  WaitForX11Focus(WaitForX11Window(kBoxTitle));
  EXPECT_TRUE(fills_screen());
  PressKey("Escape");
  WaitForX11Focus(host_);
  EXPECT_TRUE(fills_screen());
  PressKey("F11");
  EXPECT_TRUE(testing::WaitUntil([&] { return testing::X11WindowGeometry(host_).w == 900; }));
}

TEST_F(DemoWindow, KeyGShowsTheGuestThroughOpenGlAndBack) {
  const std::string plain = PixelsIn(host_, kStatusLine);
  PressKey("g");
  EXPECT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kStatusLine) != plain; }));
  ExpectAnimated();
  PressKey("g");
  EXPECT_TRUE(testing::WaitUntil([&] { return PixelsIn(host_, kStatusLine) == plain; }));
}

// In the test's own process, where the host can be asked.
class DemoHost : public testing::X11DisplayTest {};

TEST_F(DemoHost, DrawsWithItsOpenGlContextUnderEveryDialog) {
  const SdlSession session(VideoChoice::Display);
  const DemoCommands commands = MakeDemoCommands();
  HostWindow host(commands);
  const testing::X11Hands hands([&] {
    const X11WindowId window = WaitForX11Window(kHostTitle);
    WaitForX11Focus(window);
    PressKey("g");
    for (std::size_t i = 0; i < std::min<std::size_t>(commands.size(), 10); ++i) {
      PressKey(std::string(1, "1234567890"[i]));
      testing::WaitForX11Step("dialog " + std::to_string(i),
                              [&] { return testing::FocusedX11Window() != window; });
      SDL_Delay(200);  // Ten pictures of the guest.
      PressKey("Escape");
      WaitForX11Focus(window);
    }
    testing::CloseByWindowManager(window);
  });
  host.Run();
  EXPECT_EQ(host.View().Describe(), "shader: demo_crt.glsl");
  EXPECT_EQ(host.LostContexts(), 0);
}

TEST_F(DemoHost, KeyThatOpensADialogIsNotTypedIntoIt) {
  const SdlSession session(VideoChoice::Display);
  const DemoCommands commands = MakeDemoCommands();
  HostWindow host(commands);
  const testing::TextWatch watch;
  const testing::X11Hands hands([] {
    const X11WindowId window = WaitForX11Window(kHostTitle);
    WaitForX11Focus(window);
    PressKey("6");
    WaitForX11Focus(WaitForX11Window("Create HDD Image"));
    PressKey("7");
    PressKey("Escape");
    WaitForX11Focus(window);
    testing::CloseByWindowManager(window);
  });
  host.Run();
  EXPECT_THAT(watch.Texts(), ::testing::ElementsAre("7"));
}

class TourProgram : public testing::X11DisplayTest {
 protected:
  // What a picture shows of the guest above the shader dialog.
  std::string GuestIn(const std::string& picture, int height) const {
    return PixelsIn(folder_.path() / (picture + ".png"), {70, 12, 760, height});
  }

  TemporaryDirectory folder_;
};

TEST_F(TourProgram, ShaderAnimationChangesTheGuestPictureAndPutsItBack) {
  const ProgramResult result = testing::RunProgram(
      {QUINDLE_DEMO_PROGRAM, "tour", "--display", "--only", "shader", "--out", folder_.path()});
  ASSERT_EQ(result.exit_status, 0) << result.err;
  std::string before = GuestIn("demo-window", 280);
  for (int frame = 0; frame < 15; ++frame) {
    const std::string number = (frame < 10 ? "0" : "") + std::to_string(frame);
    const std::string shown = GuestIn("shader-animation-" + number, 280);
    EXPECT_TRUE(shown != before) << frame;
    before = shown;
  }
  EXPECT_TRUE(GuestIn("shader-over-demo-window", 40) == GuestIn("demo-window", 40));
}

class MessageProgram : public testing::X11DisplayTest {};

TEST_F(MessageProgram, PrintsTheClickedButton) {
  ChildProcess program({QUINDLE_DEMO_PROGRAM, "message", "--title", "Overwrite?", "--button",
                        "1:Yes:default", "--button", "2:No:cancel"});
  const X11WindowId box = WaitForX11Window("Overwrite?");
  WaitForX11Focus(box);
  testing::WaitForX11WindowToRest(box);
  const SDL_Rect size = testing::X11WindowGeometry(box);
  ClickAt(box, size.w - 160, size.h - 36);
  const ProgramResult result = WaitForProgram(&program);
  EXPECT_EQ(result.exit_status, 0);
  EXPECT_EQ(result.out,
            "{\"dialog\":\"message\",\"accepted\":true,\"button\":1,\"label\":\"Yes\"}\n");
  EXPECT_EQ(result.err, "");
}

TEST_F(MessageProgram, ClosedByTheWindowManagerIsCancelled) {
  ChildProcess program({QUINDLE_DEMO_PROGRAM, "message", "--title", "Overwrite?"});
  const X11WindowId box = WaitForX11Window("Overwrite?");
  WaitForX11Focus(box);
  testing::WaitForX11WindowToRest(box);
  testing::CloseByWindowManager(box);
  const ProgramResult result = WaitForProgram(&program);
  EXPECT_EQ(result.exit_status, 1);
  EXPECT_THAT(result.out, HasSubstr("\"button\":null"));
  EXPECT_EQ(result.err, "quindle_dialogs: cancelled\n");
}

}  // namespace
}  // namespace quindle::demo
