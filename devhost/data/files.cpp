#include "devhost/data/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "devhost/runtime/runtime.h"
#include "devhost/runtime/wide_text.h"

namespace devhost {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

#if defined(_WIN32)
File Open(const std::string& path, const char* mode) {
  return File(_wfopen(WideText(path).c_str(), WideText(mode).c_str()));
}
#else
File Open(const std::string& path, const char* mode) { return File(std::fopen(path.c_str(), mode)); }
#endif

bool Fail(const std::string& path, const char* action) {
  Raise(kErrorFile, path + " cannot be " + action + ": " + std::strerror(errno) + ".");
  return false;
}

}  // namespace

bool ReadFile(const std::string& path, std::string& content) {
  content.clear();
  const File file = Open(path, "rb");
  if (!file) return Fail(path, "opened");
  char block[65536];
  for (std::size_t count = sizeof block; count == sizeof block;) {
    count = std::fread(block, 1, sizeof block, file.get());
    content.append(block, count);
  }
  return !std::ferror(file.get()) || Fail(path, "read");
}

bool WriteFile(const std::string& path, std::string_view content) {
  File file = Open(path, "wb");
  if (!file) return Fail(path, "written");
  const bool written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  // Closing flushes what is left, so it may be what fails.
  const bool closed = std::fclose(file.release()) == 0;
  return (written && closed) || Fail(path, "written");
}

}  // namespace devhost
