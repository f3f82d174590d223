#include "objects/OrvParamHelper.h"

OrvParamHelper::~OrvParamHelper() = default;
