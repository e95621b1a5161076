#include "frontend/gui/form_folder.h"

#include "frontend/gui/sdl_pickers.h"

namespace quindle::frontend::gui {

void ChooseFormFolder(SDL_Window* parent, const char* title, const char* hint,
                      std::string* folder) {
  FolderPickerOptions options;
  options.title = title;
  options.hint = hint;
  options.accept_label = "Use";
  options.cancel_label = "Cancel";
  options.start_dir = *folder;
  const std::string chosen = ShowSimpleFolderPicker(parent, options);
  if (!chosen.empty()) {
    *folder = chosen;
  }
}

}  // namespace quindle::frontend::gui
