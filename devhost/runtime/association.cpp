// TalqAss: the join between a native object and a script object.
#include "devhost/runtime/payload.h"

// The state is the joined object's payload and the context that the join was made with.
TalqAss::TalqAss() : hostState{nullptr, nullptr} {}
TalqAss::~TalqAss() { BreakJoint(); }
void TalqAss::PlaceHolder() {}

void TalqAss::Join(Variable* object, void* context) {
  BreakJoint();
  devhost::ObjectPayload* payload = object ? devhost::ObjectOf(*object) : nullptr;
  if (!payload) return;
  if (payload->association) payload->association->BreakJoint();
  payload->native = this;
  payload->association = this;
  hostState[0] = payload;
  hostState[1] = context;
}

void TalqAss::BreakJoint() {
  if (auto* payload = static_cast<devhost::ObjectPayload*>(hostState[0])) {
    payload->native = nullptr;
    payload->association = nullptr;
  }
  hostState[0] = nullptr;
  hostState[1] = nullptr;
}
