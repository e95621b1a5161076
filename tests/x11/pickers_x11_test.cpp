// The pickers as a user meets them: the demo program's windows, driven by keys and mouse.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/temporary_directory.h"
#include "support/x11_display.h"

namespace quindle::testing {
namespace {

using nlohmann::json;

constexpr const char* kFloppyTitle = "Load Floppy Image";
constexpr const char* kShaderTitle = "Select Shader";
constexpr const char* kFolderTitle = "Select Folder";
constexpr int kInTrack = 744;  // Of the scroll bar in a window of 760 pixels.

constexpr int RowY(int row_on_screen) {
  return 56 + 24 * row_on_screen + 12;
}

// What a picker of the demo program printed, and how the program ended.
struct Answer {
  json line;
  int exit_status = -1;
};

class PickersX11 : public X11DisplayTest {
 protected:
  // Starts a picker and plays `steps` in its window once it has the focus.
  Answer Pick(const std::string& picker, const std::string& start, const std::string& title,
              const std::function<void(X11WindowId)>& steps) {
    ChildProcess program({QUINDLE_DEMO_PROGRAM, picker, "--start", start});
    const X11WindowId window = WaitForX11Window(title);
    WaitForX11Focus(window);
    steps(window);
    const ProgramResult result = WaitForProgram(&program);
    return {json::parse(result.out), result.exit_status};
  }

  Answer PickFloppy(const std::function<void(X11WindowId)>& steps) {
    return Pick("floppy", folder_.path().string(), kFloppyTitle, steps);
  }

  // "disk 00.img", "disk 01.img", ...
  void WriteDisks(int count, const std::string& folder = ".") const {
    for (int i = 0; i < count; ++i) {
      char name[32];
      std::snprintf(name, sizeof name, "disk %02d.img", i);
      folder_.Write(folder + "/" + name, "");
    }
  }

  std::string Path(const std::string& name) const { return (folder_.path() / name).string(); }

