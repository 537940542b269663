// Values in words and as text.
#include "devhost/runtime/classes.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/runtime.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr int kMaxDepth = 16;  // an array may contain itself

std::string TextAtDepth(const Variable& value, int depth);

std::string ListText(const std::vector<Variable>& elements, int depth) {
  std::string text = "[";
  for (const Variable& element : elements) {
    if (text.size() > 1) text += ", ";
    text += TextAtDepth(element, depth + 1);
  }
  return text + "]";
}

std::string RowsText(const std::vector<Variable>& rows, int depth) {
  std::string text;
  for (const Variable& row : rows) {
    if (!text.empty()) text += '\n';
    text += TextAtDepth(row, depth + 1);
  }
  return text;
}

// An object's long arrays are told by their length.
std::string FieldText(const Variable& value, int depth) {
  const ArrayPayload* array = ArrayOf(value);
  return array ? "Vector of " + Decimal(static_cast<long long>(array->elements.size())) : TextAtDepth(value, depth + 1);
}

std::string ObjectText(const ObjectPayload& object, const Variable& value, int depth) {
  if (const ArrayPayload* rows = ArrayOf(object.elements)) return RowsText(rows->elements, depth);
  std::string text;
  for (const FieldSlot& field : object.fields) {
    if (!text.empty()) text += ", ";
    text += FieldText(field.value, depth);
  }
  return text.empty() ? KindOf(value) : KindOf(value) + "(" + text + ")";
}

std::string TextAtDepth(const Variable& value, int depth) {
  if (depth > kMaxDepth) return "...";
  switch (static_cast<int>(value.type)) {
    case TVAR_INT64:
      return Decimal(value.slot.int64);
    case TVAR_BYTE:
      return Decimal(value.slot.byte);
    case TVAR_INT32:
      return Decimal(value.slot.int32);
    case TVAR_FLOAT:
      return ShortestText(value.slot.float32);
    case TVAR_DOUBLE:
      return ShortestText(value.slot.float64);
    case TVAR_BYTES:
      return std::string(TextIn(value));
    case TVAR_ARRAY:
      return ListText(ArrayOf(value)->elements, depth);
    case kObjectType:
      return ObjectText(*ObjectOf(value), value, depth);
    case kReferenceType:
      return TextAtDepth(*static_cast<const Variable*>(value.slot.pointer), depth + 1);
    default:
      return KindOf(value);
  }
}

}  // namespace

std::string KindOf(const Variable& value) {
  if (IsNumeric(value)) return "number";
  if (value.type == TVAR_BYTES) return "String";
  if (value.type == TVAR_ARRAY) return "Vector";
  if (value.type == TVAR_FUNCTION) return "function";
  if (const ObjectPayload* object = ObjectOf(value)) return object->type ? object->type->name : "destroyed object";
  if (value.type == kReferenceType) return KindOf(*static_cast<const Variable*>(value.slot.pointer));
  return "nothing";
}

std::string TextOf(const Variable& value) { return TextAtDepth(value, 0); }

}  // namespace devhost
