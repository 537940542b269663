#include "tests/unit/support/leftovers.h"

#include "devhost/runtime/access.h"
#include "tests/recorder/recorder.h"
#include "tests/unit/support/allocation.h"

std::string TakeLeftovers() {
  // The host may hold back some of what it was given.
  devhost::ClearScratch();
  std::string text = TakeLiveAllocations();
  if (!text.empty()) text.insert(0, "not given back: ");
  for (const std::string& line : recorder::Get().balance.TakeUndeleted()) text += (text.empty() ? "" : "; ") + line;
  return text;
}
