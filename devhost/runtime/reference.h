// The two references that the build puts into the program: docs/reference.md of what the module offers to scripts, and
// docs/host-reference.md of what the host and its language do.
//
// "## Title" begins a group; a heading "### " and one word, "Class::Name" or "Name", an entry. An entry begins with a
// fenced block that holds two lines a form, "Rotate(x, y, z, angle)" and, indented, what a list of methods shows of it;
// then comes its text. The rows of tables of errors are "| code | `NAME` | text | meaning | what helps |".
#pragma once

#include <span>
#include <string_view>
#include <vector>

namespace devhost {

// One form of a method; each part is a view of the document.
struct ReferenceForm {
  std::string_view call;       // "Rotate(x, y, z, angle)"
  std::string_view signature;  // "TOpenGL::Rotate(number, number, number, number)"
};

struct ReferenceEntry {
  std::string_view name;   // "TOpenGL::Rotate"; "Print" of a function, "include" of a statement
  std::string_view group;  // the title that it stands under; "" before the first
  std::vector<ReferenceForm> forms;
  std::string_view block;  // the fenced lines as they stand
  std::string_view text;   // what follows them

  bool IsMethod() const { return name.find("::") != name.npos; }
  std::string_view ClassName() const { return IsMethod() ? name.substr(0, name.find("::")) : std::string_view(); }
  std::string_view MethodName() const { return IsMethod() ? name.substr(name.find("::") + 2) : name; }
};

// An error, or what a check finds; each part is a view of the document.
struct ReferenceError {
  std::string_view code;  // "1001"; what a finding is about, or nothing
  std::string_view name;  // "OGL_NO_DC"
  std::string_view text;
  std::string_view meaning;
  std::string_view advice;  // what helps; may be empty
};

struct ReferenceDocument {
  std::string_view owner;  // who offers what it describes, "development host"; "" for the module
  std::vector<ReferenceEntry> entries;
  std::vector<ReferenceError> errors;
};

// The whole documents.
std::string_view ReferenceText();
std::string_view HostReferenceText();

// The entries of a document in its order, apart from headings that are not one word. Views of `document`.
std::vector<ReferenceEntry> ParseReference(std::string_view document);

// The rows of a document's tables of errors. Views of `document`.
std::vector<ReferenceError> ParseReferenceErrors(std::string_view document);

// Both references, the module's first.
std::span<const ReferenceDocument> References();

// The entries of the module's reference.
const std::vector<ReferenceEntry>& Reference();

// The entry of a method of the module's classes, or null.
const ReferenceEntry* FindInReference(std::string_view className, std::string_view method);

// How the form of the module with this signature is called, "(x, y, z, angle)"; "" for one that the reference does not
// have, and for an operator.
std::string_view ArgumentsInReference(std::string_view signature);

// What helps against the error of this name, as one of the references has it; "" where they say
// nothing.
std::string_view AdviceInReference(std::string_view errorName);

}  // namespace devhost
