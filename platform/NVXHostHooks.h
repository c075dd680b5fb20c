// Exported platform functions a host may call or replace: the per-user
// directory of the current release and the handlers of message boxes,
// debugger text and a KRN file that cannot be opened for writing.
// NVX_API marks what the library exports; a program that links the library's
// objects statically defines NVX_STATIC_LINK.
#ifndef NVX_PLATFORM_NVXHOSTHOOKS_H_
#define NVX_PLATFORM_NVXHOSTHOOKS_H_

#if defined(_WIN32) && defined(NVX_BUILDING_ENGINE)
#define NVX_API __declspec(dllexport)
#elif defined(_WIN32) && !defined(NVX_STATIC_LINK)
#define NVX_API __declspec(dllimport)
#elif defined(_WIN32)
#define NVX_API
#else
#define NVX_API __attribute__((visibility("default")))
#endif

// Writes the per-user directory of the current release into `buffer` (of
// `size` bytes, NUL-terminated, UTF-8) and creates it when missing. The
// directory is "<config>/NVXComputationEngine/<release>" with the system's
// separator. On Windows <config> is %APPDATA% when set and not empty, else the
// user's roaming application data folder; elsewhere it is $XDG_CONFIG_HOME
// when set and not empty, else $HOME/.config. Returns false when there is no
// such directory, the path does not fit `size` (at most 259 bytes for the
// usual 260), or the directory cannot be created.
NVX_API bool NVXGetReleaseVersionCurUserDirectory(char* buffer, int size);

// Host hooks. A message box or a debugger text of the library goes to the
// installed handler. The texts are UTF-8. The default handlers: on Windows a
// message box is shown without an owner and a debugger text goes to the
// debugger and to standard error; elsewhere both print to standard error. Passing
// nullptr restores the default. Handlers are process-wide; install them before
// the library is used from several threads.
using NVXMessageBoxHandler = void (*)(const char* text, const char* caption);
using NVXDebugOutputHandler = void (*)(const char* text);
NVX_API void NVXSetMessageBoxHandler(NVXMessageBoxHandler handler);
NVX_API void NVXSetDebugOutputHandler(NVXDebugOutputHandler handler);

// A KRN file that cannot be opened for writing goes to this handler with its
// path. The default prints "Can't open" on standard error and ends the process
// with status 1, so that the solvers never start on a stale parameter file. A
// handler that returns makes the write report failure (false) instead.
// Passing nullptr restores the default.
using NVXCantOpenHandler = void (*)(const char* path);
NVX_API void NVXSetCantOpenHandler(NVXCantOpenHandler handler);

#endif  // NVX_PLATFORM_NVXHOSTHOOKS_H_
