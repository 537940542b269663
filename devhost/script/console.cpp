#include "devhost/script/console.h"

#include <cstdlib>

namespace devhost::script {
namespace {

void WriteFileText(std::FILE* output, std::string_view text) { std::fwrite(text.data(), 1, text.size(), output); }

}  // namespace
}  // namespace devhost::script

#if defined(_WIN32)

#include <fcntl.h>
#include <io.h>
#include <windows.h>
// shellapi.h belongs behind windows.h.
#include <shellapi.h>

#include "devhost/runtime/wide_text.h"

namespace devhost::script {
namespace {

// Where the program's output goes; null for a file or a pipe.
HANDLE outputConsole = nullptr;
HANDLE errorConsole = nullptr;

void Write(std::FILE* output, std::string_view text) {
  const HANDLE console = output == stdout ? outputConsole : errorConsole;
  if (!console) {
    WriteFileText(output, text);
  } else {
    const std::wstring wide = WideText(text);
    WriteConsoleW(console, wide.data(), static_cast<DWORD>(wide.size()), nullptr, nullptr);
  }
}

}  // namespace

void* ConsoleOf(std::FILE* stream) {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  DWORD mode = 0;
  return GetConsoleMode(handle, &mode) ? handle : nullptr;
}

void PrepareConsole() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  outputConsole = ConsoleOf(stdout);
  errorConsole = ConsoleOf(stderr);
}

std::vector<std::string> Arguments(int, char**) {
  int count = 0;
  wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(Utf8Text(wide[i]));
  LocalFree(static_cast<void*>(wide));
  return arguments;
}

std::string ProgramFolder() {
  std::wstring path(32768, L'\0');  // no path is longer
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return Utf8Text(path.substr(0, path.find_last_of(L"/\\") + 1));
}

std::string EnvironmentText(const char* name) {
  const std::wstring wideName = WideText(name);
  std::wstring text(GetEnvironmentVariableW(wideName.c_str(), nullptr, 0), L'\0');
  text.resize(GetEnvironmentVariableW(wideName.c_str(), text.data(), static_cast<DWORD>(text.size())));
  return Utf8Text(text);
}

}  // namespace devhost::script

#else

namespace devhost::script {
namespace {

void Write(std::FILE* output, std::string_view text) { WriteFileText(output, text); }

}  // namespace

void PrepareConsole() {}
std::vector<std::string> Arguments(int argc, char** argv) { return {argv + (argc > 0 ? 1 : 0), argv + argc}; }
std::string ProgramFolder() { return {}; }
std::string EnvironmentText(const char* name) {
  const char* text = std::getenv(name);
  return text ? text : "";
}

}  // namespace devhost::script

#endif

namespace devhost::script {

void Print(std::string_view text) { Write(stdout, text); }

bool Complain(const std::string& message) {
  std::fflush(stdout);
  Write(stderr, message);
  std::fflush(stderr);
  return false;
}

}  // namespace devhost::script
