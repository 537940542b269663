// The reference of the script API, docs/reference.md, which the build puts into the program.
//
// "## Title" begins a group, "### Class::Name" an entry. An entry begins with a fenced block that holds two lines a
// form, "Rotate(x, y, z, angle)" and, indented, the signature of the method table; then comes its text. The rows of the
// table of errors are "| code | `NAME` | text | meaning | what helps |".
#pragma once

#include <map>
#include <string_view>
#include <vector>

namespace devhost {

// One form of a method; each part is a view of the document.
struct ReferenceForm {
  std::string_view call;       // "Rotate(x, y, z, angle)"
  std::string_view signature;  // "TOpenGL::Rotate(number, number, number, number)"
};

struct ReferenceEntry {
  std::string_view name;   // "TOpenGL::Rotate"
  std::string_view group;  // the title that it stands under; "" before the first
  std::vector<ReferenceForm> forms;
  std::string_view block;  // the fenced lines as they stand
  std::string_view text;   // what follows them

  std::string_view ClassName() const { return name.substr(0, name.find("::")); }
  std::string_view MethodName() const { return name.substr(name.find("::") + 2); }
};

// The whole document.
std::string_view ReferenceText();

// The entries of a document in its order, apart from headings that do not name "Class::Name". Views of `document`.
std::vector<ReferenceEntry> ParseReference(std::string_view document);

// The entries of the reference.
const std::vector<ReferenceEntry>& Reference();

// The entry of a class's method, or null.
const ReferenceEntry* FindInReference(std::string_view className, std::string_view method);

// How the form with this signature is called, "(x, y, z, angle)"; "" for one that the reference does not have, and for
// an operator.
std::string_view ArgumentsInReference(std::string_view signature);

// What helps against errors, by their names, as a document's table of errors has it; errors without it are left out.
// Views of `document`.
using ErrorAdvice = std::map<std::string_view, std::string_view>;
ErrorAdvice ParseErrorAdvice(std::string_view document);

// What helps against the error of this name, as the reference has it; "" where that says nothing.
std::string_view AdviceInReference(std::string_view errorName);

}  // namespace devhost
