// load_rsv's guard: the parameter tables of an RSV file read in a forked
// child process under time and memory limits, so that a file that crashes or
// hangs the HDF5 library raises an error instead of ending the interpreter.
#ifndef NVX_PYTHON_GUARDEDLOAD_H_
#define NVX_PYTHON_GUARDEDLOAD_H_

#include <string>

#include "ParamFile.h"

namespace nvxpy {

// ParamFile::LoadRsv(path) run in a child limited to `seconds` of CPU and of
// wall-clock time. Its errors are raised as LoadRsv raises them; a child that
// crashes, hits a limit or ends any other way raises FileError("corrupt or
// unreadable RSV file: `path`"). Called with the interpreter lock held, which
// it releases while it waits.
ParamFile LoadRsvGuarded(const std::string& path, unsigned seconds);

}  // namespace nvxpy

#endif  // NVX_PYTHON_GUARDEDLOAD_H_
