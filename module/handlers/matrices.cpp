#include "binding/native.h"
#include "module/handlers/handlers.h"
#include "module/handlers/points.h"
#include "render/topengl.h"

namespace {

// A host Matrix is indexed by row and column, OpenGL's sixteen numbers run down the columns.
Matrix16 ReadMatrix(Variable& matrix) {
  Matrix16 entries;
  for (int column = 0; column < 4; ++column) {
    for (int row = 0; row < 4; ++row) entries[static_cast<std::size_t>(column * 4 + row)] = matrix[row][column];
  }
  return entries;
}

void MakeMatrix(Variable& target, const Matrix16& entries, Processor* processor) {
  char className[] = "Matrix";
  VarRegister sizes[2];
  sizes[0] = 4;
  sizes[1] = 4;
  processor->MakeInstance(target, className, sizes, 2);
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

void LoadMatrix(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) self->LoadModelMatrix(ReadMatrix(args[0]));
}

void MultiplyMatrix(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) self->MultiplyModelMatrix(ReadMatrix(args[0]));
}

void GetMatrix(VarRegister& result, VarRegister* args, int argc, Processor* processor) {
  // Required: the program exists even after a first call that fails.
  Variable& program = MatrixProgram();
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  Matrix16 full;
  Matrix16 look;
  self->ReadMatrices(full, look);
  VarRegister matrices[2];
  MakeMatrix(matrices[0], full, processor);
  MakeMatrix(matrices[1], look, processor);
  processor->RunFunction(result, program, matrices, 2);
}

void Rotate(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (!self) return;
  const bool numbers = argc == 5;
  const OGLPoint axis = numbers ? ReadPoint(args) : ReadPoint(args[0]);
  self->Rotate(axis, args[numbers ? 3 : 1]);
}

void Translate(VarRegister& /*result*/, VarRegister* args, int argc, Processor* /*processor*/) {
  const TOpenGL* self = Self<TOpenGL>(args, argc);
  if (self) self->Translate(argc == 4 ? ReadPoint(args) : ReadPoint(args[0]));
}
