// The registry of classes and plain functions, and the choice of the overload that a call means.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "devhost/runtime/signature.h"
#include "host/talq.h"

namespace devhost {

// A registered row.
struct Method {
  std::string text;  // the signature as registered
  Signature signature;
  ScriptHandler handler;
  const MethodEntry* table;  // that it came with
};

// A class of scripts, or with the name "" the plain functions.
struct Class {
  std::string name;
  std::vector<Method> methods;                                             // in table order
  std::map<std::string, std::vector<std::size_t>, std::less<>> overloads;  // by name: indices into methods
};

// The class, or the plain functions with ""; null when there is none.
const Class* FindClass(std::string_view name);
// The class whose methods can be called on the value: "String" for texts, "Vector" for arrays; null when it has none.
const Class* ClassOf(const Variable& value);
// Whether the class has a method of the name.
bool HasMethod(const Class& type, std::string_view name);
// "TOpenGL::Rotate takes (x, y, z, angle) or (POINT3, angle)": every form of a method that the class has, with the
// names that the reference gives its arguments, else with their types.
std::string FormsOf(const Class& type, std::string_view name);
// Whether the method has a form without parameters.
bool HasPlainMethod(const Class& type, std::string_view name);
// The method that these arguments fit, or null with an error raised whose hint says which forms there are.
const Method* ResolveMethod(const Class& type, std::string_view name, VarRegister* args, int count);
// The destructor, or null.
const Method* DestructorOf(const Class& type);

// Forgets the rows that came from the table, and the classes that are then empty.
void UnregisterMethods(const MethodEntry* table);

}  // namespace devhost
