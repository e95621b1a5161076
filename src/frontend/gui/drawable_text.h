#pragma once

// Private. File names are bytes that need not be text; this makes one line of text of them.

#include <string>
#include <string_view>

namespace quindle::frontend::gui {

// `bytes` as valid UTF-8 on one line, for drawing only: every control character (line feed and tab
// among them) and every byte that is no part of a valid sequence is shown as U+FFFD. Text that
// holds none of these is returned as it stands.
std::string DrawableText(std::string_view bytes);

}  // namespace quindle::frontend::gui
