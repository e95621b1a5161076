// The shader subcommand run in this process, its dialog driven through the heartbeat, and the guest
// picture where there is no OpenGL.

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "command_line.h"
#include "command_table.h"
#include "demo_session.h"
#include "frontend/gui/shader_parameter_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "shader_view.h"
#include "support/dialog_test.h"

namespace quindle::demo {
namespace {

using quindle::testing::DialogScript;
using quindle::testing::DialogTest;
using quindle::testing::KeyDown;
using quindle::testing::Recorder;
using quindle::testing::TemporaryDirectory;
using ::testing::HasSubstr;
using ::testing::SizeIs;
using ::testing::StartsWith;

struct Ended {
  int status = -1;
  std::vector<Json> lines;
  std::string err;
};

Ended RunProgramWith(std::vector<std::string> arguments) {
  std::vector<const char*> argv = {"quindle_dialogs", "shader"};
  for (const std::string& argument : arguments) {
    argv.push_back(argument.c_str());
  }
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  Ended ended;
  ended.status = RunDemo(static_cast<int>(argv.size()), argv.data());
  std::istringstream out(::testing::internal::GetCapturedStdout());
  ended.err = ::testing::internal::GetCapturedStderr();
  for (std::string line; std::getline(out, line);) {
    ended.lines.push_back(Json::parse(line));
  }
  return ended;
}

Json ValueList(const std::vector<std::pair<std::string, double>>& values) {
  Json list = Json::array();
  for (const auto& [name, value] : values) {
    list.push_back({{"name", name}, {"value", value}});
  }
  return list;
}

class ShaderCommand : public ::testing::Test {
 protected:
  void SetUp() override {
    Recorder().Reset();
    folder_.Write("two.glsl",
                  "#pragma parameter gamma \"Gamma\" 2.2 1.0 3.0 0.1\n"
                  "#pragma parameter glow \"Glow\" 0.5 0 1 0\n");
    folder_.Write("two.glslp",
                  "shader0 = two.glsl\nparameters = \"gamma;glow\"\ngamma = 1.5\nglow = 0.25\n");
  }

  std::string File(const char* name) const { return (folder_.path() / name).string(); }

