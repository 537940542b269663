// Matrices of doubles in rows: what the script class Matrix computes with.
#pragma once

#include <vector>

namespace devhost {

struct MatrixData {
  int rows = 0;
  int columns = 0;
  std::vector<double> entries;  // row by row

  // Of zeros.
  MatrixData(int rowCount, int columnCount);
  // Counted from 0; not checked.
  double& At(int row, int column);
  double At(int row, int column) const;
};

// Square.
MatrixData IdentityMatrix(int size);
// The factors' inner sizes must agree.
MatrixData Product(const MatrixData& a, const MatrixData& b);
MatrixData Transposed(const MatrixData& matrix);
// False for a singular matrix; the matrix must be square.
bool Invert(const MatrixData& matrix, MatrixData& inverse);

// 4 x 4 matrices for column vectors, the translation in the last column. Angles in degrees; the axis must not be zero.
MatrixData TranslationMatrix(double x, double y, double z);
MatrixData ScaleMatrix(double x, double y, double z);
MatrixData RotationMatrix(double x, double y, double z, double angle);

}  // namespace devhost
