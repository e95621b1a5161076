#pragma once

#include <SDL.h>

#include <filesystem>
#include <string>
#include <vector>

namespace quindle::demo {

// Saves what windows show as PNG files in one folder. Throws std::runtime_error on failure.
class TourPictures {
 public:
  // Makes the folder when it is missing.
  explicit TourPictures(std::filesystem::path folder);

  // Saves what `window` presented last.
  void Save(SDL_Window* window, const std::string& name);
  // Saves `window` where it stands over `host`.
  void SaveOver(SDL_Window* host, SDL_Window* window, const std::string& name);

  // File names saved since the last call.
  std::vector<std::string> TakeNames();

 private:
  void Write(SDL_Surface* picture, const std::string& name);

  std::filesystem::path folder_;
  std::vector<std::string> names_;
};

}  // namespace quindle::demo
