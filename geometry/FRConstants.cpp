#include "geometry/FRConstants.h"

double RESNOR = RESNOR_DEFAULT;
