#include "frontend/gui/text_entry.h"

#include <algorithm>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui {

std::string TextOr(const std::string& text, std::string_view fallback) {
  return text.empty() ? std::string(fallback) : text;
}

bool IsDigitString(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), utils::is_ascii_digit);
}

void TypeAcceptedBytes(std::string_view typed, bool (*accept)(char), std::size_t max_size,
                       std::string* text) {
  for (const char c : typed) {
    if (accept(c) && text->size() < max_size) {
      text->push_back(c);
    }
  }
}

void RemoveLastByte(std::string* text) {
  if (text != nullptr && !text->empty()) {
    text->pop_back();
  }
}

}  // namespace quindle::frontend::gui
