// The four pickers: their windows, texts, start directories, rows and labels.

#include "frontend/gui/sdl_pickers.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <string>
#include <vector>

#include "dialogs/form_checks.h"
#include "dialogs/picker_view.h"
#include "frontend/gui/testing/dialog_driver.h"
#include "support/dialog_test.h"

namespace quindle::testing {
namespace {

namespace fs = std::filesystem;
using namespace frontend::gui;  // NOLINT(google-build-using-namespace)
using frontend::gui::testing::DialogDriver;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

using ShowFilePicker = std::string (*)(SDL_Window*, const std::string&);

// What one showing looked like.
struct Showing {
  WindowRecord window;
  std::vector<std::string> texts;
  PickerView view;
  std::string result;
};

template <typename Show>
Showing ShowAndPlay(Show show, const std::function<void()>& last_step) {
  FlushEvents();
  Showing showing;
  DialogScript script;
  script.Wait().Step([&showing, &last_step] {
    showing.window = Recorder().windows().back();
    showing.texts = Recorder().last_frame().Texts();
    showing.view = LookAtPicker();
    last_step();
  });
  showing.result = show();
  return showing;
}

void Cancel() {
  KeyDown(SDLK_ESCAPE);
}

class PickersTest : public DialogTest {
 protected:
  Showing Look(ShowFilePicker show, const std::string& start) {
    return ShowAndPlay([&] { return show(nullptr, start); }, Cancel);
  }
  Showing LookAtFolders(const FolderPickerOptions& options) {
    return ShowAndPlay([&] { return ShowSimpleFolderPicker(nullptr, options); }, Cancel);
  }

  TemporaryDirectory folder_;
  const std::string dir_ = folder_.path().string();
};

// --- File pickers --------------------------------------------------------------------------------

struct FilePickerCase {
  ShowFilePicker show;
  const char* title;
  const char* hint;
  Uint32 flags;
  const char* fallback;
};
constexpr FilePickerCase kFilePickers[] = {
    {ShowSimpleFloppyFilePicker, "Load Floppy Image", "Select floppy image (*.ima, *.img)", 0x08,
     "floppies"},
    {ShowSimpleShaderFilePicker, "Select Shader",
     "Select shader (*.glsl, *.glslp, *.frag, *.vert, *.fs, *.vs)", 0x28, "."},
    {ShowSimpleTtfFilePicker, "Select TTF Font", "Select font (*.ttf, *.otf)", 0x28, "data/ttf"},
};

TEST_F(PickersTest, FilePickersHaveTheirOwnWindows) {
  for (const FilePickerCase& test : kFilePickers) {
    SDL_Window* parent = MakeParent();
    const Showing showing = ShowAndPlay([&] { return test.show(parent, dir_); }, Cancel);
    EXPECT_EQ(showing.window.title, test.title);
    EXPECT_EQ(showing.window.w, 760);
    EXPECT_EQ(showing.window.h, 520);
    EXPECT_EQ(showing.window.flags, test.flags) << test.title;
    EXPECT_EQ(showing.window.modal_for, parent);
    EXPECT_THAT(showing.texts, ElementsAre(test.hint, dir_, "[DIR] ..", "Cancel", "Open"));
    EXPECT_EQ(showing.result, "");
    EXPECT_THAT(Recorder().last_frame().Fills({70, 76, 84, 255}),
                ElementsAre(SDL_Rect{592, 482, 70, 30}, SDL_Rect{672, 482, 70, 30}));
  }
}

TEST_F(PickersTest, OwnTextsAreWholeInEverySystemFont) {
  InEachSystemFont([this] {
    for (const FilePickerCase& test : kFilePickers) {
      Look(test.show, dir_);
      ExpectWholeTexts(Recorder().last_frame(), {test.hint, "Cancel", "Open"});
    }
    FolderPickerOptions options;
    options.start_dir = dir_;
    LookAtFolders(options);
    ExpectWholeTexts(Recorder().last_frame(), {options.hint, "Cancel", "Select"});
  });
}

TEST_F(PickersTest, FilePickersStartInTheirFallbackDirectory) {
  for (const FilePickerCase& test : kFilePickers) {
    const ScopedWorkingDirectory here(folder_.MakeFolder(std::string("with ") + test.title));
    fs::create_directories(test.fallback);
    EXPECT_EQ(Look(test.show, "").view.directory, test.fallback);
  }
}

TEST_F(PickersTest, FilePickersStartInTheWorkingDirectoryWithoutTheirFallback) {
  const ScopedWorkingDirectory here(dir_);
  EXPECT_EQ(Look(ShowSimpleFloppyFilePicker, "").view.directory, dir_);
  EXPECT_EQ(Look(ShowSimpleTtfFilePicker, "").view.directory, dir_);
}

TEST_F(PickersTest, FilePickersStartBesideAFile) {
  folder_.Write("x/preset.glslp", "");
  EXPECT_EQ(Look(ShowSimpleShaderFilePicker, dir_ + "/x/preset.glslp").view.directory, dir_ + "/x");
}

TEST_F(PickersTest, RelativeStartGivesARelativeResult) {
  const ScopedWorkingDirectory here(dir_);
  folder_.Write("floppies/disk.img", "");
  const auto show = [] { return ShowSimpleFloppyFilePicker(nullptr, ""); };
  const Showing showing = ShowAndPlay(show, [] { KeyDown(SDLK_RETURN); });
  EXPECT_THAT(showing.view.labels, ElementsAre("[IMG] disk.img")) << "no way up from here";
  EXPECT_EQ(showing.result, "floppies/disk.img");
}

TEST_F(PickersTest, AbsoluteStartGivesAnAbsoluteResult) {
  folder_.Write("disk.img", "");
  DialogDriver user;
  user.PickFile("disk.img");
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, dir_), dir_ + "/disk.img");
  EXPECT_EQ(user.failure(), "");
}

