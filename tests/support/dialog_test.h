#pragma once

// The fixture of tests that run whole dialogs without a display, on SDL's dummy video driver. Each
// test starts with SDL freshly initialised, an empty queue, an empty font cache, a recorder without
// memory and the source folder (where data/ttf lies) as working directory; at its end nothing may
// be alive.
//
//   class AboutDialogTest : public DialogTest {};
//
//   TEST_F(AboutDialogTest, EscapeCloses) {
//     DialogScript script;
//     script.Wait().Step([] { KeyDown(SDLK_ESCAPE); });
//     ShowSimpleAboutDialog(MakeParent(), 1.0F);
//     EXPECT_EQ(Recorder().windows().back().x, 100 + 80);
//   }
//
// The dummy driver knows no focus: SDL_GetMouseFocus answers what Recorder().SetPointer says.

#include <SDL.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "frontend/gui/sdl_modal_runtime.h"
#include "support/call_recorder.h"
#include "support/dialog_script.h"
#include "support/temporary_directory.h"

namespace quindle::testing {

// Changes the working directory while it lives.
class ScopedWorkingDirectory {
 public:
  explicit ScopedWorkingDirectory(const std::filesystem::path& directory);
  ~ScopedWorkingDirectory();
  ScopedWorkingDirectory(const ScopedWorkingDirectory&) = delete;
  ScopedWorkingDirectory& operator=(const ScopedWorkingDirectory&) = delete;
  ScopedWorkingDirectory(ScopedWorkingDirectory&&) = delete;
  ScopedWorkingDirectory& operator=(ScopedWorkingDirectory&&) = delete;

 private:
  std::filesystem::path former_;
};

// A fresh working directory without data/ttf. System fonts may still be there: hide them with
// Recorder().HideSystemFonts().
class ScopedEmptyWorkingDirectory {
 public:
  const std::filesystem::path& path() const { return directory_.path(); }

 private:
  TemporaryDirectory directory_;
  ScopedWorkingDirectory working_directory_{directory_.path()};
};

// The folder of the project's sources.
std::filesystem::path SourceDirectory();

class DialogTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  // A shown window at (100, 100), 640 x 480, that is not the library's; the same one each time.
  SDL_Window* MakeParent();

 private:
  frontend::gui::OwnedSdlWindow parent_;
};

}  // namespace quindle::testing
