// The shader dialog in the hands of a user: the demo host's program under a window manager.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "command_table.h"
#include "support/temporary_directory.h"
#include "support/x11_display.h"

namespace quindle::testing {
namespace {

using demo::Json;
using ::testing::ElementsAre;
using ::testing::SizeIs;

std::vector<Json> JsonLines(const std::string& out) {
  std::vector<Json> lines;
  std::istringstream stream(out);
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(Json::parse(line));
  }
  return lines;
}

std::vector<double> ValuesOf(const Json& line) {
  std::vector<double> values;
  for (const Json& value : line.at("values")) {
    values.push_back(value.at("value").get<double>());
  }
  return values;
}

class ShaderX11 : public X11DisplayTest {
 protected:
  // Starts the program on `count` parameters of 0 .. 10 in steps of 0.5 that stand at 5.
  void Start(int count, const std::vector<std::string>& more = {}) {
    std::string text;
    for (int i = 0; i < count; ++i) {
      const std::string number = std::to_string(i);
      text += "#pragma parameter p" + number + " \"Label " + number + "\" 5 0 10 0.5\n";
    }
    std::vector<std::string> command = {QUINDLE_DEMO_PROGRAM, "shader",
                                        folder_.Write("test.glsl", text).string()};
    command.insert(command.end(), more.begin(), more.end());
    program_ = std::make_unique<ChildProcess>(command);
    dialog_ = WaitForX11Window("Shader Parameters");
    WaitForX11Focus(dialog_);
    testing::WaitForX11WindowToRest(dialog_);
  }

  // Applies and returns the values of the line that this prints, while the dialog stays open.
  std::vector<double> Apply() {
    const std::size_t before = Lines().size();
    PressKey("Return");
    return NextApply(before);
  }

  std::vector<double> NextApply(std::size_t before) {
    WaitForX11Step("the line of an Apply", [&] { return Lines().size() > before; });
    const std::vector<Json> lines = Lines();
    EXPECT_THAT(lines, SizeIs(before + 1));
    EXPECT_EQ(lines.back().at("event"), "apply");
    return ValuesOf(lines.back());
  }

  // The complete lines so far.
  std::vector<Json> Lines() const {
    const std::string out = program_->Output().out;
    return JsonLines(out.substr(0, out.rfind('\n') + 1));
  }

  ProgramResult End(const std::string& key) {
    PressKey(key);
    return WaitForProgram(program_.get());
  }