  TemporaryDirectory folder_;
};

TEST_F(ShaderCommand, PrintsALineForEachApplyAndTheResult) {
  DialogScript script;
  script.Wait(1)
      .Step([] { KeyDown(SDLK_RETURN); })
      .Step([] { quindle::testing::Click(260, 140); })
      .Step([] { KeyDown(SDLK_RETURN); })
      .Step([] { quindle::testing::Quit(); });
  const Ended ended = RunProgramWith({File("two.glsl")});
  EXPECT_EQ(ended.status, 0);
  EXPECT_EQ(ended.err, "");
  ASSERT_THAT(ended.lines, SizeIs(3));
  EXPECT_EQ(ended.lines[0],
            (Json{{"event", "apply"}, {"values", ValueList({{"gamma", 2.2}, {"glow", 0.5}})}}));
  EXPECT_EQ(ended.lines[1],
            (Json{{"event", "apply"}, {"values", ValueList({{"gamma", 2.2}, {"glow", 0.0}})}}));
  EXPECT_EQ(ended.lines[2], (Json{{"dialog", "shader"},
                                  {"accepted", true},
                                  {"file", File("two.glsl")},
                                  {"values", ValueList({{"gamma", 2.2}, {"glow", 0.0}})}}));
}

TEST_F(ShaderCommand, ReadsThePresetsOverrides) {
  DialogScript script;
  script.Wait(1).Step([] { KeyDown(SDLK_ESCAPE); });
  const Ended ended = RunProgramWith({File("two.glslp")});
  EXPECT_EQ(ended.status, 1);
  ASSERT_THAT(ended.lines, SizeIs(1));
  EXPECT_EQ(ended.lines[0].at("accepted"), false);
  EXPECT_EQ(ended.lines[0].at("values"), ValueList({{"gamma", 1.5}, {"glow", 0.25}}));
}

TEST_F(ShaderCommand, SetWinsOverThePresetAndTheLastSetCounts) {
  DialogScript script;
  script.Wait(1).Step([] { KeyDown(SDLK_ESCAPE); });
  const Ended ended =
      RunProgramWith({File("two.glslp"), "--set", "glow=0.5", "--set", "glow=0.75"});
  ASSERT_THAT(ended.lines, SizeIs(1));
  EXPECT_EQ(ended.lines[0].at("values"), ValueList({{"gamma", 1.5}, {"glow", 0.75}}));
}

TEST_F(ShaderCommand, RefusesWhatIsNoSetting) {
  for (const char* setting :
       {"gamma", "=1", "gamma=", "gamma=x", "gamma=1x", "gamma= 1", "gamma=1,5", "other=1"}) {
    const Ended ended = RunProgramWith({File("two.glsl"), "--set", setting});
    EXPECT_EQ(ended.status, 2) << setting;
    EXPECT_THAT(ended.err, StartsWith("quindle_dialogs: --set " + std::string(setting)));
    EXPECT_THAT(ended.lines, SizeIs(0));
  }
}

TEST_F(ShaderCommand, FileWithoutParametersIsReported) {
  folder_.Write("none.glsl", "void main() {}\n");
  const Ended ended = RunProgramWith({File("none.glsl"), "--set", "gamma=1"});
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.err, "quindle_dialogs: no parameters in " + File("none.glsl") + "\n");
  ASSERT_THAT(ended.lines, SizeIs(1));
  EXPECT_EQ(ended.lines[0].at("values"), Json::array());
  EXPECT_THAT(Recorder().simple_message_boxes(), SizeIs(1));
}

TEST_F(ShaderCommand, NeedsAFile) {
  EXPECT_EQ(RunProgramWith({}).status, 2);
}

// --- The demo window -----------------------------------------------------------------------------

class ShaderInHost : public DialogTest {
 protected:
  static DemoCommand* FindCommand(const DemoCommands& commands) {
    for (const auto& command : commands) {
      if (command->Name() == "shader") {
        return command.get();
      }
    }
    return nullptr;
  }
};

TEST_F(ShaderInHost, SaysPlainlyThatThereIsNoOpenGl) {
  const ShaderGuestView view("data/shaders/demo_crt.glsl");
  EXPECT_THAT(view.Describe(), StartsWith("shader not shown: no OpenGL context"));
}

TEST_F(ShaderInHost, SaysPlainlyThatTheFileIsMissing) {
  const ShaderGuestView view("data/shaders/none.glsl");
  EXPECT_EQ(view.Describe(), "shader not shown: cannot read data/shaders/none.glsl");
}

TEST_F(ShaderInHost, PictureIsShownAsItIsWithoutOpenGl) {
  const frontend::gui::ModalWindowBundle bundle = frontend::gui::CreateModalWindowBundle(
      nullptr, "picture", 0, 0, 320, 200, 0, frontend::gui::ModalRendererMode::Software);
  SDL_Renderer* const renderer = bundle.renderer.get();
  const GuestPicture picture;
  ShaderGuestView view("data/shaders/demo_crt.glsl");
  view.SetParameters({{"BRIGHTNESS", 0.2F}});
  const auto pixels_of = [&](GuestView* shown) {
    SDL_SetRenderDrawColor(renderer, 1, 2, 3, 255);
    SDL_RenderClear(renderer);
    shown->Draw(renderer, picture, {0, 0, 320, 200});
    std::vector<unsigned char> pixels(320 * 200 * 4);
    EXPECT_EQ(
        SDL_RenderReadPixels(renderer, nullptr, SDL_PIXELFORMAT_RGBA32, pixels.data(), 320 * 4), 0);
    return pixels;
  };
  PlainGuestView plain;
  const std::vector<unsigned char> expected = pixels_of(&plain);
  EXPECT_NE(expected, std::vector<unsigned char>(320 * 200 * 4));
  EXPECT_EQ(pixels_of(&view), expected);
}

TEST_F(ShaderInHost, CancelTakesTheAppliedValuesBack) {
  const DemoCommands commands = MakeDemoCommands();
  DemoCommand* const command = FindCommand(commands);
  ASSERT_NE(command, nullptr);
  DemoSession session;
  session.host = MakeParent();
  const auto shown_brightness = [](const Json& result) {
    return result.at("values").at(0).at("value").get<double>();
  };
  const auto show = [&](const std::function<void(DialogDriver&)>& act) {
    quindle::testing::FlushEvents();
    DialogDriver user;
    act(user);
    Json result = command->ShowInHost(session);
    EXPECT_EQ(user.failure(), "");
    return result;
  };
  const auto peek = [&] {
    return shown_brightness(show([](DialogDriver& user) { user.PressEscape(); }));
  };
  const auto brighten = [](DialogDriver& user) -> DialogDriver& {
    return user.SetParameter("BRIGHTNESS", 2.0F).Apply();
  };
  EXPECT_EQ(peek(), 1.1) << "the preset's value";
  const Json escaped = show([&](DialogDriver& user) { brighten(user).PressEscape(); });
  EXPECT_FALSE(escaped.at("accepted").get<bool>());
  EXPECT_EQ(peek(), 1.1);
  const Json closed = show([&](DialogDriver& user) { brighten(user).Close(); });
  EXPECT_TRUE(closed.at("accepted").get<bool>());
  EXPECT_EQ(peek(), 2.0);
}

// What is shipped must fit together: the shader's parameters, the preset's, and the uniforms.
TEST(DemoShader, DeclaresWhatItUsesAndThePresetNamesIt) {
  const auto specs = frontend::gui::ParseShaderParameterSpecs("data/shaders/demo_crt.glslp");
  std::vector<std::string> names;
  for (const auto& spec : specs) {
    names.push_back(spec.name);
    EXPECT_GE(spec.default_value, spec.min_value);
    EXPECT_LE(spec.default_value, spec.max_value);
  }
  EXPECT_THAT(names,
              ::testing::ElementsAre("BRIGHTNESS", "CONTRAST", "GAMMA", "SCANLINE", "CURVATURE"));
  const auto overrides = frontend::gui::ParseGlslpParameterOverrides("data/shaders/demo_crt.glslp");
  EXPECT_THAT(overrides, SizeIs(4));
  for (const auto& value : overrides) {
    EXPECT_THAT(names, ::testing::Contains(value.name));
  }
}

}  // namespace
}  // namespace quindle::demo
