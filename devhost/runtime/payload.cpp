#include "devhost/runtime/payload.h"

#include <cstdlib>

#include "devhost/runtime/runtime.h"

namespace devhost {

BytesPayload::~BytesPayload() { std::free(record.bytes); }

BytesPayload* BytesOf(const Variable& value) {
  return value.type == TVAR_BYTES ? static_cast<BytesPayload*>(value.slot.pointer) : nullptr;
}

ArrayPayload* ArrayOf(const Variable& value) {
  return value.type == TVAR_ARRAY ? static_cast<ArrayPayload*>(value.slot.pointer) : nullptr;
}

ObjectPayload* ObjectOf(const Variable& value) {
  return value.type == kObjectType ? static_cast<ObjectPayload*>(value.slot.pointer) : nullptr;
}

std::string_view TextIn(const Variable& value) {
  const BytesPayload* bytes = BytesOf(value);
  if (!bytes || !bytes->record.bytes) return {};
  return {reinterpret_cast<const char*>(bytes->record.bytes), static_cast<std::size_t>(bytes->record.length)};
}

namespace {

void ReleaseObject(ObjectPayload* object) {
  if (--object->references > 0) return;
  // The destructor's handler sees the object as a value, which holds a reference of its own meanwhile.
  object->references = 1;
  RunDestructor(*object);
  if (--object->references == 0) delete object;
}

// Arrays that die while another one is being deleted wait here, so that any depth of nesting needs one stack frame.
void ReleaseArray(ArrayPayload* array) {
  static auto& dying = *new std::vector<ArrayPayload*>;
  static bool isDeleting = false;
  if (--array->references > 0) return;
  dying.push_back(array);
  if (isDeleting) return;
  isDeleting = true;
  while (!dying.empty()) {
    const ArrayPayload* next = dying.back();
    dying.pop_back();
    delete next;
  }
  isDeleting = false;
}

template <typename Payload>
void ReleaseCounted(Payload* payload) {
  if (--payload->references == 0) delete payload;
}

}  // namespace

void Retain(const Variable& value) {
  switch (static_cast<int>(value.type)) {
    case TVAR_BYTES:
      ++static_cast<BytesPayload*>(value.slot.pointer)->references;
      break;
    case TVAR_ARRAY:
      ++static_cast<ArrayPayload*>(value.slot.pointer)->references;
      break;
    case kObjectType:
      ++static_cast<ObjectPayload*>(value.slot.pointer)->references;
      break;
    case TVAR_FUNCTION:
      ++static_cast<Function*>(value.slot.pointer)->references;
      break;
    default:
      break;
  }
}

void Release(TVARTYPE type, void* payload) {
  switch (static_cast<int>(type)) {
    case TVAR_BYTES:
      ReleaseCounted(static_cast<BytesPayload*>(payload));
      break;
    case TVAR_ARRAY:
      ReleaseArray(static_cast<ArrayPayload*>(payload));
      break;
    case kObjectType:
      ReleaseObject(static_cast<ObjectPayload*>(payload));
      break;
    case TVAR_FUNCTION:
      ReleaseCounted(static_cast<Function*>(payload));
      break;
    default:
      break;
  }
}

}  // namespace devhost
