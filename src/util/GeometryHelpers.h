// Helpers over the geometry types: boxes, projected directions, angles and perpendiculars.
#pragma once

#include "port/Export.h"

#include "geometry/FRBox.h"
#include "geometry/FRPosition.h"
#include "geometry/FRTransf.h"
#include "geometry/FRUnitVector.h"

// The box of the given size about centre, widened by margin on every side.
ORV_API FRBox CreateBoundingBox(double size[3], FRPosition centre, double margin);

// The box that holds the eight corners of box under transf.
ORV_API void TransformBox(FRBox box, FRTransf transf, FRBox& result);

// v projected on the plane through the origin with the given normal, normalised; the null vector
// when v is shorter than RESABS or lies along the normal.
ORV_API FRUnitVector project_uv_on_plane(FRUnitVector& v, FRUnitVector& normal);

// The angle from a to b in [0, PI_2), measured anticlockwise about normal. With a non-null normal,
// a and b are first replaced by their projections on the normal's plane.
ORV_API double CalculateAngle(FRUnitVector& a, FRUnitVector& b, FRUnitVector normal);

// Two unit vectors perpendicular to v and to each other (second = v x first). Answers 0 and leaves
// them alone when a pointer is null or v is null within RESABS.
ORV_API int GetPerpendicularVector(FRUnitVector& v, FRUnitVector* first, FRUnitVector* second);
