// Variables, elements and fields: reading them and assigning to them.
#include <string>
#include <utility>

#include "devhost/script/interpreter.h"
#include "devhost/script/trace.h"

namespace devhost::script {
namespace {

using Kind = Expression::Kind;

// Bytes are no variables of their own, so an element of a text is written in the text.
bool StoreByte(Variable& text, Variable& index, Variable& value) {
  if (!Element(text, index)) return false;
  const int byte = static_cast<int>(value);
  if (PendingError()) return false;
  if (byte < 0 || byte > 255) {
    Raise(kErrorConversion, "An element of a text is a byte: it lies between 0 and 255.");
    return false;
  }
  text.GetString()->bytes[static_cast<int>(index)] = static_cast<unsigned char>(byte);
  return true;
}

// A field that the class keeps behind SetName, or behind GetName alone; false when it is a plain one.
bool StoreThroughMethods(Variable& object, const std::string& name, Variable& value) {
  const std::string kind = KindOf(object);
  if (!SignaturesOf(kind, "Set" + name).empty()) {
    Variable unused;
    CallMethod(unused, object, "Set" + name, {&value, 1});
    return true;
  }
  if (SignaturesOf(kind, "Get" + name).empty()) return false;
  Raise(kErrorName, "The field '" + name + "' of " + kind + " can be read only.");
  return true;
}

}  // namespace

// What a place is reached through, evaluated. The container is a reference of its own, so evaluating the index may do
// to the container's variable what it likes.
struct Interpreter::Place {
  Variable container;
  Variable index;
};

bool Interpreter::Reach(const Expression& expression, Place& place) {
  if (expression.kind == Kind::Field) return Evaluate(*As<FieldExpression>(expression).object, place.container);
  if (expression.kind != Kind::Index) return true;
  const auto& element = As<IndexExpression>(expression);
  return Evaluate(*element.container, place.container) && Evaluate(*element.index, place.index);
}

// The variable in the place, to be used at once; null with an error raised.
Variable* Interpreter::Find(const Expression& expression, Place& place) {
  Variable* found = nullptr;
  if (expression.IsName()) {
    const auto& name = As<NameExpression>(expression);
    Slot& slot = SlotOf(name);
    if (slot.assigned) return &slot.value;
    FailUnknown(name);
  } else if (expression.kind == Kind::Field) {
    found = Field(place.container, As<FieldExpression>(expression).name);
  } else {
    found = Element(place.container, place.index);
  }
  if (!found) FailAt(expression);
  return found;
}

bool Interpreter::Store(const Expression& target, Place& place, Variable& value) {
  if (target.IsName()) {
    Slot& slot = SlotOf(As<NameExpression>(target));
    slot.assigned = true;
    Assign(slot.value, value);
    return true;
  }
  if (target.kind == Kind::Index && place.container.type == TVAR_BYTES) {
    return StoreByte(place.container, place.index, value) || FailAt(target);
  }
  if (target.kind == Kind::Field && StoreThroughMethods(place.container, As<FieldExpression>(target).name, value)) {
    return !PendingError() || FailAt(target);
  }
  Variable* found = Find(target, place);
  if (!found) return false;
  Assign(*found, value);
  return true;
}

bool Interpreter::EvaluatePlace(const Expression& expression, Variable& value) {
  Place place;
  if (!Reach(expression, place)) return false;
  const Variable* found = Find(expression, place);
  if (!found) return false;
  Assign(value, *found);
  return true;
}

bool Interpreter::AssignValue(const AssignStatement& statement) {
  const Expression& target = *statement.place;
  Variable value;
  Place place;
  return Evaluate(*statement.value, value) && Reach(target, place) && Store(target, place, value);
}

// += and its like: the method of that name where the left side's class has one, the operator otherwise.
bool Interpreter::AssignCombined(const AssignStatement& statement, Operator op) {
  const Expression& target = *statement.place;
  Variable value;
  Place place;
  if (!Evaluate(*statement.value, value) || !Reach(target, place)) return false;
  const Variable* found = Find(target, place);
  if (!found) return false;
  Variable old(*found);
  bool done = false;
  if (old.type == kObjectType && !CombineInPlace(op, old, value, done)) return FailAt(target);
  if (done) return true;
  Variable combined;
  if (!Compute(combined, op, old, value)) return FailAt(target);
  return Store(target, place, combined);
}

// `done` stays false when the object's class has no method for it.
bool Interpreter::CombineInPlace(Operator op, Variable& object, Variable& value, bool& done) {
  static constexpr std::pair<Operator, std::string_view> kMethods[] = {
      {Operator::Add, "+="}, {Operator::Subtract, "-="}, {Operator::Multiply, "*="}, {Operator::Divide, "/="}};
  for (const auto& [operation, method] : kMethods) {
    if (operation != op || SignaturesOf(KindOf(object), method).empty()) continue;
    Variable unused;
    done = CallMethod(unused, object, method, {&value, 1});
    return done;
  }
  return true;
}

}  // namespace devhost::script
