#include "frontend/gui/drawable_text.h"

#include <cstddef>

#include "utils/ascii_text.h"

namespace quindle::frontend::gui {
namespace {

constexpr std::string_view kReplacementCharacter = "\xEF\xBF\xBD";

// The lead bytes [first, last] start sequences of `length` bytes. The second byte lies in
// [second_first, second_last], which keeps out overlong forms, surrogates, values past U+10FFFF and
// the control characters U+0080 to U+009F; every further byte in [0x80, 0xBF].
struct SequenceForm {
  unsigned char first;
  unsigned char last;
  unsigned char length;
  unsigned char second_first;
  unsigned char second_last;
};
constexpr SequenceForm kSequenceForms[] = {
    {0xC2, 0xC2, 2, 0xA0, 0xBF}, {0xC3, 0xDF, 2, 0x80, 0xBF}, {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF}, {0xED, 0xED, 3, 0x80, 0x9F}, {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF}, {0xF1, 0xF3, 4, 0x80, 0xBF}, {0xF4, 0xF4, 4, 0x80, 0x8F},
};

bool IsPrintableAscii(unsigned char byte) {
  return byte >= 0x20 && byte < 0x7F;
}

bool Follows(std::string_view bytes, const SequenceForm& form) {
  if (bytes.size() < form.length) {
    return false;
  }
  const auto second = static_cast<unsigned char>(bytes[1]);
  if (second < form.second_first || second > form.second_last) {
    return false;
  }
  for (std::size_t i = 2; i < form.length; ++i) {
    if (!utils::is_utf8_continuation(bytes[i])) {
      return false;
    }
  }
  return true;
}

// Length of the drawable character that `bytes` (not empty) starts with; 0 when there is none.
std::size_t DrawableLength(std::string_view bytes) {
  const auto lead = static_cast<unsigned char>(bytes.front());
  if (IsPrintableAscii(lead)) {
    return 1;
  }
  for (const SequenceForm& form : kSequenceForms) {
    if (lead >= form.first && lead <= form.last) {
      return Follows(bytes, form) ? form.length : 0;
    }
  }
  return 0;
}

}  // namespace

std::string DrawableText(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const std::size_t length = DrawableLength(bytes);
    text.append(length == 0 ? kReplacementCharacter : bytes.substr(0, length));
    bytes.remove_prefix(length == 0 ? 1 : length);
  }
  return text;
}

}  // namespace quindle::frontend::gui
