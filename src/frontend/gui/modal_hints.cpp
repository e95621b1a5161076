#include "frontend/gui/modal_hints.h"

#include "frontend/gui/windows_modal_owner.h"
#include "frontend/gui/x11_modal_hints.h"

namespace quindle::frontend::gui {
namespace {

// The name under which a dialog's window keeps its parent.
constexpr const char* kModalFor = "quindle_modal_parent";

}  // namespace

void MarkWindowModal(SDL_Window* window, SDL_Window* parent) {
  if (HintX11Modal(window, parent) || OwnWindowsModal(window, parent)) {
    SDL_SetWindowData(window, kModalFor, parent);
  }
}

SDL_Window* FindModalParent(SDL_Window* window) {
  return static_cast<SDL_Window*>(SDL_GetWindowData(window, kModalFor));
}

void EndWindowModality(SDL_Window* window) {
  if (FindModalParent(window) != nullptr) {
    UnhintX11Modal(window);
  }
  UnmarkWindowModal(window);
}

void UnmarkWindowModal(SDL_Window* window) {
  DisownWindowsModal(window);
}

}  // namespace quindle::frontend::gui
