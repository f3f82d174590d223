// ORV_API marks what libKELSHAREu.so exports: the MFC and Win32 names of the port, the geometry
// types and the library's classes and free functions. The library is built with hidden
// visibility, so everything else (the port's own helpers in namespace port, folder-level helpers,
// banners) stays inside it.
#pragma once

#define ORV_API __attribute__((visibility("default")))
