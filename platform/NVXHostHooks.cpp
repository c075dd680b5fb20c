// The host hooks on every system: the installed message-box, debugger-text
// and "Can't open" handlers and the calls that reach them. What the system
// itself does by default lives in the per-system files.
#include <cstdio>
#include <cstdlib>

#include "NVXPlatform.h"

namespace {

void DefaultCantOpen(const char* /*path*/) {
  std::fputs("Can't open\n", stderr);
  std::fflush(stderr);
  std::exit(1);
}

NVXMessageBoxHandler g_messageBox = nvx::platform::SystemMessageBox;
NVXDebugOutputHandler g_debugOutput = nvx::platform::SystemDebugOutput;
NVXCantOpenHandler g_cantOpen = DefaultCantOpen;

}  // namespace

void NVXSetMessageBoxHandler(NVXMessageBoxHandler handler) {
  g_messageBox = handler ? handler : nvx::platform::SystemMessageBox;
}

void NVXSetDebugOutputHandler(NVXDebugOutputHandler handler) {
  g_debugOutput = handler ? handler : nvx::platform::SystemDebugOutput;
}

void NVXSetCantOpenHandler(NVXCantOpenHandler handler) {
  g_cantOpen = handler ? handler : DefaultCantOpen;
}

namespace nvx {
namespace platform {

void ShowMessageBox(const char* text, const char* caption) { g_messageBox(text, caption); }

void DebugOutput(const char* text) { g_debugOutput(text); }

void CantOpen(const char* path) { g_cantOpen(path ? path : ""); }

}  // namespace platform
}  // namespace nvx
