#include "geometry/FRMatrix.h"

#include <cmath>
#include <stdexcept>

#include "geometry/FRConstants.h"

namespace {

std::size_t CheckedIndex(int i) {
    if (i < 0 || i > 2) {
        throw std::out_of_range("FRMatrix index out of range");
    }
    return static_cast<std::size_t>(i);
}

double Component(const FRVector& v, int i) {
    return i == 0 ? v.x() : (i == 1 ? v.y() : v.z());
}

void SetComponent(FRVector& v, int i, double value) {
    if (i == 0) {
        v.set_x(value);
    } else if (i == 1) {
        v.set_y(value);
    } else {
        v.set_z(value);
    }
}

constexpr double kSingularRatio = 1e-14;

} // namespace

const FRVector& FRMatrix::row(int i) const {
    return m_rows[CheckedIndex(i)];
}

void FRMatrix::set_row(int i, const FRVector& r) {
    m_rows[CheckedIndex(i)] = r;
}

double FRMatrix::operator()(int row, int column) const {
    return Component(m_rows[CheckedIndex(row)], static_cast<int>(CheckedIndex(column)));
}

void FRMatrix::set(int row, int column, double value) {
    SetComponent(m_rows[CheckedIndex(row)], static_cast<int>(CheckedIndex(column)), value);
}

double FRMatrix::determinant() const {
    return m_rows[0] % (m_rows[1] * m_rows[2]);
}

double FRMatrix::trace() const {
    return m_rows[0].x() + m_rows[1].y() + m_rows[2].z();
}

FRMatrix FRMatrix::transpose() const {
    const auto& r = m_rows;
    return {FRVector(r[0].x(), r[1].x(), r[2].x()), FRVector(r[0].y(), r[1].y(), r[2].y()),
            FRVector(r[0].z(), r[1].z(), r[2].z())};
}

FRMatrix FRMatrix::inverse() const {
    // The columns of the inverse are the cross products of row pairs over the determinant.
    const FRVector c0 = m_rows[1] * m_rows[2];
    const FRVector c1 = m_rows[2] * m_rows[0];
    const FRVector c2 = m_rows[0] * m_rows[1];
    const double det = m_rows[0] % c0;
    const double bound = m_rows[0].length() * m_rows[1].length() * m_rows[2].length();
    if (!(std::fabs(det) > kSingularRatio * bound)) {
        return Zero();
    }
    return FRMatrix(c0 / det, c1 / det, c2 / det).transpose();
}

FRMatrix operator*(const FRMatrix& a, const FRMatrix& b) {
    return {a.row(0) * b, a.row(1) * b, a.row(2) * b};
}

FRMatrix operator+(const FRMatrix& a, const FRMatrix& b) {
    return {a.row(0) + b.row(0), a.row(1) + b.row(1), a.row(2) + b.row(2)};
}

FRMatrix operator-(const FRMatrix& a, const FRMatrix& b) {
    return {a.row(0) - b.row(0), a.row(1) - b.row(1), a.row(2) - b.row(2)};
}

FRMatrix operator*(const FRMatrix& m, double s) {
    return {m.row(0) * s, m.row(1) * s, m.row(2) * s};
}

FRVector operator*(const FRVector& v, const FRMatrix& m) {
    return m.row(0) * v.x() + m.row(1) * v.y() + m.row(2) * v.z();
}

bool operator==(const FRMatrix& a, const FRMatrix& b) {
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            if (!(std::fabs(a(i, j) - b(i, j)) < RESNOR)) {
                return false;
            }
        }
    }
    return true;
}
