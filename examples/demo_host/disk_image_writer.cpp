#include "disk_image_writer.h"

#include "new_file.h"

namespace quindle::demo {

void WriteDiskImage(const std::string& path, std::uint32_t size_mb) {
  constexpr std::uint64_t kBytesPerMb = 1024ULL * 1024;
  NewFile file(path);
  file.Resize(size_mb * kBytesPerMb);
  file.Keep();
}

}  // namespace quindle::demo