TEST_F(PickersTest, FloppiesAreListedAndLabelled) {
  folder_.Write("b.IMG", "");
  folder_.Write("A.ima", "");
  folder_.Write("c.txt", "");
  folder_.Write("Zed/x", "");
  EXPECT_THAT(Look(ShowSimpleFloppyFilePicker, dir_).view.labels,
              ElementsAre("[DIR] ..", "[DIR] Zed", "[IMG] A.ima", "[IMG] b.IMG"));
}

TEST_F(PickersTest, ShadersAreListedAndLabelled) {
  for (const char* name :
       {"a.glslp", "a.glsl", "b.fs", "c.vert", "d.frag", "e.vs", "F.GLSLP", "g.ttf", "h"}) {
    folder_.Write(name, "");
  }
  folder_.Write("dir.glslp/x", "");
  EXPECT_THAT(
      Look(ShowSimpleShaderFilePicker, dir_).view.labels,
      ElementsAre("[DIR] ..", "[DIR] dir.glslp", "[SHD] a.glsl", "[PST] a.glslp", "[SHD] b.fs",
                  "[SHD] c.vert", "[SHD] d.frag", "[SHD] e.vs", "[PST] F.GLSLP"));
}

TEST_F(PickersTest, FontsAreListedAndLabelled) {
  for (const char* name : {"X.OTF", "y.ttf", "z.img"}) {
    folder_.Write(name, "");
  }
  folder_.Write("dir.otf/x", "");
  EXPECT_THAT(Look(ShowSimpleTtfFilePicker, dir_).view.labels,
              ElementsAre("[DIR] ..", "[DIR] dir.otf", "[OTF] X.OTF", "[TTF] y.ttf"));
}

TEST_F(PickersTest, OpenOnADirectoryOpensIt) {
  folder_.Write("sub/disk.img", "");
  FlushEvents();
  DialogScript script;
  script.Wait()
      .Step([] {
        KeyDown(SDLK_DOWN);
        Click(700, 490);
      })
      .Step([this] {
        EXPECT_EQ(LookAtPicker().directory, dir_ + "/sub");
        KeyDown(SDLK_DOWN);
        Click(700, 490);
      });
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, dir_), dir_ + "/sub/disk.img");
}

TEST_F(PickersTest, FolderRemovedWhileShownCanStillBeLeft) {
  folder_.Write("gone/sub/disk.img", "");
  FlushEvents();
  DialogScript script;
  script.Wait()
      .Step([this] {
        fs::remove_all(folder_.path() / "gone");
        KeyDown(SDLK_DOWN);
        KeyDown(SDLK_RETURN);
      })
      .Step([this] {
        EXPECT_EQ(LookAtPicker().directory, dir_ + "/gone/sub");
        EXPECT_THAT(LookAtPicker().labels, ElementsAre("[DIR] .."));
        KeyDown(SDLK_RETURN);
        KeyDown(SDLK_RETURN);
      })
      .Step([this] {
        EXPECT_EQ(LookAtPicker().directory, dir_);
        Cancel();
      });
  ShowSimpleFloppyFilePicker(nullptr, dir_ + "/gone");
}

