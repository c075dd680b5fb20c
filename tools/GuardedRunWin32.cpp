// The child process of RunGuarded on Windows: nvxparam started again with a
// hidden first argument, inside a job object that limits its memory and CPU
// time and ends it with the job; the parent waits a limited time and reads
// the status the child reports through a pipe.
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <system_error>

#include "GuardedRun.h"
#include "NVXPlatform.h"
#include "ParamFiles.h"

namespace nvxparam {
namespace {

using guarded::kFailed;

// The hidden first argument of a guarded child, followed by the handle
// value of the write end of its report pipe. Never a verb or a file name.
constexpr char kChildFlag[] = "--nvxparam-guarded-child=";

class Handle {
 public:
  Handle() = default;
  explicit Handle(HANDLE h) : h_(h) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() { Close(); }
  HANDLE get() const { return h_; }
  HANDLE* out() { return &h_; }
  bool ok() const { return h_ != nullptr && h_ != INVALID_HANDLE_VALUE; }
  void Close() {
    if (ok()) ::CloseHandle(h_);
    h_ = nullptr;
  }

 private:
  HANDLE h_ = nullptr;
};

std::string SystemMessage(DWORD code) {
  return std::error_code(static_cast<int>(code), std::system_category()).message();
}

[[noreturn]] void CannotStart(const char* what) {
  const DWORD code = ::GetLastError();
  Fail(std::string("cannot start a process: ") + what + ": " + SystemMessage(code));
}

std::wstring ProgramPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD n = ::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (n == 0) CannotStart("the program's path");
    if (n < path.size()) {
      path.resize(n);
      return path;
    }
    path.resize(path.size() * 2);
  }
}

// `arg` as one argument of a command line, as the C runtime and
// CommandLineToArgvW split it: quoted, with the backslashes before a quote
// doubled and the quote escaped.
void AppendArgument(std::wstring& line, const std::wstring& arg) {
  line += L" \"";
  std::size_t backslashes = 0;
  for (const wchar_t c : arg) {
    if (c == L'\\') {
      ++backslashes;
      continue;
    }
    line.append(c == L'"' ? 2 * backslashes + 1 : backslashes, L'\\');
    backslashes = 0;
    line += c;
  }
  line.append(2 * backslashes, L'\\');
  line += L'"';
}

// An inheritable copy of one of this process's standard handles, or none
// when it has none.
HANDLE InheritableCopy(DWORD which) {
  const HANDLE h = ::GetStdHandle(which);
  HANDLE copy = nullptr;
  if (h == nullptr || h == INVALID_HANDLE_VALUE ||
      !::DuplicateHandle(::GetCurrentProcess(), h, ::GetCurrentProcess(), &copy, 0, TRUE,
                         DUPLICATE_SAME_ACCESS)) {
    return nullptr;
  }
  return copy;
}

// A job that ends its processes when its handle closes (with nvxparam), at
// the memory or CPU-time limit, or on an unhandled exception without an
// error dialog.
HANDLE MakeJob(unsigned seconds) {
  HANDLE job = ::CreateJobObjectW(nullptr, nullptr);
  if (job == nullptr) CannotStart("a job object");
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags =
      JOB_OBJECT_LIMIT_PROCESS_MEMORY | JOB_OBJECT_LIMIT_PROCESS_TIME |
      JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE | JOB_OBJECT_LIMIT_DIE_ON_UNHANDLED_EXCEPTION;
  limits.BasicLimitInformation.PerProcessUserTimeLimit.QuadPart =
      static_cast<LONGLONG>(seconds) * 10000000;  // in 100 ns
  limits.ProcessMemoryLimit = static_cast<SIZE_T>(guarded::kMemoryBytes);
  if (!::SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits)) {
    const DWORD error = ::GetLastError();
    ::CloseHandle(job);
    ::SetLastError(error);
    CannotStart("limiting its job");
  }
  return job;
}

// Process-creation attributes that hand the child exactly `handles`.
class InheritList {
 public:
  InheritList(HANDLE* handles, std::size_t count) {
    SIZE_T size = 0;
    ::InitializeProcThreadAttributeList(nullptr, 1, 0, &size);
    buffer_.resize(size);
    list_ = reinterpret_cast<LPPROC_THREAD_ATTRIBUTE_LIST>(buffer_.data());
    if (!::InitializeProcThreadAttributeList(list_, 1, 0, &size)) CannotStart("its attributes");
    if (!::UpdateProcThreadAttribute(list_, 0, PROC_THREAD_ATTRIBUTE_HANDLE_LIST, handles,
                                     count * sizeof(HANDLE), nullptr, nullptr)) {
      ::DeleteProcThreadAttributeList(list_);
      CannotStart("its handles");
    }
  }
  InheritList(const InheritList&) = delete;
  InheritList& operator=(const InheritList&) = delete;
  ~InheritList() { ::DeleteProcThreadAttributeList(list_); }
  LPPROC_THREAD_ATTRIBUTE_LIST get() const { return list_; }

