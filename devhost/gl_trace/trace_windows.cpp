// The module's own calls are caught where they leave it: at the table of what it imports.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "devhost/gl_trace/rows.h"
#include "devhost/gl_trace/traced.h"
#include "devhost/runtime.h"
#include "devhost/text.h"

namespace gl_trace {
namespace {

constexpr const char* kLibraries[] = {"opengl32.dll", "glu32.dll", "gdi32.dll"};

bool IsTraced(const char* library) {
  return std::any_of(std::begin(kLibraries), std::end(kLibraries),
                     [library](const char* traced) { return _stricmp(traced, library) == 0; });
}

const Row* FindRow(const char* function) {
  const auto row = std::find_if(kRows.begin(), kRows.end(),
                                [function](const Row& each) { return !std::strcmp(each.name, function); });
  return row == kRows.end() ? nullptr : &*row;
}

// A loaded library's image, whose tables point by offsets from its start.
class Image {
 public:
  explicit Image(HINSTANCE__* library) : start(reinterpret_cast<char*>(library)) {}

  template <class T>
  T* At(std::size_t offset) const {
    return reinterpret_cast<T*>(start + offset);
  }
  // Ends with one without a name; null for a library that imports nothing.
  const IMAGE_IMPORT_DESCRIPTOR* Imports() const {
    const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return table.Size > 0 ? At<const IMAGE_IMPORT_DESCRIPTOR>(table.VirtualAddress) : nullptr;
  }

 private:
  char* start;
};

// The name of the function that an import asks for; one that is asked for by number has none.
std::string ImportName(const Image& image, const IMAGE_THUNK_DATA& import) {
  if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) return "number " + devhost::Decimal(IMAGE_ORDINAL(import.u1.Ordinal));
  return image.At<const IMAGE_IMPORT_BY_NAME>(import.u1.AddressOfData)->Name;
}

void Replace(IMAGE_THUNK_DATA& address, const Row& row) {
  DWORD protection = 0;
  VirtualProtect(&address, sizeof address, PAGE_READWRITE, &protection);
  address.u1.Function = reinterpret_cast<ULONGLONG>(row.replace(reinterpret_cast<void*>(address.u1.Function)));
  VirtualProtect(&address, sizeof address, protection, &protection);
}

}  // namespace

void PrintLine(const std::string& line) {
  const DWORD lastError = GetLastError();
  std::fflush(stdout);
  const std::string whole = line + "\n";
  std::fwrite(whole.data(), 1, whole.size(), stderr);
  std::fflush(stderr);
  SetLastError(lastError);
}

}  // namespace gl_trace

namespace devhost {

bool TraceOpenGl(const Module& module) {
  using namespace gl_trace;
  const Image image(module.handle);
  for (const auto* library = image.Imports(); library && library->Name; ++library) {
    const char* name = image.At<const char>(library->Name);
    if (!IsTraced(name)) continue;
    const auto* import = image.At<const IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
    for (auto* address = image.At<IMAGE_THUNK_DATA>(library->FirstThunk); import->u1.AddressOfData;
         ++import, ++address) {
      const std::string function = ImportName(image, *import);
      const Row* row = FindRow(function.c_str());
      if (!row) {
        Raise(kErrorFile, module.path + " calls " + function + " of " + name + ", which cannot be traced.");
        return false;
      }
      Replace(*address, *row);
    }
  }
  return true;
}

}  // namespace devhost
