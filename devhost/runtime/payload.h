// What a value's slot points to when it is a byte string, an array or an object: records that count their references.
#pragma once

#include <string_view>
#include <vector>

#include "host/talq.h"

namespace devhost {

struct Class;

// Tags of values whose slot points to a record that counts its references; 2048 is kObjectType (runtime.h).
inline constexpr int kCountedTypes = TVAR_FUNCTION | TVAR_BYTES | TVAR_ARRAY | 2048;

// Bytes lie in memory of malloc, with a zero past the end so that they serve as a C text; null when memory was out.
struct BytesPayload {
  int references = 0;
  String record{nullptr, 0};

  ~BytesPayload();
};

// The elements of a Vector.
struct ArrayPayload {
  int references = 0;
  std::vector<Variable> elements;
};

// A field of an object, by the id of its name.
struct FieldSlot {
  unsigned short name;
  Variable value;
};

// A script object. All live ones form a list, so that unloading can destroy what is left.
struct ObjectPayload {
  // Adds it to the list; its destructor takes it out.
  explicit ObjectPayload(const Class* objectClass);
  ObjectPayload(const ObjectPayload&) = delete;
  ObjectPayload& operator=(const ObjectPayload&) = delete;
  ~ObjectPayload();

  int references = 0;
  bool destroyed = false;  // its class's destructor has run
  const Class* type;       // null once its class is unloaded
  std::vector<FieldSlot> fields;
  Variable elements;               // what an index on the object reaches: the rows of a Matrix
  void* native = nullptr;          // what GetAssID yields
  TalqAss* association = nullptr;  // the same object when it was joined by TalqAss::Join
  ObjectPayload* previous = nullptr;
  ObjectPayload* next = nullptr;
};

// Whether the value is a number of any type.
inline bool IsNumeric(const Variable& value) { return (value.type & kNumericTypes) != 0; }

// The payload of a value, or null when the value is of another type.
BytesPayload* BytesOf(const Variable& value);
ArrayPayload* ArrayOf(const Variable& value);
ObjectPayload* ObjectOf(const Variable& value);

// The text in a byte string; empty for other values.
std::string_view TextIn(const Variable& value);

// One more, one fewer reference to what the value's slot points to.
void Retain(const Variable& value);
void Release(TVARTYPE type, void* payload);

// target = a new object of the class, without its constructor run.
void MakeObject(Variable& target, const Class* type);

// Runs the destructor of the object's class, unless it has run.
void RunDestructor(ObjectPayload& object);
// Destroys all live objects, empties them and takes their class away.
void DestroyAllObjects();
// Class names of the native objects that were joined when their script object died or was destroyed; forgets them.
std::vector<std::string_view> TakeJoinedNatives();

}  // namespace devhost
