#include "devhost/data/files.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#if defined(_WIN32)
#include <direct.h>
#include <windows.h>
#else
#include <sys/stat.h>
#endif

#include "devhost/runtime/runtime.h"
#include "devhost/runtime/wide_text.h"

namespace devhost {
namespace {

struct FileCloser {
  void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

#if defined(_WIN32)
constexpr const char* kSeparators = "/\\";
File Open(const std::string& path, const char* mode) {
  return File(_wfopen(WideText(path).c_str(), WideText(mode).c_str()));
}
bool MakeFolder(const std::string& path) { return _wmkdir(WideText(path).c_str()) == 0; }
void Remove(const std::string& path) { _wremove(WideText(path).c_str()); }
bool Rename(const std::string& from, const std::string& to) {
  if (MoveFileExW(WideText(from).c_str(), WideText(to).c_str(), MOVEFILE_REPLACE_EXISTING)) return true;
  errno = EACCES;
  return false;
}
#else
constexpr const char* kSeparators = "/";
File Open(const std::string& path, const char* mode) { return File(std::fopen(path.c_str(), mode)); }
bool MakeFolder(const std::string& path) { return mkdir(path.c_str(), 0777) == 0; }
void Remove(const std::string& path) { std::remove(path.c_str()); }
bool Rename(const std::string& from, const std::string& to) { return std::rename(from.c_str(), to.c_str()) == 0; }
#endif

bool Fail(const std::string& path, const char* action) {
  Raise(kErrorFile, path + " cannot be " + action + ": " + std::strerror(errno) + ".");
  return false;
}

// The folder that a file is to lie in, and those above it; what is missing is made. False, with errno set, when the
// folder is not there then.
bool MakeFolderOf(const std::string& path) {
  bool isThere = true;
  for (std::size_t at = path.find_first_of(kSeparators, 1); at != path.npos;
       at = path.find_first_of(kSeparators, at + 1)) {
    isThere = MakeFolder(path.substr(0, at)) || errno == EEXIST;
  }
  return isThere;
}

// False, with errno set, when not all of it reached the file.
bool Write(const std::string& path, std::string_view content) {
  File file = Open(path, "wb");
  if (!file && errno == ENOENT && MakeFolderOf(path)) file = Open(path, "wb");
  if (!file) return false;
  const bool written = std::fwrite(content.data(), 1, content.size(), file.get()) == content.size();
  // Closing flushes what is left, so it may be what fails.
  return std::fclose(file.release()) == 0 && written;
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
  const std::string part = path + ".part";
  if (Write(part, content) && Rename(part, path)) return true;
  const int reason = errno;
  Remove(part);
  errno = reason;
  return Fail(path, "written");
}

}  // namespace devhost
