// Vector: the script's arrays.
#include "devhost/classes/tables.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

std::vector<Variable>& Elements(VarRegister* args, int argc) { return ArrayOf(Self(args, argc))->elements; }

// The index argument if it lies in 0 to limit; otherwise -1 with an error raised.
int IndexUpTo(VarRegister& argument, std::size_t limit) {
  const int index = argument;
  if (index >= 0 && static_cast<std::size_t>(index) <= limit) return index;
  Raise(kErrorConversion, "Index " + Decimal(index) + " lies outside the Vector.");
  return -1;
}

void CopyElements(Variable& target, const std::vector<Variable>& source) {
  target.Init(TVAR_ARRAY, 0);
  ArrayOf(target)->elements = std::vector<Variable>(source);
}

void Make(VarRegister&, VarRegister* args, int argc, Processor*) {
  Self(args, argc).Init(TVAR_ARRAY, argc > 1 ? static_cast<int>(args[0]) : 0);
}

void MakeCopy(VarRegister&, VarRegister* args, int argc, Processor*) {
  CopyElements(Self(args, argc), ArrayOf(args[0].GetVar())->elements);
}

void Add(VarRegister&, VarRegister* args, int argc, Processor*) { Elements(args, argc).push_back(args[0].GetVar()); }

void Size(VarRegister& result, VarRegister* args, int argc, Processor*) { result = Self(args, argc).GetDim(); }

void Clear(VarRegister&, VarRegister* args, int argc, Processor*) {
  // The elements end after the array is empty: ending one may run a script's or module's code that looks at it.
  std::vector<Variable> ending;
  ending.swap(Elements(args, argc));
}

void Resize(VarRegister&, VarRegister* args, int argc, Processor*) {
  Variable longer;
  longer.Init(TVAR_ARRAY, args[0]);
  if (PendingError()) return;
  std::vector<Variable>& elements = Elements(args, argc);
  std::vector<Variable>& resized = ArrayOf(longer)->elements;
  for (std::size_t i = 0; i < elements.size() && i < resized.size(); ++i) Assign(resized[i], elements[i]);
  elements.swap(resized);
}

void Insert(VarRegister&, VarRegister* args, int argc, Processor*) {
  std::vector<Variable>& elements = Elements(args, argc);
  const int index = IndexUpTo(args[0], elements.size());
  if (index < 0) return;
  elements.emplace_back();
  for (std::size_t i = elements.size() - 1; i > static_cast<std::size_t>(index); --i) {
    Assign(elements[i], elements[i - 1]);
  }
  Assign(elements[static_cast<std::size_t>(index)], args[1].GetVar());
}

void Remove(VarRegister&, VarRegister* args, int argc, Processor*) {
  std::vector<Variable>& elements = Elements(args, argc);
  const int index = elements.empty() ? IndexUpTo(args[0], 0) : IndexUpTo(args[0], elements.size() - 1);
  if (index < 0 || elements.empty()) return;
  for (std::size_t i = static_cast<std::size_t>(index); i + 1 < elements.size(); ++i) {
    Assign(elements[i], elements[i + 1]);
  }
  elements.pop_back();
}

void Copy(VarRegister& result, VarRegister* args, int argc, Processor*) { CopyElements(result, Elements(args, argc)); }

}  // namespace

const MethodEntry kVectorMethods[] = {
    {Make, "Vector::Vector(void)"},
    {Make, "Vector::Vector(int)"},
    {MakeCopy, "Vector::Vector(copy)"},
    {Add, "Vector::Add(any)"},
    {Size, "Vector::Size(void)"},
    {Clear, "Vector::Clear(void)"},
    {Resize, "Vector::Resize(int)"},
    {Insert, "Vector::Insert(int, any)"},
    {Remove, "Vector::Remove(int)"},
    {Copy, "Vector::Copy(void)"},
    {nullptr, nullptr},
};

}  // namespace devhost
