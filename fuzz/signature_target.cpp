// Any text as a row's signature: it is refused with a reason, or its parameters print as a list.
#include <cstdint>
#include <cstdlib>

#include "devhost/runtime/signature.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  devhost::Signature signature;
  std::string fault;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!devhost::ParseSignature(text, signature, fault)) {
    if (fault.empty()) std::abort();
    return 0;
  }
  const std::string list = devhost::ParameterListText(signature);
  if (!list.starts_with('(') || !list.ends_with(')')) std::abort();
  return 0;
}
