// OrvParamHelper: access to a node's parameters for code that knows only OrvObject. The root holds
// nothing; OrvSetupParamHelper and OrvDocParamHelper carry a setup's and a document's parameters.
#pragma once

#include "port/Export.h"

#include "mfc/CObject.h"

class ORV_API OrvParamHelper : public CObject {
public:
    OrvParamHelper() = default;
    ~OrvParamHelper() override;
};
