// The archive form of the geometry types: components as archive doubles in order x, y, z; an
// interval as start, end; a box as its x, y and z intervals; a matrix as its three rows; a
// transform as affine part, translation, scale (double) and the rotate, reflect and shear flags
// (one byte each). A read that fails throws the archive's exception and leaves the target
// unchanged.
#pragma once

#include "port/Export.h"

#include "geometry/FRBox.h"
#include "geometry/FRInterval.h"
#include "geometry/FRMatrix.h"
#include "geometry/FRPosition.h"
#include "geometry/FRTransf.h"
#include "geometry/FRUnitVector.h"
#include "geometry/FRVector.h"
#include "mfc/CArchive.h"

ORV_API CArchive& operator<<(CArchive& ar, const FRPosition& p);
ORV_API CArchive& operator>>(CArchive& ar, FRPosition& p);
ORV_API CArchive& operator<<(CArchive& ar, const FRVector& v);
ORV_API CArchive& operator>>(CArchive& ar, FRVector& v);
// Read back normalised.
ORV_API CArchive& operator<<(CArchive& ar, const FRUnitVector& v);
ORV_API CArchive& operator>>(CArchive& ar, FRUnitVector& v);
ORV_API CArchive& operator<<(CArchive& ar, const FRInterval& i);
ORV_API CArchive& operator>>(CArchive& ar, FRInterval& i);
ORV_API CArchive& operator<<(CArchive& ar, const FRBox& b);
ORV_API CArchive& operator>>(CArchive& ar, FRBox& b);
ORV_API CArchive& operator<<(CArchive& ar, const FRMatrix& m);
ORV_API CArchive& operator>>(CArchive& ar, FRMatrix& m);
ORV_API CArchive& operator<<(CArchive& ar, const FRTransf& t);
ORV_API CArchive& operator>>(CArchive& ar, FRTransf& t);
