#include "support/recorded_frame.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace quindle::testing {
namespace {

bool Covers(const DrawCall& call, int x, int y) {
  const SDL_Point point{x, y};
  if (call.kind == DrawKind::Clear) {
    return true;  // A clear ignores the clip rectangle.
  }
  return call.kind == DrawKind::Fill && SDL_PointInRect(&point, &call.rect) == SDL_TRUE &&
         (!call.clip || SDL_PointInRect(&point, &*call.clip) == SDL_TRUE);
}

template <typename Matches>
const DrawCall* FindDraw(const std::vector<DrawCall>& draws, Matches matches) {
  const auto found = std::find_if(draws.begin(), draws.end(), matches);
  return found == draws.end() ? nullptr : &*found;
}

std::vector<SDL_Rect> RectsOf(const Frame& frame, DrawKind kind, SDL_Color color) {
  std::vector<SDL_Rect> rects;
  for (const DrawCall& call : frame.draws) {
    if (call.kind == kind && call.color == color) {
      rects.push_back(call.rect);
    }
  }
  return rects;
}

}  // namespace

bool DrawCall::IsClippedAway() const {
  return clip && SDL_HasIntersection(&*clip, &rect) == SDL_FALSE;
}

const DrawCall* Frame::FindText(std::string_view text) const {
  return FindDraw(draws, [text](const DrawCall& call) {
    return call.kind == DrawKind::Text && call.text == text;
  });
}

const DrawCall* Frame::FindTextContaining(std::string_view part) const {
  return FindDraw(draws, [part](const DrawCall& call) {
    return call.kind == DrawKind::Text && call.text.find(part) != std::string::npos;
  });
}

std::vector<std::string> Frame::Texts() const {
  std::vector<std::string> texts;
  for (const DrawCall& call : OfKind(DrawKind::Text)) {
    texts.push_back(call.text);
  }
  return texts;
}

std::vector<std::string> Frame::VisibleTexts() const {
  std::vector<std::string> texts;
  for (const DrawCall& call : OfKind(DrawKind::Text)) {
    if (!call.IsClippedAway()) {
      texts.push_back(call.text);
    }
  }
  return texts;
}

std::vector<DrawCall> Frame::OfKind(DrawKind kind) const {
  std::vector<DrawCall> calls;
  std::copy_if(draws.begin(), draws.end(), std::back_inserter(calls),
               [kind](const DrawCall& call) { return call.kind == kind; });
  return calls;
}

std::vector<SDL_Rect> Frame::Fills(SDL_Color color) const {
  return RectsOf(*this, DrawKind::Fill, color);
}

std::vector<SDL_Rect> Frame::Outlines(SDL_Color color) const {
  return RectsOf(*this, DrawKind::Outline, color);
}

std::vector<DrawCall> Frame::Lines(SDL_Color color) const {
  std::vector<DrawCall> lines = OfKind(DrawKind::Line);
  std::erase_if(lines, [color](const DrawCall& call) { return !(call.color == color); });
  return lines;
}

std::optional<SDL_Color> Frame::FillAt(int x, int y) const {
  const auto last = std::find_if(draws.rbegin(), draws.rend(),
                                 [x, y](const DrawCall& call) { return Covers(call, x, y); });
  return last == draws.rend() ? std::nullopt : std::optional<SDL_Color>(last->color);
}

std::ostream& operator<<(std::ostream& out, DrawKind kind) {
  constexpr std::array<const char*, 7> kNames{"Clear", "Fill", "Outline", "Line",
                                              "Point", "Text", "Copy"};
  return out << kNames.at(static_cast<std::size_t>(kind));
}

void PrintTo(const FontUse& font, std::ostream* out) {
  *out << font.path << ' ' << font.size << " pt style " << font.style;
}

void PrintTo(const DrawCall& call, std::ostream* out) {
  *out << call.kind << ' ';
  if (call.kind == DrawKind::Line || call.kind == DrawKind::Point) {
    PrintTo(call.from, out);
    *out << " to ";
    PrintTo(call.to, out);
  } else {
    PrintTo(call.rect, out);
  }
  *out << ' ';
  PrintTo(call.color, out);
  if (call.clip) {
    *out << " clip ";
    PrintTo(*call.clip, out);
  }
  if (call.kind == DrawKind::Text) {
    *out << " \"" << call.text << "\" ";
    PrintTo(call.font, out);
  }
}

void PrintTo(const Frame& frame, std::ostream* out) {
  *out << "frame of " << frame.draws.size() << " draw calls";
  for (const DrawCall& call : frame.draws) {
    *out << "\n  ";
    PrintTo(call, out);
  }
}

}  // namespace quindle::testing
