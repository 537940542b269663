// Matrix: m[row][column], the translation in the last column; matrices multiply column vectors from the left.
#include "devhost/data/matrix.h"

#include "devhost/classes/point.h"
#include "devhost/classes/tables.h"
#include "devhost/runtime/classes.h"
#include "devhost/runtime/text.h"

namespace devhost {
namespace {

constexpr int kMaxSize = 1024;

void RaiseShape(const std::string& text) { Raise(kErrorConversion, text); }

std::string SizeText(const MatrixData& matrix) { return Decimal(matrix.rows) + " x " + Decimal(matrix.columns); }

// Writes the numbers into the rows of a Matrix object.
void Store(Variable& object, const MatrixData& data) {
  Variable& rows = ObjectOf(object)->elements;
  rows.Init(TVAR_ARRAY, data.rows);
  for (int row = 0; row < data.rows; ++row) {
    rows[row].Init(TVAR_ARRAY, data.columns);
    for (int column = 0; column < data.columns; ++column) rows[row][column] = data.At(row, column);
  }
}

void Return(VarRegister& result, const MatrixData& data) {
  Variable& target = result;
  MakeObject(target, FindClass("Matrix"));
  Store(target, data);
}

// Reads a Matrix object; a script may have put anything into its rows.
MatrixData Load(Variable& object) {
  Variable& rows = ObjectOf(object)->elements;
  MatrixData data(rows.GetDim(), rows[0].GetDim());
  for (int row = 0; row < data.rows; ++row) {
    if (rows[row].GetDim() != data.columns) {
      RaiseShape("The rows of the Matrix differ in length.");
      return {0, 0};
    }
    for (int column = 0; column < data.columns; ++column) data.At(row, column) = rows[row][column];
  }
  return data;
}

void Make(VarRegister&, VarRegister* args, int argc, Processor*) {
  const int rows = args[0];
  const int columns = args[1];
  if (rows < 1 || rows > kMaxSize || columns < 1 || columns > kMaxSize) {
    RaiseShape("A Matrix of " + Decimal(rows) + " x " + Decimal(columns) + " cannot be made.");
    return;
  }
  Store(Self(args, argc), MatrixData(rows, columns));
}

void MakeCopy(VarRegister&, VarRegister* args, int argc, Processor*) { Store(Self(args, argc), Load(args[0])); }

void GetRows(VarRegister& result, VarRegister* args, int argc, Processor*) { result = Self(args, argc).GetDim(); }

void GetColumns(VarRegister& result, VarRegister* args, int argc, Processor*) { result = Self(args, argc)[0].GetDim(); }

void SetIdentity(VarRegister&, VarRegister* args, int argc, Processor*) {
  const MatrixData data = Load(Self(args, argc));
  if (data.rows != data.columns) {
    RaiseShape("A Matrix of " + SizeText(data) + " cannot be the identity: it is not square.");
    return;
  }
  Store(Self(args, argc), IdentityMatrix(data.rows));
}

void Transpose(VarRegister& result, VarRegister* args, int argc, Processor*) {
  Return(result, Transposed(Load(Self(args, argc))));
}

void Inverse(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const MatrixData data = Load(Self(args, argc));
  MatrixData inverse(0, 0);
  if (PendingError()) return;
  if (data.rows != data.columns) {
    RaiseShape("A Matrix of " + SizeText(data) + " has no inverse: it is not square.");
  } else if (!Invert(data, inverse)) {
    RaiseShape("The matrix is singular and has no inverse.");
  } else {
    Return(result, inverse);
  }
}

void MultiplyMatrix(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const MatrixData a = Load(Self(args, argc));
  const MatrixData b = Load(args[0]);
  if (a.columns != b.rows) {
    RaiseShape("Matrices of " + SizeText(a) + " and " + SizeText(b) + " cannot be multiplied.");
    return;
  }
  Return(result, Product(a, b));
}

void MultiplyNumber(VarRegister& result, VarRegister* args, int argc, Processor*) {
  MatrixData data = Load(Self(args, argc));
  const double factor = Number(args[0]);
  for (double& entry : data.entries) entry *= factor;
  Return(result, data);
}

void MultiplyPoint(VarRegister& result, VarRegister* args, int argc, Processor*) {
  const MatrixData data = Load(Self(args, argc));
  if (data.rows != 4 || data.columns != 4) {
    RaiseShape("A POINT3 is multiplied by a Matrix of 4 x 4, not " + SizeText(data) + ".");
    return;
  }
  MatrixData point(4, 1);
  point.entries = {static_cast<double>(args[0](const_cast<char*>("x"))),
                   static_cast<double>(args[0](const_cast<char*>("y"))),
                   static_cast<double>(args[0](const_cast<char*>("z"))), 1};
  const std::vector<double> image = Product(data, point).entries;
  // A projection leaves the last coordinate apart from 1.
  const double w = image[3] == 0 ? 1 : image[3];
  MakePoint(result, image[0] / w, image[1] / w, image[2] / w);
}

void Translation(VarRegister& result, VarRegister* args, int, Processor*) {
  Return(result, TranslationMatrix(Number(args[0]), Number(args[1]), Number(args[2])));
}

void Scale(VarRegister& result, VarRegister* args, int, Processor*) {
  Return(result, ScaleMatrix(Number(args[0]), Number(args[1]), Number(args[2])));
}

void Rotation(VarRegister& result, VarRegister* args, int, Processor*) {
  const double x = Number(args[0]);
  const double y = Number(args[1]);
  const double z = Number(args[2]);
  if (x == 0 && y == 0 && z == 0) {
    RaiseShape("The axis of a rotation must not be zero.");
    return;
  }
  Return(result, RotationMatrix(x, y, z, Number(args[3])));
}

}  // namespace

const MethodEntry kMatrixMethods[] = {
    {Make, "Matrix::Matrix(int, int)"},
    {MakeCopy, "Matrix::Matrix(copy)"},
    {GetRows, "Matrix::GetRows(void)"},
    {GetColumns, "Matrix::GetColumns(void)"},
    {SetIdentity, "Matrix::Identity(void)"},
    {Transpose, "Matrix::Transpose(void)"},
    {Inverse, "Matrix::Inverse(void)"},
    {MultiplyMatrix, "Matrix::*(refer object Matrix)"},
    {MultiplyNumber, "Matrix::*(number)"},
    {MultiplyPoint, "Matrix::*(refer object POINT3)"},
    {Translation, "TranslationMatrix(number, number, number)"},
    {Scale, "ScaleMatrix(number, number, number)"},
    {Rotation, "RotationMatrix(number, number, number, number)"},
    {nullptr, nullptr},
};

}  // namespace devhost
