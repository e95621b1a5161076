#include "guide/testing_your_dialogs_2.inc"

#include "block_test.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/shader_parameter_dialog.h"

namespace {

namespace gui = quindle::frontend::gui;

// What the host's menu came to.
struct MenuResults {
  std::string floppy;
  gui::HddCreateDialogResult disk;
  gui::ScreenshotSaveDialogResult picture;
  gui::ShaderDialogResult shader;
  gui::SettingsDialogValues settings;
  int slices = 0;
};
MenuResults g_results;

}  // namespace

void RunHostSlice() {
  ++g_results.slices;
}

void UseTheHostsMenu() {
  g_results.floppy = gui::ShowSimpleFloppyFilePicker(nullptr, "here");
  g_results.disk = gui::ShowSimpleHddCreateDialog(nullptr, "here", 32);
  g_results.picture = gui::ShowScreenshotSaveDialog(nullptr, "here", "a",
                                                    gui::ScreenshotSaveFormat::Png, 90, 2, true);
  g_results.shader = gui::ShowShaderParameterDialog(nullptr, "here/a.glsl", 1.0F, {}, {});
  gui::ShowSettingsDialog(nullptr, 1.0F, {}, [](const gui::SettingsDialogValues& values) {
    g_results.settings = values;
  });
}

namespace quindle::testing {
namespace {

class GuideDriverEveryDialog : public DialogTest {};

TEST_F(GuideDriverEveryDialog, DoesWhatItSays) {
  const TemporaryDirectory folder;
  folder.Write("here/games/a.img", "");
  folder.Write("here/disks/old.img", "");
  folder.Write("here/a.glsl", "#pragma parameter GAMMA \"Gamma\" 1.0 0.1 5.0 0.1\n");
  std::filesystem::create_directory_symlink(SourceDirectory() / "data", folder.path() / "data");
  const ScopedWorkingDirectory here(folder.path());
  g_results = {};
  EXPECT_EQ(TestEveryDialog(), "");
  gui::SetModalDialogHeartbeat({});
  EXPECT_EQ(g_results.floppy, "here/games/a.img");
  EXPECT_EQ(g_results.disk.size_mb, 64U);
  EXPECT_EQ(g_results.disk.file_name, "dos.img");
  EXPECT_EQ(g_results.disk.folder, "here/disks");
  EXPECT_EQ(g_results.picture.format, gui::ScreenshotSaveFormat::Jpeg);
  EXPECT_EQ(g_results.picture.jpeg_quality, 80);
  ASSERT_EQ(g_results.shader.values.size(), 1U);
  EXPECT_NEAR(g_results.shader.values[0].value, 2.2F, 0.0001);
  EXPECT_TRUE(g_results.shader.applied);
  EXPECT_EQ(g_results.settings.target_fps, 60);
  EXPECT_GT(g_results.slices, 20);
}

}  // namespace
}  // namespace quindle::testing
