#pragma once

// What the frame of a picker shows, read from what it drew: the list box ends above the button
// strip, rows are 24 pixels apart and their labels stand at x = 17.

#include <optional>
#include <string>
#include <vector>

#include "support/call_recorder.h"

namespace quindle::testing {

inline constexpr SDL_Color kPickerSelectedFill{52, 66, 90, 255};
inline constexpr SDL_Color kPickerThumbFill{92, 102, 116, 255};
inline constexpr int kPickerRowPitch = 24;

struct PickerView {
  std::vector<std::string> labels;        // Of the rows shown, from the top.
  std::optional<int> selected_on_screen;  // Row of the selection; empty while it is not in view.
  std::string directory;                  // The second header line.
  SDL_Rect thumb{0, 0, 0, 0};

  // Label of the selected row; empty while it is not in view.
  std::string Selected() const {
    const auto index = static_cast<std::size_t>(selected_on_screen.value_or(-1));
    return index < labels.size() ? labels[index] : std::string();
  }
  std::string First() const { return labels.empty() ? std::string() : labels.front(); }
};

inline PickerView LookAtPicker(const Frame& frame) {
  constexpr int kLabelX = 17;
  constexpr int kFirstRowY = 57;
  constexpr int kDirectoryY = 30;
  PickerView view;
  for (const DrawCall& text : frame.OfKind(DrawKind::Text)) {
    if (text.rect.x == kLabelX && text.rect.y >= kFirstRowY) {
      view.labels.push_back(text.text);
    } else if (text.rect.y == kDirectoryY) {
      view.directory = text.text;
    }
  }
  for (const SDL_Rect& fill : frame.Fills(kPickerSelectedFill)) {
    view.selected_on_screen = (fill.y - kFirstRowY) / kPickerRowPitch;
  }
  for (const SDL_Rect& fill : frame.Fills(kPickerThumbFill)) {
    view.thumb = fill;
  }
  return view;
}

// The frame that was presented last.
inline PickerView LookAtPicker() {
  return LookAtPicker(Recorder().last_frame());
}

}  // namespace quindle::testing
