#include "host_layout.h"

#include <algorithm>

#include "guest_view.h"

namespace quindle::demo {
namespace {

constexpr int kGap = 8;

// Places the buttons in rows from y 0; returns the height of all rows.
int FlowButtons(int width, const std::vector<int>& caption_widths, std::vector<SDL_Rect>* buttons) {
  int x = kHostMargin;
  int y = 0;
  for (const int caption_width : caption_widths) {
    const int button_width =
        std::min(caption_width + 2 * kHostButtonPadding, width - 2 * kHostMargin);
    if (x > kHostMargin && x + button_width > width - kHostMargin) {
      x = kHostMargin;
      y += kHostButtonHeight + kGap;
    }
    buttons->push_back({x, y, button_width, kHostButtonHeight});
    x += button_width + kGap;
  }
  return y + kHostButtonHeight;
}

}  // namespace

HostLayout BuildHostLayout(int width, int height, const std::vector<int>& caption_widths) {
  HostLayout layout;
  const int text_width = std::max(1, width - 2 * kHostMargin);
  layout.status = {kHostMargin, height - kHostMargin - kHostTextLine, text_width, kHostTextLine};
  layout.result = {kHostMargin, layout.status.y - kGap - 2 * kHostTextLine, text_width,
                   2 * kHostTextLine};
  const int buttons_height = FlowButtons(width, caption_widths, &layout.buttons);
  const int buttons_top = layout.result.y - kGap - buttons_height;
  for (SDL_Rect& button : layout.buttons) {
    button.y += buttons_top;
  }
  layout.picture = FitGuestPicture(
      {kHostMargin, kHostMargin, text_width, std::max(1, buttons_top - 2 * kHostMargin)});
  return layout;
}

int FindHostButton(const HostLayout& layout, int x, int y) {
  const SDL_Point point{x, y};
  const auto found =
      std::find_if(layout.buttons.begin(), layout.buttons.end(),
                   [&](const SDL_Rect& button) { return SDL_PointInRect(&point, &button); });
  return found == layout.buttons.end() ? -1 : static_cast<int>(found - layout.buttons.begin());
}

}  // namespace quindle::demo