  TemporaryDirectory folder_;
  std::unique_ptr<ChildProcess> program_;
  X11WindowId dialog_ = 0;
};

TEST_F(ShaderX11, DraggedSliderIsAppliedAndEscapeTakesItBack) {
  Start(2);
  DragFromTo(dialog_, 400, 60, 315, 90);
  EXPECT_THAT(Apply(), ElementsAre(2.0, 5.0));
  DragFromTo(dialog_, 300, 140, 800, 140);
  EXPECT_THAT(Apply(), ElementsAre(2.0, 10.0));
  const ProgramResult result = End("Escape");
  EXPECT_EQ(result.exit_status, 1);
  const std::vector<Json> lines = JsonLines(result.out);
  ASSERT_THAT(lines, SizeIs(3));
  EXPECT_EQ(lines[2].at("accepted"), false);
  EXPECT_THAT(ValuesOf(lines[2]), ElementsAre(2.0, 10.0));
}

TEST_F(ShaderX11, WheelScrollsAndMovesTheRowUnderThePointer) {
  Start(10);
  // The notch scrolls by 40, which brings row 1 under y 100.
  TurnWheelAt(dialog_, 100, 100, -1);
  std::vector<double> expected(10, 5.0);
  expected[1] = 4.5;
  EXPECT_EQ(Apply(), expected);
  // Row 2 is now 40 pixels higher.
  ClickAt(dialog_, 315, 180);
  expected[2] = 2.0;
  EXPECT_EQ(Apply(), expected);
  TurnWheelAt(dialog_, 600, 100, 1);
  expected[1] = 5.0;
  EXPECT_EQ(Apply(), expected);
  End("Escape");
}

TEST_F(ShaderX11, ScrollBarIsDraggedToTheLastRow) {
  Start(10);
  DragFromTo(dialog_, 885, 100, 885, 400);
  // Scrolled by 408, the middle of row 9 is at y 372.
  ClickAt(dialog_, 315, 372);
  std::vector<double> expected(10, 5.0);
  expected[9] = 2.0;
  EXPECT_EQ(Apply(), expected);
  DragFromTo(dialog_, 885, 400, 885, 30);
  ClickAt(dialog_, 315, 60);
  expected[0] = 2.0;
  EXPECT_EQ(Apply(), expected);
  End("Escape");
}

TEST_F(ShaderX11, ResizedWindowKeepsItsButtonsInTheCorner) {
  Start(10);
  RunX11Tool({"xdotool", "windowsize", std::to_string(dialog_), "700", "600"});
  WaitForX11Step("the new size", [this] {
    const SDL_Rect client = X11WindowGeometry(dialog_);
    return client.w == 700 && client.h == 600;
  });
  testing::WaitForX11WindowToRest(dialog_);
  const std::size_t before = Lines().size();
  ClickAt(dialog_, 700 - 98 + 39, 600 - 39 + 13);
  EXPECT_EQ(NextApply(before), std::vector<double>(10, 5.0));
  // The scroll bar is where the new width puts it, and 308 is now the end.
  DragFromTo(dialog_, 700 - 10, 100, 700 - 10, 590);
  ClickAt(dialog_, 315, 20 + 9 * 80 + 40 - 308);
  EXPECT_EQ(Apply()[9], 2.0);
  ClickAt(dialog_, 700 - 192 + 39, 600 - 39 + 13);
  EXPECT_EQ(WaitForProgram(program_.get()).exit_status, 1);
}

TEST_F(ShaderX11, AppliedThenClosedIsAccepted) {
  Start(3, {"--set", "p1=7"});
  EXPECT_THAT(Apply(), ElementsAre(5.0, 7.0, 5.0));
  CloseByWindowManager(dialog_);
  const ProgramResult result = WaitForProgram(program_.get());
  EXPECT_EQ(result.exit_status, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(JsonLines(result.out).back().at("accepted"), true);
}

// --- The demo window -----------------------------------------------------------------------------

std::string ShaderNumberKey() {
  const demo::DemoCommands commands = demo::MakeDemoCommands();
  const auto shader = std::find_if(commands.begin(), commands.end(),
                                   [](const auto& command) { return command->Name() == "shader"; });
  return std::to_string((shader - commands.begin() + 1) % 10);
}

// Mean brightness of the guest picture in the demo window, with what covers it, 0 .. 1.
double GuestBrightness(X11WindowId host, const TemporaryDirectory& folder) {
  const std::string picture = (folder.path() / "host.png").string();
  SaveX11Screenshot(host, picture);
  return std::stod(RunX11Tool({"convert", picture, "-crop", "700x560+100+30", "-colorspace", "Gray",
                               "-format", "%[fx:mean]", "info:"}));
}

// Once it stays the same: where a dialog was, the window is empty until its next frame.
double SteadyGuestBrightness(X11WindowId host, const TemporaryDirectory& folder) {
  double brightness = GuestBrightness(host, folder);
  int alike = 0;
  WaitUntil(
      [&] {
        const double former = std::exchange(brightness, GuestBrightness(host, folder));
        alike = std::abs(brightness - former) < 0.01 * former ? alike + 1 : 0;
        return alike == 3;
      },
      std::chrono::seconds(10));
  return brightness;
}

// Opens the dialog from the demo window, sets the brightness to its least, applies it and closes
// the dialog; returns the guest picture's brightness afterwards divided by that before.
double DimTheGuest(const std::vector<std::string>& command, const TemporaryDirectory& folder) {
  ChildProcess program(command);
  const X11WindowId host = WaitForX11Window("Quindle demo host");
  WaitForX11Focus(host);
  const auto use_dialog = [host](bool dim) {
    PressKey(ShaderNumberKey());
    const X11WindowId dialog = WaitForX11Window("Shader Parameters");
    WaitForX11Focus(dialog);
    testing::WaitForX11WindowToRest(dialog);
    if (dim) {
      ClickAt(dialog, 260, 60);
    }
    PressKey("Return");
    CloseByWindowManager(dialog);
    WaitForX11WindowGone("Shader Parameters");
    WaitForX11Focus(host);
  };
  use_dialog(false);
  const double before = SteadyGuestBrightness(host, folder);
  use_dialog(true);
  double ratio = 1.0;
  // The next frame of the guest shows it; without OpenGL nothing changes however long one waits.
  WaitUntil(
      [&] {
        ratio = SteadyGuestBrightness(host, folder) / before;
        return ratio < 0.5;
      },
      std::chrono::seconds(3));
  return ratio;
}

TEST_F(ShaderX11, AppliedBrightnessShowsInTheGuestPicture) {
  EXPECT_LT(DimTheGuest({QUINDLE_DEMO_PROGRAM}, folder_), 0.5);
}

TEST_F(ShaderX11, WithoutOpenGlTheGuestPictureStaysAsItIs) {
  EXPECT_NEAR(
      DimTheGuest({"env", "SDL_OPENGL_LIBRARY=/nonexistent.so", QUINDLE_DEMO_PROGRAM}, folder_),
      1.0, 0.05);
}

}  // namespace
}  // namespace quindle::testing
