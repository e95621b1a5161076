// The message box as a user meets it: a real window under a window manager.

#include "frontend/gui/sdl_message_box.h"

#include <SDL.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/x11_display.h"

namespace quindle::frontend::gui {
namespace {

using ::testing::AllOf;
using testing::ClickAt;
using testing::CloseByWindowManager;
using ::testing::HasSubstr;
using testing::MovePointerTo;
using testing::PressKey;
using testing::WaitForX11Focus;
using testing::WaitForX11Window;
using testing::X11Property;
using testing::X11WindowId;

using MessageBoxX11 = testing::X11DialogTest;

SdlMessageBox::Config Question() {
  SdlMessageBox::Config config;
  config.title = "Overwrite?";
  config.message = "The image exists already.";
  config.type = SdlMessageBox::Type::Question;
  config.buttons = {{7, "Yes", true, false, {}}, {8, "No", false, true, {}}};
  return config;
}

TEST_F(MessageBoxX11, EscapeReturnsCancelButton) {
  SdlMessageBox box(Question());
  const int result = WhileShowing([&] { return box.Show(Parent(), 1.0F); },
                                  [] {
                                    WaitForX11Focus(WaitForX11Window("Overwrite?"));
                                    PressKey("Escape");
                                  });
  EXPECT_EQ(result, 8);
}

}  // namespace
}  // namespace quindle::frontend::gui
