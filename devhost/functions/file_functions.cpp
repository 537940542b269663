// Files as texts.
#include "devhost/classes/tables.h"
#include "devhost/data/files.h"

namespace devhost {
namespace {

void ReadText(VarRegister& result, VarRegister* args, int, Processor*) {
  std::string content;
  if (ReadFile(std::string(TextIn(args[0].GetVar())), content)) AssignText(result, content);
}

void WriteText(VarRegister&, VarRegister* args, int, Processor*) {
  WriteFile(std::string(TextIn(args[0].GetVar())), TextIn(args[1].GetVar()));
}

}  // namespace

const MethodEntry kFileFunctions[] = {
    {ReadText, "ReadText(refer object String)"},
    {WriteText, "WriteText(refer object String, refer object String)"},
    {nullptr, nullptr},
};

}  // namespace devhost
