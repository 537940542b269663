#include "devhost/data/matrix.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <utility>

namespace devhost {
namespace {

// The largest magnitude in each row, by which its pivots are judged.
std::vector<double> RowScales(const MatrixData& matrix) {
  std::vector<double> scales(static_cast<std::size_t>(matrix.rows));
  for (int row = 0; row < matrix.rows; ++row) {
    double& scale = scales[static_cast<std::size_t>(row)];
    for (int column = 0; column < matrix.columns; ++column) scale = std::max(scale, std::fabs(matrix.At(row, column)));
  }
  return scales;
}

double RelativeSize(const MatrixData& matrix, const std::vector<double>& scales, int row, int column) {
  const double scale = scales[static_cast<std::size_t>(row)];
  return scale > 0 ? std::fabs(matrix.At(row, column)) / scale : 0;
}

void SwapRows(MatrixData& matrix, int a, int b) {
  for (int column = 0; column < matrix.columns; ++column) std::swap(matrix.At(a, column), matrix.At(b, column));
}

void DivideRow(MatrixData& matrix, int row, double divisor) {
  for (int column = 0; column < matrix.columns; ++column) matrix.At(row, column) /= divisor;
}

void SubtractRow(MatrixData& matrix, int target, int source, double factor) {
  for (int column = 0; column < matrix.columns; ++column) {
    matrix.At(target, column) -= factor * matrix.At(source, column);
  }
}

}  // namespace

MatrixData::MatrixData(int rowCount, int columnCount)
    : rows(rowCount),
      columns(columnCount),
      entries(static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(columnCount)) {}

double& MatrixData::At(int row, int column) {
  return entries[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column)];
}

double MatrixData::At(int row, int column) const {
  return entries[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) + static_cast<std::size_t>(column)];
}

MatrixData IdentityMatrix(int size) {
  MatrixData identity(size, size);
  for (int i = 0; i < size; ++i) identity.At(i, i) = 1;
  return identity;
}

MatrixData Product(const MatrixData& a, const MatrixData& b) {
  MatrixData product(a.rows, b.columns);
  for (int row = 0; row < a.rows; ++row) {
    for (int column = 0; column < b.columns; ++column) {
      double sum = 0;
      for (int i = 0; i < a.columns; ++i) sum += a.At(row, i) * b.At(i, column);
      product.At(row, column) = sum;
    }
  }
  return product;
}

MatrixData Transposed(const MatrixData& matrix) {
  MatrixData transposed(matrix.columns, matrix.rows);
  for (int row = 0; row < matrix.rows; ++row) {
    for (int column = 0; column < matrix.columns; ++column) transposed.At(column, row) = matrix.At(row, column);
  }
  return transposed;
}

bool Invert(const MatrixData& matrix, MatrixData& inverse) {
  const int size = matrix.rows;
  const double smallest = size * std::numeric_limits<double>::epsilon();
  MatrixData left = matrix;
  inverse = IdentityMatrix(size);
  std::vector<double> scales = RowScales(matrix);
  for (int column = 0; column < size; ++column) {
    int pivot = column;
    for (int row = column + 1; row < size; ++row) {
      if (RelativeSize(left, scales, row, column) > RelativeSize(left, scales, pivot, column)) pivot = row;
    }
    if (RelativeSize(left, scales, pivot, column) <= smallest) return false;
    SwapRows(left, pivot, column);
    SwapRows(inverse, pivot, column);
    std::swap(scales[static_cast<std::size_t>(pivot)], scales[static_cast<std::size_t>(column)]);
    const double divisor = left.At(column, column);
    DivideRow(left, column, divisor);
    DivideRow(inverse, column, divisor);
    for (int row = 0; row < size; ++row) {
      const double factor = left.At(row, column);
      if (row == column || factor == 0) continue;
      SubtractRow(left, row, column, factor);
      SubtractRow(inverse, row, column, factor);
    }
  }
  return true;
}

MatrixData TranslationMatrix(double x, double y, double z) {
  MatrixData matrix = IdentityMatrix(4);
  matrix.At(0, 3) = x;
  matrix.At(1, 3) = y;
  matrix.At(2, 3) = z;
  return matrix;
}

MatrixData ScaleMatrix(double x, double y, double z) {
  MatrixData matrix = IdentityMatrix(4);
  matrix.At(0, 0) = x;
  matrix.At(1, 1) = y;
  matrix.At(2, 2) = z;
  return matrix;
}

MatrixData RotationMatrix(double x, double y, double z, double angle) {
  const double length = std::sqrt(x * x + y * y + z * z);
  const double axis[3] = {x / length, y / length, z / length};
  const double sine = std::sin(angle * std::numbers::pi / 180);
  const double cosine = std::cos(angle * std::numbers::pi / 180);
  MatrixData matrix = IdentityMatrix(4);
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) {
      matrix.At(row, column) = axis[row] * axis[column] * (1 - cosine) + (row == column ? cosine : 0);
    }
  }
  for (int i = 0; i < 3; ++i) {
    const int j = (i + 1) % 3;
    const int k = (i + 2) % 3;
    matrix.At(j, i) += axis[k] * sine;
    matrix.At(i, j) -= axis[k] * sine;
  }
  return matrix;
}

}  // namespace devhost
