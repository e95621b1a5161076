#include "guide/testing_your_dialogs.inc"

#include "block_test.h"
#include "frontend/gui/sdl_message_box.h"

namespace {

using quindle::frontend::gui::SdlMessageBox;

// What the host asks second: a box without the button 2 is what the guide's failure shows.
std::vector<SdlMessageBox::Button> g_second_buttons;

int Ask(const char* title, std::vector<SdlMessageBox::Button> buttons) {
  SdlMessageBox::Config config;
  config.title = title;
  config.buttons = std::move(buttons);
  return SdlMessageBox(config).Show(nullptr, 1.0F);
}

}  // namespace

bool ResetAndSave() {
  const bool reset =
      Ask("Reset", {{1, "Reset", true, false, {}}, {3, "Cancel", false, true, {}}}) == 1;
  return reset && Ask("Save", g_second_buttons) == 1;
}

namespace quindle::testing {
namespace {

class GuideDriver : public DialogTest {};

TEST_F(GuideDriver, AnswersBothQuestions) {
  g_second_buttons = {{1, "Save", true, false, {}}, {2, "Do not save", false, false, {}}};
  EXPECT_EQ(TestResetWithoutSaving(), "");
}

TEST_F(GuideDriver, SaysWhatIsMissing) {
  g_second_buttons = {{1, "Save", true, false, {}}, {3, "Cancel", false, true, {}}};
  EXPECT_EQ(TestResetWithoutSaving(),
            "step 2 (press the button 2): there is no such button; open was the message box "
            "\"Save\", which shows the buttons 1 \"Save\", 3 \"Cancel\"");
}

}  // namespace
}  // namespace quindle::testing
