// The module's own errors.
#include "binding/errors.h"

#include "host/talq.h"
#include "module/exports.h"

namespace {

constexpr unsigned short kNoErrorBase = 65535;

constexpr ErrorEntry kErrorTable[] = {
    {OGL_WRONG_DC, "The Device Context is not Valid", "OGL_WRONG_DC"},
    {OGL_NO_DC, "The Device Context is not Open", "OGL_NO_DC"},
    {OGL_CANTBIND_DC, "Can't bind Device Context", "OGL_CANTBIND_DC"},
    {OGL_NAME_STACK_OVERFLOW, "The OpenGL Name Stack Overflow", "OGL_NAME_STACK_OVERFLOW"},
    {OGL_NAME_STACK_UNDERFLOW, "The OpenGL Name Stack is Empty", "OGL_NAME_STACK_UNDERFLOW"},
    {OGL_NO_SELECTION_MODE, "OpenGL is not in the Selection Mode", "OGL_NO_SELECTION_MODE"},
    {OGL_NURBS_ERROR, "OpenGL NURBS error", "OGL_NURBS_ERROR"},
    {0, nullptr, nullptr},
};

}  // namespace

const ErrorEntry* GetErrorTable() { return kErrorTable; }

void ModuleError(unsigned code, char* text) {
  const unsigned short base = GetErrorOffset(TalqSystemGetLibInst());
  if (base < kNoErrorBase) TalqError(static_cast<int>(base + code), text);
}
