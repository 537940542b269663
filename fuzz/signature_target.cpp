// Any text as a row's signature: it is refused with a reason, or its parts print and parse again.
#include <cstdint>
#include <cstdlib>

#include "devhost/signature.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  devhost::Signature signature;
  std::string fault;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (!devhost::ParseSignature(text, signature, fault)) {
    if (fault.empty()) std::abort();
    return 0;
  }
  devhost::ParameterListText(signature);
  return 0;
}
