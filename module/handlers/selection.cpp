#include <span>

#include "module/handlers/handlers.h"

namespace {

// Required: the scale is 2^31, so depths reach 2.
float Depth(unsigned z) { return static_cast<float>(z) / 2147483648.0F; }

// Moves the next hit record of the buffer into the element: [names, nearest depth, farthest depth]. A record that does
// not fit into the buffer, which OpenGL never writes, is left empty and ends the buffer.
void TakeRecord(std::span<const unsigned>& words, Variable& element) {
  if (words.size() < 3 || words[0] > words.size() - 3) {
    words = {};
    return;
  }
  const std::size_t count = words[0];
  element.Init(TVAR_ARRAY, 3);
  element[0].Init(TVAR_ARRAY, static_cast<int>(count));
  element[1] = Depth(words[1]);
  element[2] = Depth(words[2]);
  for (std::size_t i = 0; i < count; ++i) {
    element[0][static_cast<int>(i)] = static_cast<unsigned long>(words[3 + i]);
  }
  words = words.subspan(3 + count);
}

}  // namespace

void script::EndSelection(TOpenGL& self, ScriptCall& call) {
  const std::optional<int> hits = self.EndSelection();
  if (!hits) return;
  Variable& records = call.Result();
  records.Init(TVAR_ARRAY, *hits);
  std::span<const unsigned> words = self.GetSelectBuffer();
  for (int i = 0; i < *hits; ++i) TakeRecord(words, records[i]);
}
