#pragma once

// What the tests of the guide's blocks share. Each test includes one block as it stands in the
// guide, defines the functions that the block leaves to the host, and calls those that the block
// defines.

#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "support/dialog_test.h"

namespace quindle::testing {

// Clicks on the text of the open dialog that was drawn last of those that read so: captions come
// last. Names the dialog's window, as a real click does.
inline void ClickCaption(std::string_view caption) {
  const std::vector<DrawCall>& draws = Recorder().last_frame().draws;
  const auto found = std::find_if(draws.rbegin(), draws.rend(), [caption](const DrawCall& draw) {
    return draw.kind == DrawKind::Text && draw.text == caption;
  });
  ASSERT_NE(found, draws.rend()) << "nothing reads " << caption;
  const SDL_Rect& at = found->rect;
  Click(at.x + at.w / 2, at.y + at.h / 2, SDL_BUTTON_LEFT, 1, WindowId());
}

}  // namespace quindle::testing
