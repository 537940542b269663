#include <windows.h>

#include "devhost/runtime/imports.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

// A loaded file's image, whose tables point by offsets from its start.
class Image {
 public:
  explicit Image(HINSTANCE__* module) : start(reinterpret_cast<char*>(module)) {}

  template <class T>
  T* At(std::size_t offset) const {
    return reinterpret_cast<T*>(start + offset);
  }
  // Ends with one without a name; null when nothing is imported.
  const IMAGE_IMPORT_DESCRIPTOR* Imports() const {
    const auto* headers = At<IMAGE_NT_HEADERS>(static_cast<std::size_t>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    const IMAGE_DATA_DIRECTORY& table = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    return table.Size > 0 ? At<const IMAGE_IMPORT_DESCRIPTOR>(table.VirtualAddress) : nullptr;
  }

 private:
  char* start;
};

std::string FunctionName(const Image& image, const IMAGE_THUNK_DATA& import) {
  if (IMAGE_SNAP_BY_ORDINAL(import.u1.Ordinal)) return "number " + Decimal(IMAGE_ORDINAL(import.u1.Ordinal));
  return image.At<const IMAGE_IMPORT_BY_NAME>(import.u1.AddressOfData)->Name;
}

}  // namespace

std::vector<Import> ImportsOf(HINSTANCE__* module) {
  const Image image(module);
  std::vector<Import> imports;
  for (const auto* library = image.Imports(); library && library->Name; ++library) {
    const auto* import = image.At<const IMAGE_THUNK_DATA>(library->OriginalFirstThunk);
    auto** address = image.At<void*>(library->FirstThunk);
    for (; import->u1.AddressOfData; ++import, ++address) {
      imports.push_back({image.At<const char>(library->Name), FunctionName(image, *import), address});
    }
  }
  return imports;
}

void Redirect(const Import& import, void* function) {
  DWORD protection = 0;
  VirtualProtect(static_cast<void*>(import.address), sizeof *import.address, PAGE_READWRITE, &protection);
  *import.address = function;
  VirtualProtect(static_cast<void*>(import.address), sizeof *import.address, protection, &protection);
}

}  // namespace devhost