 private:
  std::string buffer_;
  LPPROC_THREAD_ATTRIBUTE_LIST list_ = nullptr;
};

}  // namespace

int RunGuarded(const std::string& path, const std::vector<std::string>& command,
               const std::function<int()>& /*work*/, unsigned seconds) {
  std::cout.flush();
  std::cerr.flush();
  std::fflush(nullptr);

  Handle readEnd, writeEnd;
  SECURITY_ATTRIBUTES inheritable{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  if (!::CreatePipe(readEnd.out(), writeEnd.out(), &inheritable, 0)) CannotStart("a pipe");
  ::SetHandleInformation(readEnd.get(), HANDLE_FLAG_INHERIT, 0);
  Handle in(InheritableCopy(STD_INPUT_HANDLE)), out(InheritableCopy(STD_OUTPUT_HANDLE)),
      err(InheritableCopy(STD_ERROR_HANDLE));
  HANDLE handed[4] = {writeEnd.get()};
  std::size_t count = 1;
  for (const Handle* h : {&in, &out, &err}) {
    if (h->ok()) handed[count++] = h->get();
  }
  InheritList attributes(handed, count);

  const std::wstring program = ProgramPath();
  std::wstring line = L"\"" + program + L"\"";
  AppendArgument(
      line, nvx::platform::NarrowToWide(
                kChildFlag + std::to_string(reinterpret_cast<std::uintptr_t>(writeEnd.get()))));
  for (const std::string& arg : command) AppendArgument(line, nvx::platform::NarrowToWide(arg));

  STARTUPINFOEXW startup{};
  startup.StartupInfo.cb = sizeof startup;
  startup.StartupInfo.dwFlags = STARTF_USESTDHANDLES;
  startup.StartupInfo.hStdInput = in.get();
  startup.StartupInfo.hStdOutput = out.get();
  startup.StartupInfo.hStdError = err.get();
  startup.lpAttributeList = attributes.get();

  const Handle job(MakeJob(seconds));
  PROCESS_INFORMATION child{};
  // Suspended until it is in the job, so that it never runs unlimited.
  if (!::CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE,
                        CREATE_SUSPENDED | EXTENDED_STARTUPINFO_PRESENT, nullptr, nullptr,
                        &startup.StartupInfo, &child)) {
    CannotStart("nvxparam");
  }
  const Handle process(child.hProcess), thread(child.hThread);
  writeEnd.Close();
  in.Close();
  out.Close();
  err.Close();
  if (!::AssignProcessToJobObject(job.get(), process.get())) {
    const DWORD error = ::GetLastError();
    ::TerminateProcess(process.get(), 1);
    ::SetLastError(error);
    CannotStart("its job");
  }
  ::ResumeThread(thread.get());

  // A child blocked without using CPU time ends at the wall-clock limit.
  if (::WaitForSingleObject(process.get(), seconds * 1000) != WAIT_OBJECT_0) {
    ::TerminateJobObject(job.get(), 1);
    ::WaitForSingleObject(process.get(), INFINITE);
    Fail("corrupt or unreadable RSV file: " + path);
  }
  // The child has ended, so the pipe holds its report or is at its end.
  unsigned char reported = 0;
  DWORD got = 0;
  if (!::ReadFile(readEnd.get(), &reported, 1, &got, nullptr)) got = 0;
  DWORD code = 0;
  if (!::GetExitCodeProcess(process.get(), &code)) code = STILL_ACTIVE;
  if (got == 1 && reported <= kFailed && code == reported) return reported;
  Fail("corrupt or unreadable RSV file: " + path);
}

void RunIfGuardedChild(const std::vector<std::string>& args,
                       const std::function<int(const std::vector<std::string>&)>& run) {
  if (args.empty() || args[0].rfind(kChildFlag, 0) != 0) return;
  const HANDLE report = reinterpret_cast<HANDLE>(static_cast<std::uintptr_t>(
      std::strtoull(args[0].c_str() + sizeof kChildFlag - 1, nullptr, 10)));
  if (::GetFileType(report) != FILE_TYPE_PIPE) return;  // not started by RunGuarded
  // A crash ends the process at once, without an error dialog.
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  const std::vector<std::string> command(args.begin() + 1, args.end());
  const int status = guarded::ChildStatus([&] { return run(command); });
  // The report tells an exit the child chose from any other (a library that
  // calls exit, a crash).
  const unsigned char byte = static_cast<unsigned char>(status);
  DWORD written = 0;
  ::WriteFile(report, &byte, 1, &written, nullptr);
  std::_Exit(status);
}

}  // namespace nvxparam
