// Variable: construction, types, and writing.
#include <climits>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

using devhost::ArrayOf;
using devhost::ArrayPayload;
using devhost::BytesOf;
using devhost::BytesPayload;
using devhost::ObjectOf;

namespace {

// More elements than any script needs, and few enough that their bytes fit into memory.
constexpr int kMaxElements = 1 << 26;

BytesPayload* NewBytes(int length) {
  auto* payload = new BytesPayload;
  payload->references = 1;
  payload->record.bytes = static_cast<unsigned char*>(std::calloc(static_cast<std::size_t>(length) + 1, 1));
  payload->record.length = payload->record.bytes ? length : 0;
  return payload;
}

ArrayPayload* NewArray(int length) {
  auto* payload = new ArrayPayload;
  payload->references = 1;
  payload->elements = std::vector<Variable>(static_cast<std::size_t>(length));
  return payload;
}

void Set(Variable& target, TVARTYPE type, void* payload) {
  target.Clear();
  target.type = type;
  target.slot.pointer = payload;
}

}  // namespace

Variable::Variable() : type(devhost::kEmptyType), slot{0} {}
Variable::Variable(const Variable& other) : type(other.type), slot(other.slot) {
  if (type & devhost::kCountedTypes) devhost::Retain(*this);
}
Variable::Variable(unsigned char value) : type(TVAR_BYTE), slot{0} { slot.byte = value; }
Variable::Variable(int value) : type(TVAR_INT32), slot{0} { slot.int32 = value; }
Variable::Variable(long long value) : type(TVAR_INT64), slot{value} {}
Variable::Variable(float value) : type(TVAR_FLOAT), slot{0} { slot.float32 = value; }
Variable::Variable(double value) : type(TVAR_DOUBLE), slot{0} { slot.float64 = value; }

Variable::Variable(TVARTYPE valueType, char* source) : Variable() {
  if (valueType == TVAR_FUNCTION) {
    if (devhost::Function* function = devhost::CompileFunction(source)) devhost::AssignFunction(*this, function);
  } else if (valueType == TVAR_BYTES) {
    *this = source;
  }
}

Variable::~Variable() {
  if (type & devhost::kCountedTypes) devhost::Release(type, slot.pointer);
}

void Variable::Clear() {
  const TVARTYPE oldType = std::exchange(type, devhost::kEmptyType);
  const Slot oldSlot = std::exchange(slot, Slot{0});
  if (oldType & devhost::kCountedTypes) devhost::Release(oldType, oldSlot.pointer);
}

void Variable::Init(TVARTYPE newType, int n) {
  const int length = n < 0 ? 0 : n;
  if (newType == TVAR_BYTES) {
    Set(*this, TVAR_BYTES, NewBytes(length));
  } else if (newType == TVAR_ARRAY && length > kMaxElements) {
    Set(*this, TVAR_ARRAY, NewArray(0));
    devhost::Raise(devhost::kErrorConversion, "An array of " + devhost::Decimal(n) + " elements is too long.");
  } else if (newType == TVAR_ARRAY) {
    Set(*this, TVAR_ARRAY, NewArray(length));
  } else {
    Clear();
  }
}

TVARTYPE Variable::GetType() { return type; }
int Variable::IsNumber() { return devhost::IsNumeric(*this) ? 1 : 0; }
int Variable::IsPointer() { return type == devhost::kReferenceType ? 1 : 0; }
Variable* Variable::GetPointer() { return IsPointer() ? static_cast<Variable*>(slot.pointer) : nullptr; }

int Variable::GetDim() {
  if (const ArrayPayload* array = ArrayOf(*this)) return static_cast<int>(array->elements.size());
  if (const auto* object = ObjectOf(*this)) {
    if (const ArrayPayload* array = ArrayOf(object->elements)) return static_cast<int>(array->elements.size());
  }
  return 0;
}

String* Variable::GetString() {
  BytesPayload* bytes = BytesOf(*this);
  return bytes ? &bytes->record : nullptr;
}

void* Variable::GetAssID() {
  const auto* object = ObjectOf(*this);
  return object ? object->native : nullptr;
}

Variable& Variable::operator=(int value) {
  Clear();
  type = TVAR_INT32;
  slot.int32 = value;
  return *this;
}

// 64 bits hold every unsigned value, so none turns negative.
Variable& Variable::operator=(unsigned long value) { return *this = static_cast<long long>(value); }

Variable& Variable::operator=(long long value) {
  Clear();
  type = TVAR_INT64;
  slot.int64 = value;
  return *this;
}

Variable& Variable::operator=(float value) {
  Clear();
  type = TVAR_FLOAT;
  slot.float32 = value;
  return *this;
}

Variable& Variable::operator=(double value) {
  Clear();
  type = TVAR_DOUBLE;
  slot.float64 = value;
  return *this;
}

Variable& Variable::operator=(char* text) {
  devhost::AssignText(*this, text ? std::string_view(text) : std::string_view());
  return *this;
}

namespace devhost {

void Assign(Variable& target, const Variable& source) {
  // The copy is made first: clearing the target may end what holds the source.
  const TVARTYPE type = source.type;
  const Variable::Slot slot = source.slot;
  if (type & kCountedTypes) Retain(source);
  target.Clear();
  target.type = type;
  target.slot = slot;
}

void AssignText(Variable& target, std::string_view text) {
  const int length = text.size() > INT_MAX - 1 ? INT_MAX - 1 : static_cast<int>(text.size());
  BytesPayload* payload = NewBytes(length);
  if (payload->record.length > 0) std::memcpy(payload->record.bytes, text.data(), static_cast<std::size_t>(length));
  Set(target, TVAR_BYTES, payload);
}

void AssignBool(Variable& target, bool value) { target = value ? 1 : 0; }

void AssignFunction(Variable& target, Function* function) {
  ++function->references;
  Set(target, TVAR_FUNCTION, function);
}

Function* FunctionOf(const Variable& value) {
  return value.type == TVAR_FUNCTION ? static_cast<Function*>(value.slot.pointer) : nullptr;
}

void MakeObject(Variable& target, const Class* type) {
  auto* object = new ObjectPayload(type);
  object->references = 1;
  Set(target, kObjectType, object);
}

bool IsTrue(const Variable& value) {
  if (IsNumeric(value)) return double(Variable(value)) != 0;
  if (const BytesPayload* bytes = BytesOf(value)) return bytes->record.length > 0;
  if (const ArrayPayload* array = ArrayOf(value)) return !array->elements.empty();
  return value.type != kEmptyType;
}

}  // namespace devhost
