// NVX_RSV_API marks what the RSV companion library exports: its classes and
// nothing else (HDF5, linked into it statically on Windows, stays inside).
// A program that links the companion's objects statically defines
// NVX_STATIC_LINK, so that nothing is taken from a DLL.
#ifndef NVX3DRSVEXTOOLEXPORT_H_
#define NVX3DRSVEXTOOLEXPORT_H_

#if defined(_WIN32) && defined(NVX_BUILDING_RSVTOOL)
#define NVX_RSV_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(NVX_STATIC_LINK)
#define NVX_RSV_API __declspec(dllimport)
#elif defined(_WIN32)
#define NVX_RSV_API
#else
#define NVX_RSV_API __attribute__((visibility("default")))
#endif

#endif  // NVX3DRSVEXTOOLEXPORT_H_
