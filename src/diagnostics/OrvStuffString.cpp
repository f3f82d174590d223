#include <cstdarg>

#include "diagnostics/BoundedFormat.h"
#include "diagnostics/Outcome.h"

void OrvStuffString(CString& out, unsigned int id, ...) {
    CString format;
    if (!format.LoadString(id)) {
        out.Empty();
        return;
    }
    va_list args;
    va_start(args, id);
    out = FormatBounded(format, static_cast<std::size_t>(format.GetLength()) + 100, args);
    va_end(args);
}
