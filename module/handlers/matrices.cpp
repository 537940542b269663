#include "module/handlers/handlers.h"
#include "module/handlers/points.h"

namespace {

// A host Matrix is indexed by row and column, OpenGL's sixteen numbers run down the columns.
Matrix16 ReadMatrix(Variable& matrix) {
  Matrix16 entries;
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) entries[static_cast<std::size_t>(column * 4 + row)] = matrix[row][column];
  }
  return entries;
}

// Makes a new Matrix of these entries in the target. The two registers are what its constructor gets.
void MakeMatrix(Variable& target, const Matrix16& entries, VarRegister (&sizes)[2], Processor* processor) {
  processor->MakeInstance(target, HostText("Matrix"), sizes, 2);
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) target[row][column] = entries[static_cast<std::size_t>(column * 4 + row)];
  }
}

// The host's matrix arithmetic: made on the first call, destroyed when the module is unloaded.
Variable& MatrixProgram() {
  static char text[] = "param FullMatr, LookMatr; return LookMatr->Inverse() * FullMatr;";
  static Variable program(TVAR_FUNCTION, text);
  return program;
}

}  // namespace

void script::LoadMatrix(const TOpenGL& self, ScriptCall& call) { self.LoadModelMatrix(ReadMatrix(call.NextValue())); }

void script::MultiplyMatrix(const TOpenGL& self, ScriptCall& call) {
  self.MultiplyModelMatrix(ReadMatrix(call.NextValue()));
}

void script::GetMatrix(ScriptCall& call) {
  // Required: the program exists even after a first call that fails.
  Variable& program = MatrixProgram();
  const auto* self = call.Self<TOpenGL>();
  if (!self) return;
  Matrix16 full;
  Matrix16 look;
  self->ReadMatrices(full, look);
  VarRegister sizes[2];
  sizes[0] = 4;
  sizes[1] = 4;
  VarRegister matrices[2];
  MakeMatrix(matrices[0], full, sizes, call.Interpreter());
  MakeMatrix(matrices[1], look, sizes, call.Interpreter());
  call.Interpreter()->RunFunction(call.Result(), program, matrices, 2);
}

void script::Rotate(const TOpenGL& self, ScriptCall& call) {
  const OGLPoint axis = ReadPoint(call, call.Count() == 4);
  const float degrees = call.NextNumber();
  self.Rotate(axis, degrees);
}

void script::Translate(const TOpenGL& self, ScriptCall& call) { self.Translate(ReadPoint(call, call.Count() == 3)); }
