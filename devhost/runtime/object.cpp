// Script objects: the list of those that live, their destructors, and the native objects joined to them.
#include "devhost/runtime/call_observer.h"
#include "devhost/runtime/classes.h"
#include "devhost/runtime/payload.h"
#include "devhost/runtime/register.h"
#include "devhost/runtime/runtime.h"

namespace devhost {
namespace {

ObjectPayload* firstObject = nullptr;

// Class names of native objects whose script object died while they were joined.
std::vector<std::string_view>& AbandonedNatives() {
  static auto& names = *new std::vector<std::string_view>;
  return names;
}

std::string_view NameOf(const ObjectPayload& object) {
  return object.type ? std::string_view(object.type->name) : std::string_view("object");
}

// References to all live objects, so that none ends while they are walked.
std::vector<Variable> LiveObjects() {
  std::vector<Variable> objects;
  for (ObjectPayload* object = firstObject; object; object = object->next) {
    ++object->references;
    Variable& reference = objects.emplace_back();
    reference.type = kObjectType;
    reference.slot.pointer = object;
  }
  return objects;
}

}  // namespace

ObjectPayload::ObjectPayload(const Class* objectClass) : type(objectClass), next(firstObject) {
  if (next) next->previous = this;
  firstObject = this;
}

ObjectPayload::~ObjectPayload() {
  if (native) AbandonedNatives().push_back(NameOf(*this));
  if (association) association->BreakJoint();
  (previous ? previous->next : firstObject) = next;
  if (next) next->previous = previous;
}

void RunDestructor(ObjectPayload& object) {
  if (object.destroyed) return;
  object.destroyed = true;
  const Method* destructor = object.type ? DestructorOf(*object.type) : nullptr;
  if (!destructor) return;
  Variable self;
  self.type = kObjectType;
  self.slot.pointer = &object;
  Retain(self);
  RegisterFrame frame(1);
  frame.Bind(0, self);
  VarRegister result;
  RunHandler(*destructor, result, frame.Registers(), 0);
}

void DestroyAllObjects() {
  const std::vector<Variable> objects = LiveObjects();
  for (const Variable& reference : objects) RunDestructor(*ObjectOf(reference));
  for (const Variable& reference : objects) {
    ObjectPayload* object = ObjectOf(reference);
    // What the objects held ends here, rings of references included.
    std::vector<FieldSlot> fields;
    fields.swap(object->fields);
    object->elements.Clear();
    if (object->native) AbandonedNatives().push_back(NameOf(*object));
    if (object->association) object->association->BreakJoint();
    object->native = nullptr;
    object->type = nullptr;
  }
}

std::vector<std::string_view> TakeJoinedNatives() {
  std::vector<std::string_view> names;
  names.swap(AbandonedNatives());
  return names;
}

}  // namespace devhost
