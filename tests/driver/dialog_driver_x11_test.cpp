// The driver in real windows.

#include <gtest/gtest.h>

#include "driver/driven_hosts.h"
#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "support/temporary_directory.h"
#include "support/x11_display.h"

namespace quindle::testing {
namespace {

using namespace frontend::gui;
using frontend::gui::testing::DialogDriver;

class DialogDriverX11 : public X11DialogTest {};

TEST_F(DialogDriverX11, AnswersTwoQuestions) {
  DialogDriver driver;
  driver.PressButton(2).PressButton(1);
  EXPECT_EQ(SdlMessageBox(MakeQuestion("First")).Show(Parent(), 1.0F), 2);
  EXPECT_EQ(SdlMessageBox(MakeQuestion("Second")).Show(Parent(), 1.0F), 1);
  EXPECT_EQ(driver.failure(), "");
}

TEST_F(DialogDriverX11, FillsFormWithNestedPicker) {
  TemporaryDirectory folder;
  folder.Write("disks/a.img", "");
  DialogDriver driver;
  driver.EnterDiskSize("7").ChooseFolder().OpenFolder("disks").SelectFolder().Create();
  const HddCreateDialogResult result =
      ShowSimpleHddCreateDialog(Parent(), folder.path().string(), 32);
  EXPECT_EQ(driver.failure(), "");
  EXPECT_EQ(result.size_mb, 7U);
  EXPECT_EQ(result.folder, (folder.path() / "disks").string());
}

// Wherever the user's pointer is.
TEST_F(DialogDriverX11, ChoosesSettings) {
  SettingsDialogValues applied;
  DialogDriver driver;
  driver.OpenPage("Target FPS").Choose("60 FPS").OpenPage("HDD Sounds");
  driver.MoveSlider("Volume", 0.25).Apply().Close();
  ShowSettingsDialog(Parent(), 1.0F, {},
                     [&applied](const SettingsDialogValues& values) { applied = values; });
  EXPECT_EQ(driver.failure(), "");
  EXPECT_EQ(applied.target_fps, 60);
  EXPECT_DOUBLE_EQ(applied.hdd_sounds_volume, 0.25);
}

}  // namespace
}  // namespace quindle::testing
