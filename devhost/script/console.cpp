#include "devhost/script/console.h"

#include <cstdio>

namespace devhost::script {

void Print(std::string_view text) {
  std::fwrite(text.data(), 1, text.size(), stdout);
  std::fflush(stdout);
}

bool Complain(const std::string& message) {
  std::fflush(stdout);
  std::fwrite(message.data(), 1, message.size(), stderr);
  std::fflush(stderr);
  return false;
}

}  // namespace devhost::script

#if defined(_WIN32)

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace devhost::script {

void PrepareConsole() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
}

std::string ProgramFolder() {
  char path[MAX_PATH];
  const DWORD length = GetModuleFileNameA(nullptr, path, sizeof path);
  const std::string whole(path, length < sizeof path ? length : 0);
  return whole.substr(0, whole.find_last_of("/\\") + 1);
}

}  // namespace devhost::script

#else

namespace devhost::script {

void PrepareConsole() {}
std::string ProgramFolder() { return {}; }

}  // namespace devhost::script

#endif
