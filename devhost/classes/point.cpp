// POINT3: a point or direction with the fields x, y and z.
#include "devhost/classes/point.h"

#include "devhost/classes/tables.h"
#include "devhost/runtime/classes.h"

namespace devhost {
namespace {

constexpr const char* kFields[] = {"x", "y", "z"};

double Coordinate(Variable& point, int axis) { return point(const_cast<char*>(kFields[axis])); }

void SetFields(Variable& point, double x, double y, double z) {
  DefineField(point, "x") = x;
  DefineField(point, "y") = y;
  DefineField(point, "z") = z;
}

void MakeOrigin(VarRegister&, VarRegister* args, int argc, Processor*) { SetFields(Self(args, argc), 0, 0, 0); }

// The coordinates keep the types that they are given in.
void Make(VarRegister&, VarRegister* args, int argc, Processor*) {
  Variable& self = Self(args, argc);
  for (int axis = 0; axis < 3; ++axis) Assign(DefineField(self, kFields[axis]), args[axis].GetVar());
}

void MakeCopy(VarRegister&, VarRegister* args, int argc, Processor*) {
  Variable& self = Self(args, argc);
  Variable& source = args[0];
  for (const char* field : kFields) Assign(DefineField(self, field), source(const_cast<char*>(field)));
}

void Combine(VarRegister& result, VarRegister* args, int argc, double sign) {
  Variable& a = Self(args, argc);
  Variable& b = args[0];
  MakePoint(result, Coordinate(a, 0) + sign * Coordinate(b, 0), Coordinate(a, 1) + sign * Coordinate(b, 1),
            Coordinate(a, 2) + sign * Coordinate(b, 2));
}

void Add(VarRegister& result, VarRegister* args, int argc, Processor*) { Combine(result, args, argc, 1); }
void Subtract(VarRegister& result, VarRegister* args, int argc, Processor*) { Combine(result, args, argc, -1); }

void Multiply(VarRegister& result, VarRegister* args, int argc, Processor*) {
  Variable& self = Self(args, argc);
  const double factor = Number(args[0]);
  MakePoint(result, Coordinate(self, 0) * factor, Coordinate(self, 1) * factor, Coordinate(self, 2) * factor);
}

}  // namespace

void MakePoint(Variable& target, double x, double y, double z) {
  MakeObject(target, FindClass("POINT3"));
  SetFields(target, x, y, z);
}

const MethodEntry kPointMethods[] = {
    {MakeOrigin, "POINT3::POINT3(void)"},
    {Make, "POINT3::POINT3(number, number, number)"},
    {MakeCopy, "POINT3::POINT3(copy)"},
    {Add, "POINT3::+(refer object POINT3)"},
    {Subtract, "POINT3::-(refer object POINT3)"},
    {Multiply, "POINT3::*(number)"},
    {nullptr, nullptr},
};

}  // namespace devhost
