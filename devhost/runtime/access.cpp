#include "devhost/runtime/access.h"

#include <array>
#include <string>

#include "devhost/runtime/classes.h"
#include "devhost/runtime/names.h"
#include "devhost/runtime/near_names.h"
#include "devhost/runtime/number.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

struct ScratchRing {
  std::array<Variable, 16> values;
  std::size_t next = 0;
};

ScratchRing& Ring() {
  static auto& ring = *new ScratchRing;
  return ring;
}

// The array that an index on the value reaches, or null.
ArrayPayload* ElementsOf(const Variable& value) {
  if (ArrayPayload* array = ArrayOf(value)) return array;
  const ObjectPayload* object = ObjectOf(value);
  return object ? ArrayOf(object->elements) : nullptr;
}

// "colour.Red" is colour->GetRed() where the class has that method.
Variable* CallGetter(Variable& object, const Class& type, std::string_view field) {
  const std::string getter = "Get" + std::string(field);
  if (!HasPlainMethod(type, getter)) return nullptr;
  Variable& result = Scratch();
  return CallMethod(result, object, getter, {}) ? &result : nullptr;
}

// What a field that the object lacks may have been meant to be: a method, or another field.
std::string HintOnField(const ObjectPayload& object, std::string_view name) {
  std::vector<std::string> fields;
  fields.reserve(object.fields.size());
  for (const FieldSlot& field : object.fields) fields.emplace_back(NameOfId(field.name));
  if (object.type) {
    if (HasMethod(*object.type, name)) return FormsOf(*object.type, name);
    for (const std::string& method : MethodNames(object.type->name)) {
      if (method.starts_with("Get") && HasPlainMethod(*object.type, method)) fields.push_back(method.substr(3));
    }
  }
  return DidYouMean(name, fields);
}

Variable* ByteElement(const BytesPayload& bytes, long long index) {
  Variable& result = Scratch();
  result = static_cast<int>(bytes.record.bytes[index]);
  return &result;
}

}  // namespace

Variable& Scratch() {
  ScratchRing& ring = Ring();
  Variable& value = ring.values[ring.next];
  ring.next = (ring.next + 1) % ring.values.size();
  value.Clear();
  return value;
}

void ClearScratch() {
  for (Variable& value : Ring().values) value.Clear();
}

Variable* FindField(Variable& object, unsigned short name) {
  ObjectPayload* payload = ObjectOf(object);
  if (payload) {
    for (FieldSlot& field : payload->fields) {
      if (field.name == name) return &field.value;
    }
  }
  const std::string_view text = NameOfId(name);
  if (payload && payload->type) {
    const int raisedBefore = RaisedCount();
    if (Variable* value = CallGetter(object, *payload->type, text)) return value;
    if (RaisedCount() > raisedBefore) return nullptr;
  }
  Raise(kErrorName, "A " + KindOf(object) + " has no field \"" + std::string(text) + "\".",
        payload ? HintOnField(*payload, text) : "");
  return nullptr;
}

Variable& DefineField(Variable& object, std::string_view name) {
  ObjectPayload* payload = ObjectOf(object);
  if (!payload) return Scratch();
  payload->fields.push_back({NameId(name), Variable()});
  return payload->fields.back().value;
}

Variable* Field(Variable& object, std::string_view name) { return FindField(object, NameId(name)); }

Variable* Element(Variable& container, Variable& index) {
  const ArrayPayload* array = ElementsOf(container);
  const BytesPayload* bytes = BytesOf(container);
  if (!array && !bytes) {
    Raise(kErrorConversion, "A " + KindOf(container) + " has no elements.");
    return nullptr;
  }
  if (!IsNumeric(index)) {
    Raise(kErrorConversion, "An index is a number, not " + KindOf(index) + ".");
    return nullptr;
  }
  const long long at = Int64Of(index);
  const long long length = array ? static_cast<long long>(array->elements.size()) : bytes->record.length;
  if (at < 0 || at >= length) {
    Raise(kErrorConversion, "Index " + Decimal(at) + " lies outside the " + Decimal(length) + " elements of the " +
                                KindOf(container) + ".");
    return nullptr;
  }
  return array ? &ElementsOf(container)->elements[static_cast<std::size_t>(at)] : ByteElement(*bytes, at);
}

}  // namespace devhost

// A module's index outside the array yields an empty value, so that reading it is a failed conversion.
Variable& Variable::operator[](int index) {
  if (devhost::ArrayPayload* array = devhost::ElementsOf(*this)) {
    if (index >= 0 && static_cast<std::size_t>(index) < array->elements.size()) {
      return array->elements[static_cast<std::size_t>(index)];
    }
  } else if (const devhost::BytesPayload* bytes = devhost::BytesOf(*this)) {
    if (index >= 0 && index < bytes->record.length) return *devhost::ByteElement(*bytes, index);
  }
  return devhost::Scratch();
}

Variable& Variable::operator()(unsigned short nameId) {
  Variable* field = devhost::FindField(*this, nameId);
  return field ? *field : devhost::Scratch();
}

Variable& Variable::operator()(char* field) { return (*this)(devhost::NameId(field ? field : "")); }
