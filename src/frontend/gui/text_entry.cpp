#include "frontend/gui/text_entry.h"

#include <algorithm>

namespace quindle::frontend::gui {

bool IsAsciiDigit(char c) {
  return c >= '0' && c <= '9';
}

bool IsDigitString(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsAsciiDigit);
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
