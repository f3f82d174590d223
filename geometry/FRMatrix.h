// FRMatrix: a 3 x 3 matrix of doubles, stored by rows. Points and vectors are row vectors, so a
// vector times the matrix is v * M, and the rows are the images of the X, Y and Z axes.
#pragma once

#include "port/Export.h"

#include <array>

#include "geometry/FRVector.h"

class ORV_API FRMatrix {
public:
    // The identity.
    constexpr FRMatrix() : m_rows{FRVector(1, 0, 0), FRVector(0, 1, 0), FRVector(0, 0, 1)} {}
    constexpr FRMatrix(const FRVector& row0, const FRVector& row1, const FRVector& row2)
        : m_rows{row0, row1, row2} {}

    static constexpr FRMatrix Zero() { return {FRVector(), FRVector(), FRVector()}; }

    // Rows and elements; indexes 0 to 2, checked.
    const FRVector& row(int i) const;
    void set_row(int i, const FRVector& r);
    double operator()(int row, int column) const;
    void set(int row, int column, double value);

    double determinant() const;
    double trace() const;
    FRMatrix transpose() const;
    // The inverse; the zero matrix when the matrix is singular, that is when its determinant is
    // negligible beside the product of its row lengths (below 1e-14 of it).
    FRMatrix inverse() const;

private:
    std::array<FRVector, 3> m_rows;
};

ORV_API FRMatrix operator*(const FRMatrix& a, const FRMatrix& b);
ORV_API FRMatrix operator+(const FRMatrix& a, const FRMatrix& b);
ORV_API FRMatrix operator-(const FRMatrix& a, const FRMatrix& b);
ORV_API FRMatrix operator*(const FRMatrix& m, double s);
// Row vector times matrix.
ORV_API FRVector operator*(const FRVector& v, const FRMatrix& m);

// Equal when no element differs by RESNOR or more.
ORV_API bool operator==(const FRMatrix& a, const FRMatrix& b);
