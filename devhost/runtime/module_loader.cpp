// Module libraries. Only Windows has them, so only its build compiles this file.
#include <windows.h>

#include "devhost/runtime/computations.h"
#include "devhost/runtime/modules.h"
#include "devhost/runtime/opengl_drivers.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"
#include "devhost/runtime/wide_text.h"

namespace devhost {
namespace {

// The exports through which a module offers itself carry no names.
constexpr WORD kVersionOrdinal = 2;
constexpr WORD kMethodsOrdinal = 3;
constexpr WORD kErrorsOrdinal = 4;

using VersionWriter = char* (*)(char* buffer, unsigned length);
using MethodsGetter = const MethodEntry* (*)(void* unused);
using ErrorsGetter = const ErrorEntry* (*)();

// Every module exports its instance handle under this name; the ordinals of another library mean something else.
constexpr const char* kModuleMark = "?TalqSystemGetLibInst@@YAPEAUHINSTANCE__@@XZ";

// The decorated names of Add to Xor, in the order of Operator.
constexpr const char* kComputationNames[] = {
    "?Add@@YAXAEAVVariable@@AEBV1@1@Z", "?Sub@@YAXAEAVVariable@@AEBV1@1@Z",  "?Mul@@YAXAEAVVariable@@AEBV1@1@Z",
    "?Div@@YAXAEAVVariable@@AEBV1@1@Z", "?Rest@@YAXAEAVVariable@@AEBV1@1@Z", "?Or@@YAXAEAVVariable@@AEBV1@1@Z",
    "?And@@YAXAEAVVariable@@AEBV1@1@Z", "?Xor@@YAXAEAVVariable@@AEBV1@1@Z",
};

template <typename Export>
Export FindExport(HMODULE library, const char* name) {
  const FARPROC address = GetProcAddress(library, name);
  return reinterpret_cast<Export>(reinterpret_cast<void*>(address));
}

std::string LastErrorText() {
  const DWORD code = GetLastError();
  wchar_t text[256] = L"";
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code, 0, text, 256, nullptr);
  return std::string(Trimmed(Utf8Text({text, length}), "\r\n.")) + " (system error " +
         Decimal(static_cast<long long>(code)) + ")";
}

std::string VersionOf(HMODULE library) {
  char text[128] = "";
  if (const auto write = FindExport<VersionWriter>(library, MAKEINTRESOURCEA(kVersionOrdinal)))
    write(text, sizeof text - 1);
  return text;
}

}  // namespace

const Module* LoadModule(const std::string& path) {
  const HMODULE library = LoadLibraryW(WideText(path).c_str());
  if (!library) {
    Raise(kErrorFile, path + " cannot be loaded: " + LastErrorText() + ".");
    return nullptr;
  }
  if (const Module* loaded = FindModule(library)) {
    FreeLibrary(library);  // gives back only this second reference
    return loaded;
  }
  const auto methods = FindExport<MethodsGetter>(library, MAKEINTRESOURCEA(kMethodsOrdinal));
  const auto errors = FindExport<ErrorsGetter>(library, MAKEINTRESOURCEA(kErrorsOrdinal));
  if (!methods || !errors || !GetProcAddress(library, kModuleMark)) {
    Raise(kErrorFile, path + " is a library, but not a Talq module.");
    FreeLibrary(library);
    return nullptr;
  }
  const Module* module = AddModule({path, VersionOf(library), methods(nullptr), errors(), library, 0});
  if (module) {
    KeepOpenGlDriversApart(library);
  } else {
    FreeLibrary(library);
  }
  return module;
}

bool UseArithmeticOf(const Module& module) {
  Computations found{};
  for (std::size_t i = 0; i < found.size(); ++i) {
    found[i] = FindExport<Computation>(module.handle, kComputationNames[i]);
    if (found[i]) continue;
    Raise(kErrorFile, module.path + " does not export " + kComputationNames[i] + ".");
    return false;
  }
  UseComputations(found);
  return true;
}

void FreeModuleLibrary(HINSTANCE__* handle) { FreeLibrary(handle); }

}  // namespace devhost