  TemporaryDirectory folder_;
};

TEST_F(PickersX11, KeysChooseAFile) {
  WriteDisks(5);
  const Answer answer = PickFloppy([](X11WindowId) {
    for (const char* key : {"Down", "Down", "Down", "Up", "Return"}) {
      PressKey(key);
    }
  });
  EXPECT_EQ(answer.line.at("path"), Path("disk 01.img"));
  EXPECT_EQ(answer.exit_status, 0);
}

TEST_F(PickersX11, WheelScrollsAndAClickSelects) {
  WriteDisks(40);
  const Answer answer = PickFloppy([](X11WindowId window) {
    TurnWheelAt(window, 200, 200, -6);
    TurnWheelAt(window, 200, 200, 1);
    ClickAt(window, 200, RowY(2));
    PressKey("Return");
  });
  EXPECT_EQ(answer.line.at("path"), Path("disk 06.img"));  // Row 7; row 0 leads to the parent.
}

TEST_F(PickersX11, DoubleClickOpensAFolder) {
  WriteDisks(5, "games");
  const Answer answer = PickFloppy([](X11WindowId window) {
    DoubleClickAt(window, 200, RowY(1));
    PressKey("Return");  // The double click's last release selected a row of the new listing.
  });
  EXPECT_EQ(answer.line.at("path"), Path("games/disk 00.img"));
}

TEST_F(PickersX11, DoubleClickChoosesAFile) {
  WriteDisks(5);
  const Answer answer = PickFloppy([](X11WindowId window) { DoubleClickAt(window, 200, RowY(3)); });
  EXPECT_EQ(answer.line.at("path"), Path("disk 02.img"));
}

TEST_F(PickersX11, ThumbIsDraggedToTheEnd) {
  WriteDisks(99);
  const Answer answer = PickFloppy([](X11WindowId window) {
    DragFromTo(window, kInTrack, 80, kInTrack, 500);
    ClickAt(window, 200, RowY(16));
    ClickAt(window, 700, 495);
  });
  EXPECT_EQ(answer.line.at("path"), Path("disk 98.img"));
}

TEST_F(PickersX11, ThumbFollowsThePointerOutsideTheWindow) {
  if (IsSdlOnTopOfSdl3()) {
    GTEST_SKIP()
        << "this SDL is refused the pointer now and then, and then loses it at the window's "
           "edge";
  }
  WriteDisks(99);
  const Answer answer = PickFloppy([](X11WindowId window) {
    DragFromTo(window, kInTrack, 80, 800, 80 + 344 / 2);  // Half of the thumb's way: 41 of 83 rows.
    ClickAt(window, 200, RowY(0));
    PressKey("Return");
  });
  EXPECT_EQ(answer.line.at("path"), Path("disk 40.img"));
}

TEST_F(PickersX11, WindowManagersCloseCancels) {
  WriteDisks(3);
  const Answer answer = PickFloppy([](X11WindowId window) {
    PressKey("Down");
    CloseByWindowManager(window);
  });
  EXPECT_TRUE(answer.line.at("path").is_null());
  EXPECT_EQ(answer.exit_status, 1);
}

TEST_F(PickersX11, EscapeCancels) {
  WriteDisks(3);
  EXPECT_TRUE(PickFloppy([](X11WindowId) { PressKey("Escape"); }).line.at("path").is_null());
}

TEST_F(PickersX11, CancelButtonCancels) {
  WriteDisks(3);
  const Answer answer = PickFloppy([](X11WindowId window) { ClickAt(window, 620, 495); });
  EXPECT_TRUE(answer.line.at("path").is_null());
}

TEST_F(PickersX11, PressOnAButtonCanBeTakenBack) {
  WriteDisks(3);
  const Answer answer = PickFloppy([](X11WindowId window) {
    DragFromTo(window, 700, 495, 400, 495);
    DragFromTo(window, 620, 495, 400, 495);
    PressKey("Down");
    DragFromTo(window, 400, 495, 700, 495);  // A press elsewhere does count when released here.
  });
  EXPECT_EQ(answer.line.at("path"), Path("disk 00.img"));
}

TEST_F(PickersX11, FolderPickerReturnsTheFolderShown) {
  WriteDisks(2, "disks/old");
  const Answer answer =
      Pick("folder", folder_.path().string(), kFolderTitle, [](X11WindowId window) {
        DoubleClickAt(window, 200, RowY(1));
        PressKey("Down");
        ClickAt(window, 720, 515);
      });
  EXPECT_EQ(answer.line.at("path"), Path("disks"));
}

TEST_F(PickersX11, ShaderPickerFollowsItsResizedWindow) {
  folder_.Write("a.glsl", "");
  const Answer answer = Pick("shader-file", Path("a.glsl"), kShaderTitle, [](X11WindowId window) {
    RunX11Tool({"xdotool", "windowsize", "--sync", std::to_string(window), "500", "300"});
    WaitForX11Step("the window is resized", [window] {
      return X11WindowGeometry(window).w == 500 && X11WindowGeometry(window).h == 300;
    });
    PressKey("Down");
    ClickAt(window, 500 - 18 - 35, 300 - 23);
  });
  EXPECT_EQ(answer.line.at("path"), Path("a.glsl"));
}

TEST_F(PickersX11, FloppyPickerKeepsItsSize) {
  WriteDisks(1);
  std::string hints;
  PickFloppy([&hints](X11WindowId window) {
    hints = RunX11Tool({"xprop", "-id", std::to_string(window), "WM_NORMAL_HINTS"});
    PressKey("Escape");
  });
  EXPECT_THAT(hints, ::testing::HasSubstr("minimum size: 760 by 520"));
  EXPECT_THAT(hints, ::testing::HasSubstr("maximum size: 760 by 520"));
}

TEST_F(PickersX11, NamesThatAreNoTextAreReturnedAsBytes) {
  folder_.Write("\xFF\n.img", "");
  const Answer answer = PickFloppy([](X11WindowId) {
    PressKey("Down");
    PressKey("Return");
  });
  EXPECT_THAT(answer.line.at("path_hex").get<std::string>(), ::testing::EndsWith("ff0a2e696d67"));
}

}  // namespace
}  // namespace quindle::testing