TEST_F(PickersTest, LinkCircleIsFollowedStepByStep) {
  folder_.Write("a/x", "");
  fs::create_symlink("..", folder_.path() / "a" / "up");
  FlushEvents();
  DialogScript script;
  const auto open_first_folder = [] {
    KeyDown(SDLK_DOWN);
    KeyDown(SDLK_RETURN);
  };
  script.Wait().Repeat(60, open_first_folder).Step([] {
    EXPECT_THAT(LookAtPicker().directory, ::testing::EndsWith("/a/up/a/up"));
    KeyDown(SDLK_RETURN);
  });
  script.Step([] { EXPECT_THAT(LookAtPicker().directory, ::testing::EndsWith("/a/up/a")); });
  script.Step(Cancel);
  EXPECT_EQ(ShowSimpleFloppyFilePicker(nullptr, dir_), "");
}

// --- Folder picker -------------------------------------------------------------------------------

TEST(FolderPickerOptions, HoldTheDefaults) {
  const FolderPickerOptions options;
  EXPECT_EQ(options.title, "Select Folder");
  EXPECT_EQ(options.hint, "Select destination folder");
  EXPECT_EQ(options.accept_label, "Select");
  EXPECT_EQ(options.cancel_label, "Cancel");
  EXPECT_EQ(options.start_dir, "");
}

TEST_F(PickersTest, FolderPickerHasItsOwnWindow) {
  const Showing showing = LookAtFolders({"T", "H", "A", "C", dir_});
  EXPECT_EQ(showing.window.title, "T");
  EXPECT_EQ(showing.window.w, 780);
  EXPECT_EQ(showing.window.h, 540);
  EXPECT_EQ(showing.window.flags, Uint32{0x08});
  EXPECT_THAT(showing.texts, ElementsAre("H", dir_, "[DIR] ..", "C", "A"));
  EXPECT_THAT(Recorder().last_frame().Fills({70, 76, 84, 255}),
              ElementsAre(SDL_Rect{580, 498, 86, 34}, SDL_Rect{676, 498, 86, 34}));
}

TEST_F(PickersTest, EmptyFieldsOfTheFolderPickerMeanDefaults) {
  const ScopedWorkingDirectory here(dir_);
  const FolderPickerOptions empty{"", "", "", "", ""};
  const Showing showing =
      ShowAndPlay([&] { return ShowSimpleFolderPicker(nullptr, empty); }, [] { Click(700, 510); });
  EXPECT_EQ(showing.window.title, "Select Folder");
  EXPECT_THAT(showing.texts,
              ElementsAre("Select destination folder", dir_, "[DIR] ..", "Cancel", "Select"));
  EXPECT_EQ(showing.result, dir_);
}

TEST_F(PickersTest, FolderPickerListsFoldersAlone) {
  folder_.Write("disk.img", "");
  folder_.Write("b/x", "");
  folder_.Write("A/x", "");
  FolderPickerOptions options;
  options.start_dir = dir_;
  EXPECT_THAT(LookAtFolders(options).view.labels, ElementsAre("[DIR] ..", "[DIR] A", "[DIR] b"));
}

TEST_F(PickersTest, FolderPickerReturnsTheFolderShown) {
  folder_.Write("sub/x", "");
  FolderPickerOptions options;
  options.start_dir = dir_;
  DialogDriver user;
  user.PressKey(SDLK_DOWN).SelectFolder().OpenFolder("sub").SelectFolder();
  EXPECT_EQ(ShowSimpleFolderPicker(nullptr, options), dir_) << "not the one selected in the list";
  EXPECT_EQ(ShowSimpleFolderPicker(nullptr, options), dir_ + "/sub");
  EXPECT_EQ(user.failure(), "");
}

TEST_F(PickersTest, FolderPickerNeedsAWorkingDirectoryOnlyWithoutStart) {
  const ScopedWorkingDirectory here(folder_.MakeFolder("gone"));
  fs::remove(folder_.path() / "gone");
  EXPECT_THROW(ShowSimpleFolderPicker(nullptr, {}), fs::filesystem_error);
  EXPECT_THAT(Recorder().windows(), IsEmpty());
  FolderPickerOptions options;
  options.start_dir = dir_;
  EXPECT_EQ(LookAtFolders(options).view.directory, dir_);
}

TEST_F(PickersTest, RootHasNoWayUp) {
  FolderPickerOptions options;
  options.start_dir = "/";
  const PickerView view = LookAtFolders(options).view;
  EXPECT_THAT(view.First(), StartsWith("[DIR] "));
  EXPECT_NE(view.First(), "[DIR] ..");
}

TEST_F(PickersTest, PickersUseOneFontOfTheCache) {
  Look(ShowSimpleFloppyFilePicker, dir_);
  Look(ShowSimpleTtfFilePicker, dir_);
  ASSERT_EQ(Recorder().font_requests().size(), 1U);
  EXPECT_EQ(Recorder().font_requests()[0].size, 15);
}

}  // namespace
}  // namespace quindle::testing
