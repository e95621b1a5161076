// Names of every script, picked by a user and handed on from dialog to dialog.

#include <SDL.h>
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>

#include "frontend/gui/hdd_create_dialog.h"
#include "frontend/gui/screenshot_save_dialog.h"
#include "frontend/gui/sdl_pickers.h"
#include "frontend/gui/sdl_ui_font_cache.h"
#include "frontend/gui/settings_dialog.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "support/temporary_directory.h"
#include "utils/path_text.h"
#include "windows/deep_folder.h"
#include "windows/names_of_many_scripts.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using frontend::gui::testing::DialogDriver;
using utils::path_from_text;
using utils::text_from_path;

constexpr const char* kFolderName = "Größe дом ゲーム \U0001F4BE";

// As a host does it that knows nothing but UTF-8: with SDL.
bool MakeFile(const std::string& path) {
  const std::unique_ptr<SDL_RWops, int (*)(SDL_RWops*)> file(SDL_RWFromFile(path.c_str(), "wb"),
                                                             SDL_RWclose);
  return file != nullptr && SDL_RWwrite(file.get(), "x", 1, 1) == 1;
}

class PickedPath : public ::testing::TestWithParam<char> {
 protected:
  void SetUp() override { ASSERT_EQ(SDL_Init(SDL_INIT_VIDEO), 0) << SDL_GetError(); }
  void TearDown() override {
    ShutdownSdlUiCachedFonts();
    TTF_Quit();
    SDL_Quit();
  }

  // With the separators of this run throughout.
  static std::string InForm(std::string text) {
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c == '/' || c == '\\'; }, GetParam());
    return text;
  }

  std::string Root() const { return InForm(text_from_path(folder_.path())); }

  TemporaryDirectory folder_;
};

TEST_P(PickedPath, IsThatOfTheFileInEveryScript) {
  for (const char* name : kNamesOfManyScripts) {
    folder_.Write(path_from_text(kFolderName) / path_from_text(name), "");
  }
  for (const char* name : kNamesOfManyScripts) {
    DialogDriver driver;
    driver.OpenFolder(kFolderName).PickFile(name);
    const std::string picked = ShowSimpleFloppyFilePicker(nullptr, Root());
    EXPECT_EQ(driver.failure(), "");
    EXPECT_EQ(picked, InForm(Root() + "/" + kFolderName + "/" + name));
    EXPECT_TRUE(MakeFile(picked)) << picked;
  }
}

TEST_P(PickedPath, GoesUpAndDown) {
  folder_.Write(path_from_text(kFolderName) / path_from_text(kJapaneseName), "");
  DialogDriver driver;
  driver.OpenFolder("..").OpenFolder(kFolderName).PickFile(kJapaneseName);
  const std::string start = InForm(Root() + "/" + kFolderName);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, start), InForm(start + "/" + kJapaneseName));
  EXPECT_EQ(driver.failure(), "");
}

TEST_P(PickedPath, StartsAtTheFolderOfAFile) {
  folder_.Write(path_from_text(kFolderName) / path_from_text(kJapaneseName), "");
  const std::string file = InForm(Root() + "/" + kFolderName + "/" + kJapaneseName);
  DialogDriver driver;
  driver.PickFile(kJapaneseName);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, file), file);
  EXPECT_EQ(driver.failure(), "");
}

TEST_P(PickedPath, IsThatOfADeepFolder) {
  const DeepFolder deep(folder_.path(), L"a.img");
  const std::string file = InForm(text_from_path(deep.file()));
  DialogDriver driver;
  driver.PickFile("a.img");
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, InForm(text_from_path(deep.path()))), file);
  EXPECT_EQ(driver.failure(), "");
}

TEST_P(PickedPath, BecomesTheTargetOfADiskImage) {
  const fs::path folder =
      folder_.MakeFolder(path_from_text(kFolderName) / path_from_text("ディスク"));
  const std::string start = InForm(Root() + "/" + kFolderName);
  DialogDriver driver;
  driver.ChooseFolder().OpenFolder("ディスク").SelectFolder().EnterFileName("a.img").Create();
  const HddCreateDialogResult result = ShowSimpleHddCreateDialog(nullptr, start, 1);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(result.folder, InForm(start + "/ディスク"));
  const std::string target = BuildHddCreateTargetPath(result.folder, result.file_name);
  EXPECT_EQ(target, InForm(start + "/ディスク/a.img"));
  EXPECT_TRUE(MakeFile(target));
  EXPECT_TRUE(fs::exists(folder / "a.img"));
}

TEST_P(PickedPath, BecomesTheTargetOfAScreenshot) {
  (void)folder_.MakeFolder(path_from_text(kFolderName));
  DialogDriver driver;
  driver.ChooseFolder().OpenFolder(kFolderName).SelectFolder().EnterFileName("b.png").Save();
  const ScreenshotSaveDialogResult result =
      ShowScreenshotSaveDialog(nullptr, Root(), "a.png", ScreenshotSaveFormat::Png, 90, 6, true);
  EXPECT_EQ(driver.failure(), "");
  ASSERT_TRUE(result.accepted);
  EXPECT_EQ(result.folder, InForm(Root() + "/" + kFolderName));
  EXPECT_TRUE(MakeFile(result.folder + GetParam() + result.file_name));
  EXPECT_TRUE(fs::exists(folder_.path() / path_from_text(kFolderName) / "b.png"));
}

TEST_P(PickedPath, BecomesTheFontAndIsWhereTheNextSearchBegins) {
  folder_.Write(path_from_text(kFolderName) / path_from_text("шрифт.ttf"), "");
  folder_.Write(path_from_text(kFolderName) / path_from_text("フォント.otf"), "");
  SettingsDialogValues values;
  values.font_mode = "ttf-custom";
  values.custom_font_path = InForm(Root() + "/" + kFolderName + "/шрифт.ttf");
  DialogDriver driver;
  driver.OpenPage("Font Mode").BrowseFont().PickFile("フォント.otf").Apply().PressEscape();
  std::string chosen;
  ShowSettingsDialog(nullptr, 1.0F, values, [&chosen](const SettingsDialogValues& applied) {
    chosen = applied.custom_font_path;
  });
  EXPECT_EQ(driver.failure(), "");
  EXPECT_EQ(chosen, InForm(Root() + "/" + kFolderName + "/フォント.otf"));
}

INSTANTIATE_TEST_SUITE_P(Forms, PickedPath, ::testing::Values('/', '\\'), [](const auto& form) {
  return form.param == '/' ? "Slashes" : "Backslashes";
});

// What no file can be called counts as missing: the working directory is shown.
TEST_P(PickedPath, StartsInTheWorkingDirectoryWhereTheTextIsNoPath) {
  for (const std::string& start :
       {std::string("C:\\\xFF"), std::string("\xFF"), Root() + "/missing"}) {
    DialogDriver driver;
    driver.SelectFolder();
    FolderPickerOptions options;
    options.start_dir = start;
    EXPECT_EQ(ShowSimpleFolderPicker(nullptr, options), text_from_path(fs::current_path()));
    EXPECT_EQ(driver.failure(), "");
  }
}

}  // namespace
}  // namespace quindle::testing
