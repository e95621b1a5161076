#pragma once

#include <SDL.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace quindle::demo {

// An SDL stream to write to, which keeps its bytes in memory. It can do what a file can that is
// open for writing: seek to any place that is written already, write over it and beyond, tell its
// size.
class ByteStream {
 public:
  // Throws std::bad_alloc.
  ByteStream();
  ByteStream(const ByteStream&) = delete;
  ByteStream& operator=(const ByteStream&) = delete;

  // Lives as long as this object; SDL_RWclose closes nothing.
  SDL_RWops* Get() { return stream_.get(); }
  const std::vector<std::uint8_t>& Bytes() const { return bytes_; }

 private:
  static ByteStream& From(SDL_RWops* stream);
  static Sint64 SDLCALL Size(SDL_RWops* stream);
  static Sint64 SDLCALL Seek(SDL_RWops* stream, Sint64 offset, int whence);
  static std::size_t SDLCALL Read(SDL_RWops* stream, void* data, std::size_t size,
                                  std::size_t count);
  static std::size_t SDLCALL Write(SDL_RWops* stream, const void* data, std::size_t size,
                                   std::size_t count);
  static int SDLCALL Close(SDL_RWops* stream);

  std::vector<std::uint8_t> bytes_;
  std::size_t position_ = 0;
  std::unique_ptr<SDL_RWops, decltype(&SDL_FreeRW)> stream_{SDL_AllocRW(), &SDL_FreeRW};
};

}  // namespace quindle::demo
