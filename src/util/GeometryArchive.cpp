#include "util/GeometryArchive.h"

namespace {

// Reads three doubles; nothing is assigned unless all three arrive.
FRVector ReadTriple(CArchive& ar) {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    ar >> x >> y >> z;
    return {x, y, z};
}

void WriteTriple(CArchive& ar, double x, double y, double z) {
    ar << x << y << z;
}

BYTE FlagByte(int flag) {
    return static_cast<BYTE>(flag != 0 ? 1 : 0);
}

} // namespace

CArchive& operator<<(CArchive& ar, const FRPosition& p) {
    WriteTriple(ar, p.x(), p.y(), p.z());
    return ar;
}

CArchive& operator>>(CArchive& ar, FRPosition& p) {
    p = FRPosition(ReadTriple(ar));
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRVector& v) {
    WriteTriple(ar, v.x(), v.y(), v.z());
    return ar;
}

CArchive& operator>>(CArchive& ar, FRVector& v) {
    v = ReadTriple(ar);
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRUnitVector& v) {
    WriteTriple(ar, v.x(), v.y(), v.z());
    return ar;
}

CArchive& operator>>(CArchive& ar, FRUnitVector& v) {
    v = FRUnitVector(ReadTriple(ar));
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRInterval& i) {
    return ar << i.start_pt() << i.end_pt();
}

CArchive& operator>>(CArchive& ar, FRInterval& i) {
    double start = 0.0;
    double end = 0.0;
    ar >> start >> end;
    i = FRInterval(start, end);
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRBox& b) {
    return ar << b.x_range() << b.y_range() << b.z_range();
}

CArchive& operator>>(CArchive& ar, FRBox& b) {
    FRInterval x;
    FRInterval y;
    FRInterval z;
    ar >> x >> y >> z;
    b = FRBox(x, y, z);
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRMatrix& m) {
    return ar << m.row(0) << m.row(1) << m.row(2);
}

CArchive& operator>>(CArchive& ar, FRMatrix& m) {
    const FRVector r0 = ReadTriple(ar);
    const FRVector r1 = ReadTriple(ar);
    const FRVector r2 = ReadTriple(ar);
    m = FRMatrix(r0, r1, r2);
    return ar;
}

CArchive& operator<<(CArchive& ar, const FRTransf& t) {
    ar << t.affine() << t.translation() << t.scaling();
    return ar << FlagByte(t.rotate()) << FlagByte(t.reflect()) << FlagByte(t.shear());
}

CArchive& operator>>(CArchive& ar, FRTransf& t) {
    FRMatrix affine;
    FRVector translation;
    double scale = 1.0;
    BYTE rotate = 0;
    BYTE reflect = 0;
    BYTE shear = 0;
    ar >> affine >> translation >> scale >> rotate >> reflect >> shear;
    t = FRTransf(affine, translation, scale, rotate, reflect, shear);
    return ar;
}
