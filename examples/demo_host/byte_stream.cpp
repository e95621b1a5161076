#include "byte_stream.h"

#include <algorithm>
#include <exception>
#include <new>

namespace quindle::demo {

ByteStream::ByteStream() {
  if (stream_ == nullptr) {
    throw std::bad_alloc();
  }
  stream_->type = SDL_RWOPS_UNKNOWN;
  stream_->size = Size;
  stream_->seek = Seek;
  stream_->read = Read;
  stream_->write = Write;
  stream_->close = Close;
  stream_->hidden.unknown.data1 = this;
}

ByteStream& ByteStream::From(SDL_RWops* stream) {
  return *static_cast<ByteStream*>(stream->hidden.unknown.data1);
}

Sint64 ByteStream::Size(SDL_RWops* stream) {
  return static_cast<Sint64>(From(stream).bytes_.size());
}

Sint64 ByteStream::Seek(SDL_RWops* stream, Sint64 offset, int whence) {
  ByteStream& self = From(stream);
  const Sint64 start = whence == RW_SEEK_CUR   ? static_cast<Sint64>(self.position_)
                       : whence == RW_SEEK_END ? Size(stream)
                                               : 0;
  // In this order nothing overflows, whatever the offset is.
  if (offset < -start || offset > Size(stream) - start) {
    return SDL_SetError("there is nothing at that place of the stream");
  }
  self.position_ = static_cast<std::size_t>(start + offset);
  return start + offset;
}

std::size_t ByteStream::Read(SDL_RWops*, void*, std::size_t, std::size_t) {
  SDL_SetError("the stream is for writing only");
  return 0;
}

// SDL is C: no exception may leave it.
std::size_t ByteStream::Write(SDL_RWops* stream, const void* data, std::size_t size,
                              std::size_t count) {
  ByteStream& self = From(stream);
  const auto* first = static_cast<const std::uint8_t*>(data);
  const std::size_t end = self.position_ + size * count;
  try {
    self.bytes_.resize(std::max(self.bytes_.size(), end));
  } catch (const std::exception&) {
    SDL_OutOfMemory();
    return 0;
  }
  std::copy(first, first + size * count,
            self.bytes_.begin() + static_cast<std::ptrdiff_t>(self.position_));
  self.position_ = end;
  return count;
}

int ByteStream::Close(SDL_RWops*) {
  return 0;
}

}  // namespace quindle::demo
